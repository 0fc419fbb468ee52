#include "mfc/format.h"

#include <cstdio>
#include <cstring>

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
std::string Print(const std::string& format, Value value) {
    const int length = std::snprintf(nullptr, 0, format.c_str(), value);
    if (length <= 0) return {};
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    std::snprintf(text.data(), text.size(), format.c_str(), value);
    text.pop_back();
    return text;
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

std::string PrintInteger(const Conversion& conversion, Arguments& arguments) {
    const std::string start = "%" + conversion.flags;
    const std::string type(1, conversion.type);
    if (conversion.width == Width::Wide) return Print(start + "ll" + type, va_arg(arguments.list, long long));
    const char* const length = conversion.width == Width::Short  ? "h"
                               : conversion.width == Width::Byte ? "hh"
                                                                 : "";
    return Print(start + length + type, va_arg(arguments.list, int));
}

std::string PrintArgument(const Conversion& conversion, Arguments& arguments) {
    const std::string format = "%" + conversion.flags + conversion.type;
    if (conversion.type == 's') {
        const char* const text = va_arg(arguments.list, const char*);
        return Print(format, text ? text : "(null)");
    }
    if (conversion.type == 'c') return std::string(1, static_cast<char>(va_arg(arguments.list, int)));
    return Print(format, va_arg(arguments.list, double));
}

}  // namespace

std::string mfc::FormatText(const char* format, va_list list) {
    Arguments arguments;
    va_copy(arguments.list, list);
    std::string text;
    while (const char* const percent = std::strchr(format, '%')) {
        text.append(format, percent);
        const Conversion conversion = ReadConversion(percent + 1, arguments);
        if (conversion.type && std::strchr("diuxXo", conversion.type))
            text += PrintInteger(conversion, arguments);
        else if (conversion.type && std::strchr("scfFeEgG", conversion.type))
            text += PrintArgument(conversion, arguments);
        else
            text.append(conversion.type == '%' ? conversion.end - 1 : percent, conversion.end);
        format = conversion.end;
    }
    va_end(arguments.list);
    return text + format;
}
