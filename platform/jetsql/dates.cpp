#include "jetsql/dates.h"

#include <cmath>
#include <cstdint>
#include <cstdio>

namespace jetsql {
namespace {

constexpr std::int64_t kCivilDaysOfZero = -25569;  // 1899-12-30 counted from 1970-01-01
constexpr double kFirstDay = -657434;              // 0100-01-01
constexpr double kLastDay = 2958465;               // 9999-12-31

// Days from 1970-01-01 of a date of the Gregorian calendar.
std::int64_t DaysFromCivil(int year, int month, int day) {
    const std::int64_t y = month <= 2 ? year - 1 : year;
    const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
    const std::int64_t yearOfEra = y - era * 400;
    const std::int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    return era * 146097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719468;
}

struct Civil {
    int year, month, day;
};

Civil CivilFromDays(std::int64_t days) {
    days += 719468;
    const std::int64_t era = (days >= 0 ? days : days - 146096) / 146097;
    const std::int64_t dayOfEra = days - era * 146097;
    const std::int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t shifted = (5 * dayOfYear + 2) / 153;
    const int month = static_cast<int>(shifted < 10 ? shifted + 3 : shifted - 9);
    return {static_cast<int>(yearOfEra + era * 400 + (month <= 2 ? 1 : 0)), month,
            static_cast<int>(dayOfYear - (153 * shifted + 2) / 5 + 1)};
}

class Scanner {
  public:
    explicit Scanner(std::string_view text) : text_(text) {}

    void SkipBlanks() {
        while (at_ < text_.size() && text_[at_] == ' ')
            ++at_;
    }
    bool Done() const { return at_ == text_.size(); }
    bool Accept(char c) {
        if (Done() || text_[at_] != c) return false;
        ++at_;
        return true;
    }
    char Peek() const { return Done() ? '\0' : text_[at_]; }
    std::optional<int> Number() {
        int value = 0;
        const std::size_t start = at_;
        for (; at_ < text_.size() && text_[at_] >= '0' && text_[at_] <= '9'; ++at_) {
            if (at_ - start == 4) return std::nullopt;
            value = value * 10 + (text_[at_] - '0');
        }
        return at_ == start ? std::nullopt : std::optional<int>(value);
    }
    // 'A' or 'P' of a following AM or PM, else 0.
    char Meridian() {
        if (text_.size() - at_ < 2 || (text_[at_ + 1] | 0x20) != 'm') return '\0';
        const char half = static_cast<char>(text_[at_] & ~0x20);
        if (half != 'A' && half != 'P') return '\0';
        at_ += 2;
        return half;
    }

  private:
    std::string_view text_;
    std::size_t at_ = 0;
};

int FullYear(int year) {
    if (year >= 100) return year;
    return year < 30 ? 2000 + year : 1900 + year;
}

std::optional<double> DayNumber(int year, int month, int day) {
    if (month < 1 || month > 12 || day < 1 || day > 31) return std::nullopt;
    const std::int64_t days = DaysFromCivil(FullYear(year), month, day);
    if (CivilFromDays(days).day != day) return std::nullopt;
    return static_cast<double>(days - kCivilDaysOfZero);
}

// The rest of a date whose first number was read.
std::optional<double> ReadDay(Scanner& scanner, int first, char separator) {
    const auto second = scanner.Number();
    if (!second || !scanner.Accept(separator)) return std::nullopt;
    const auto third = scanner.Number();
    if (!third) return std::nullopt;
    return separator == '-' ? DayNumber(first, *second, *third) : DayNumber(*third, first, *second);
}

std::optional<double> ReadTime(Scanner& scanner, int hour) {
    const auto minute = scanner.Number();
    int second = 0;
    if (scanner.Accept(':')) second = scanner.Number().value_or(60);
    scanner.SkipBlanks();
    const char half = scanner.Meridian();
    if (half != '\0' && (hour < 1 || hour > 12)) return std::nullopt;
    if (half != '\0') hour = hour % 12 + (half == 'P' ? 12 : 0);
    if (!minute || hour > 23 || *minute > 59 || second > 59) return std::nullopt;
    return (hour * 3600 + *minute * 60 + second) / 86400.0;
}

std::optional<double> ReadDateAndTime(Scanner& scanner) {
    const auto first = scanner.Number();
    if (!first) return std::nullopt;
    if (scanner.Accept(':')) return ReadTime(scanner, *first);
    const char separator = scanner.Peek();
    if ((separator != '/' && separator != '-') || !scanner.Accept(separator)) return std::nullopt;
    const auto day = ReadDay(scanner, *first, separator);
    scanner.SkipBlanks();
    if (!day || scanner.Done()) return day;
    const auto hour = scanner.Number();
    if (!hour || !scanner.Accept(':')) return std::nullopt;
    const auto time = ReadTime(scanner, *hour);
    if (!time) return std::nullopt;
    return *day < 0 ? *day - *time : *day + *time;
}

}  // namespace

std::optional<double> ParseDate(std::string_view text) {
    Scanner scanner(text);
    scanner.SkipBlanks();
    const auto date = ReadDateAndTime(scanner);
    scanner.SkipBlanks();
    return scanner.Done() ? date : std::nullopt;
}

std::string FormatDate(double date) {
    if (!(date >= kFirstDay && date < kLastDay + 1)) return {};
    double days = std::trunc(date);
    auto seconds = static_cast<int>(std::lround(std::fabs(date - days) * 86400));
    if (seconds == 86400) {
        seconds = 0;
        days += 1;
    }
    char buffer[64];
    int length = 0;
    if (days != 0 || seconds == 0) {
        const Civil civil = CivilFromDays(static_cast<std::int64_t>(days) + kCivilDaysOfZero);
        length = std::snprintf(buffer, sizeof buffer, "%d/%d/%04d", civil.month, civil.day, civil.year);
    }
    if (seconds != 0) {
        const int hour = seconds / 3600;
        std::snprintf(buffer + length, sizeof buffer - static_cast<std::size_t>(length), "%s%d:%02d:%02d %s",
                      length > 0 ? " " : "", hour % 12 == 0 ? 12 : hour % 12, seconds / 60 % 60, seconds % 60,
                      hour < 12 ? "AM" : "PM");
    }
    return buffer;
}

}  // namespace jetsql
