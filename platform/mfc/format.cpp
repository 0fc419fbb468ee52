#include "mfc/format.h"

#include <charconv>
#include <cstdio>
#include <cstring>
#include <iterator>

namespace {

enum class Width { Byte, Short, Normal, Wide };

// One conversion of a format: what stands between the percent sign and the conversion character.
struct Conversion {
    std::string flags;  // flags, field width and precision, with `*` replaced by its argument
    Width width = Width::Normal;
    char type = 0;
    const char* end = nullptr;  // behind the conversion
};

// The arguments of a call. A va_list that is passed on by reference needs a wrapper.
struct Arguments {
    va_list list;
};

template <typename Value>
void Print(std::string& text, const std::string& format, Value value) {
    char buffer[64];
    const int length = std::snprintf(buffer, sizeof buffer, format.c_str(), value);
    if (length <= 0) return;
    const std::size_t before = text.size();
    const auto size = static_cast<std::size_t>(length);
    if (size < sizeof buffer) {
        text.append(buffer, size);
        return;
    }
    text.resize(before + size + 1);
    std::snprintf(text.data() + before, size + 1, format.c_str(), value);
    text.pop_back();
}

const char* ReadFlags(const char* at, Conversion& conversion, Arguments& arguments) {
    for (; *at && std::strchr("-+ #0123456789.*", *at); ++at) {
        if (*at == '*')
            conversion.flags += std::to_string(va_arg(arguments.list, int));
        else
            conversion.flags += *at;
    }
    return at;
}

const char* ReadWidth(const char* at, Conversion& conversion) {
    struct Prefix {
        const char* text;
        Width width;
    };
    static constexpr Prefix kPrefixes[] = {{"I64", Width::Wide},
                                           {"ll", Width::Wide},
                                           {"l", Width::Normal},
                                           {"hh", Width::Byte},
                                           {"h", Width::Short}};
    for (const Prefix& prefix : kPrefixes) {
        const std::size_t length = std::strlen(prefix.text);
        if (std::strncmp(at, prefix.text, length) != 0) continue;
        conversion.width = prefix.width;
        return at + length;
    }
    return at;
}

Conversion ReadConversion(const char* at, Arguments& arguments) {
    Conversion conversion;
    at = ReadFlags(at, conversion, arguments);
    at = ReadWidth(at, conversion);
    conversion.type = *at;
    conversion.end = *at ? at + 1 : at;
    return conversion;
}

void PrintDecimal(std::string& text, int value) {
    char digits[16];
    text.append(digits, std::to_chars(std::begin(digits), std::end(digits), value).ptr);
}

void PrintInteger(std::string& text, const Conversion& conversion, Arguments& arguments) {
    const bool decimal = conversion.type == 'd' || conversion.type == 'i';
    if (decimal && conversion.width == Width::Normal && conversion.flags.empty())
        return PrintDecimal(text, va_arg(arguments.list, int));
    const std::string start = "%" + conversion.flags;
    const std::string type(1, conversion.type);
    if (conversion.width == Width::Wide)
        return Print(text, start + "ll" + type, va_arg(arguments.list, long long));
    const char* const length = conversion.width == Width::Short  ? "h"
                               : conversion.width == Width::Byte ? "hh"
                                                                 : "";
    Print(text, start + length + type, va_arg(arguments.list, int));
}

void PrintText(std::string& text, const Conversion& conversion, const char* argument) {
    if (argument == nullptr) argument = "(null)";
    if (conversion.flags.empty())
        text += argument;
    else
        Print(text, "%" + conversion.flags + 's', argument);
}

void PrintArgument(std::string& text, const Conversion& conversion, Arguments& arguments) {
    if (conversion.type == 's')
        PrintText(text, conversion, va_arg(arguments.list, const char*));
    else if (conversion.type == 'c')
        text += static_cast<char>(va_arg(arguments.list, int));
    else
        Print(text, "%" + conversion.flags + conversion.type, va_arg(arguments.list, double));
}

}  // namespace

std::string mfc::FormatText(const char* format, va_list list) {
    Arguments arguments;
    va_copy(arguments.list, list);
    std::string text;
    text.reserve(2 * std::strlen(format));
    while (const char* const percent = std::strchr(format, '%')) {
        text.append(format, percent);
        const Conversion conversion = ReadConversion(percent + 1, arguments);
        if (conversion.type && std::strchr("diuxXo", conversion.type))
            PrintInteger(text, conversion, arguments);
        else if (conversion.type && std::strchr("scfFeEgG", conversion.type))
            PrintArgument(text, conversion, arguments);
        else
            text.append(conversion.type == '%' ? conversion.end - 1 : percent, conversion.end);
        format = conversion.end;
    }
    va_end(arguments.list);
    text += format;
    return text;
}
