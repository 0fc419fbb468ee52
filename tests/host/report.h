#pragma once

#include <kalodata/kalodata.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

#include "host/library.h"

namespace host {

// Writes what a tour of the library calls and gets, one line a call and one a field, so that two systems'
// tours can be compared byte by byte.
class Report {
  public:
    explicit Report(const Library& library) : library_(library) {}

    // A function of the library, ready to be called. Its name counts as visited.
    void* Visit(const char* name);
    const std::set<std::string>& Visited() const { return visited_; }

    void Called(const char* name, const std::vector<std::int64_t>& arguments, KaloStatus status);
    void Number(const char* name, std::int64_t value);
    void Bits(const char* name, float value);
    void Text(const char* name, const char* text, std::size_t size);
    // Something that no tour may show; the program fails at its end.
    void Fault(const std::string& what);
    bool Failed() const { return failed_; }

  private:
    const Library& library_;
    std::set<std::string> visited_;
    bool failed_ = false;
};

// What a byte of a record holds before the library writes it.
constexpr unsigned char kUnset = 0xA5;

// Reports a record's fields one by one, and counts their bytes.
class Fields {
  public:
    explicit Fields(Report& report) : report_(report) {}

    template <class T>
    Fields& operator()(const char* name, T value) {
        static_assert(std::is_arithmetic_v<T>);
        size_ += sizeof(T);
        if constexpr (std::is_floating_point_v<T>) {
            report_.Bits(name, value);
        } else {
            report_.Number(name, value);
        }
        return *this;
    }
    template <std::size_t N>
    Fields& operator()(const char* name, const char (&text)[N]) {
        size_ += N;
        report_.Text(name, text, N);
        return *this;
    }

    std::size_t Size() const { return size_; }

  private:
    Report& report_;
    std::size_t size_ = 0;
};

// An array of records that the library fills, with one more behind it that it must not touch.
template <class T>
class Array {
  public:
    explicit Array(std::size_t count) : records_(count + 1) {
        std::memset(static_cast<void*>(records_.data()), kUnset, records_.size() * sizeof(T));
    }

    T* Data() { return records_.data(); }
    const T& operator[](std::size_t index) const { return records_[index]; }
    std::size_t Count() const { return records_.size() - 1; }

    void Show(Report& report) const {
        for (std::size_t index = 0; index < Count(); ++index)
            ShowRecord(report, records_[index]);
        const auto* guard = reinterpret_cast<const unsigned char*>(&records_.back());
        for (std::size_t offset = 0; offset < sizeof(T); ++offset) {
            if (guard[offset] != kUnset) return report.Fault("written past the end of an array");
        }
    }

  private:
    static void ShowRecord(Report& report, const T& record) {
        Fields fields(report);
        if constexpr (std::is_arithmetic_v<T>) {
            fields("value", record);
        } else {
            ShowFields(fields, record);
        }
        if (fields.Size() != sizeof(T)) report.Fault("a record with fields that the report lacks");
    }

    std::vector<T> records_;
};

// One record or number.
template <class T>
class Single : public Array<T> {
  public:
    Single() : Array<T>(1) {}
    explicit Single(T value) : Single() { *this->Data() = value; }
    T Value() const { return (*this)[0]; }
};

// A text of `Size` bytes that is a function's whole output.
template <std::size_t Size>
struct TextOutput {
    char text[Size];
};

template <std::size_t Size>
void ShowFields(Fields& fields, const TextOutput<Size>& output) {
    fields("text", output.text);
}

// A function of the library under its declared type; a call is reported with its numbers and its status.
template <class Function>
class Entry {
  public:
    Entry(Report& report, const char* name) : report_(report), name_(name) {}

    template <class... Arguments>
    KaloStatus operator()(Arguments... arguments) const {
        auto* function = reinterpret_cast<Function*>(report_.Visit(name_));
        std::vector<std::int64_t> numbers;
        (AddNumber(numbers, arguments), ...);
        KaloStatus status = 0;
        if constexpr (std::is_void_v<std::invoke_result_t<Function*, Arguments...>>) {
            function(arguments...);
        } else {
            status = function(arguments...);
        }
        report_.Called(name_, numbers, status);
        return status;
    }

  private:
    template <class T>
    static void AddNumber(std::vector<std::int64_t>& numbers, T value) {
        if constexpr (std::is_integral_v<T>) numbers.push_back(value);
    }

    Report& report_;
    const char* name_;
};

}  // namespace host

// The exported function `name` of the library that `report` tours.
#define KALO(name)                \
    host::Entry<decltype(name)> { \
        report, #name             \
    }
