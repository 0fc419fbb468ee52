#include <algorithm>
#include <cstdarg>
#include <cstring>

#include "afx.h"
#include "mfc/format.h"

namespace {

constexpr const char* kWhiteSpace = " \t\r\n\v\f";

char Lower(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

std::size_t Clamp(int value, std::size_t limit) {
    return value < 0 ? 0 : std::min(static_cast<std::size_t>(value), limit);
}

}  // namespace

CString::CString(LPCTSTR text) : text_(text ? text : "") {}

CString::CString(LPCTSTR text, int length) : text_(text, static_cast<std::size_t>(std::max(length, 0))) {}

CString& CString::operator=(LPCTSTR text) {
    text_ = text ? std::string(text) : std::string();
    return *this;
}

CString& CString::operator+=(LPCTSTR text) {
    if (text) text_ += text;
    return *this;
}

CString& CString::operator+=(char character) {
    text_ += character;
    return *this;
}

void CString::Format(LPCTSTR format, ...) {
    va_list arguments;
    va_start(arguments, format);
    std::string formatted = mfc::FormatText(format, arguments);
    va_end(arguments);
    text_ = std::move(formatted);
}

void CString::TrimLeft() {
    text_.erase(0, std::min(text_.find_first_not_of(kWhiteSpace), text_.size()));
}

void CString::TrimRight() {
    text_.erase(text_.find_last_not_of(kWhiteSpace) + 1);
}

void CString::MakeLower() {
    std::transform(text_.begin(), text_.end(), text_.begin(), Lower);
}

int CString::Find(LPCTSTR text) const {
    const std::size_t position = text_.find(text);
    return position == std::string::npos ? -1 : static_cast<int>(position);
}

CString CString::Left(int count) const {
    return Mid(0, count);
}

CString CString::Mid(int first) const {
    return Mid(first, GetLength());
}

CString CString::Mid(int first, int count) const {
    CString part;
    part.text_ = text_.substr(Clamp(first, text_.size()), Clamp(count, text_.size()));
    return part;
}

CString CString::Right(int count) const {
    return Mid(static_cast<int>(text_.size() - Clamp(count, text_.size())));
}

CString operator+(const CString& left, const CString& right) {
    CString sum = left;
    sum += right;
    return sum;
}

CString operator+(const CString& left, LPCTSTR right) {
    CString sum = left;
    sum += right;
    return sum;
}

CString operator+(LPCTSTR left, const CString& right) {
    CString sum = left;
    sum += right;
    return sum;
}

bool operator==(const CString& left, const CString& right) {
    return std::strcmp(left, right) == 0;
}

bool operator==(const CString& left, LPCTSTR right) {
    return std::strcmp(left, right ? right : "") == 0;
}

bool operator!=(const CString& left, LPCTSTR right) {
    return !(left == right);
}
