#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "output.h"

namespace cli {

// What every question about a database has.
struct CommonOptions {
    std::string file;
    Format format = Format::Table;
    std::uint16_t language = 0;
};

// An amplifier with its option unit and the versions of both.
struct Combination {
    std::int32_t model = 0;
    std::int32_t firmware = 0;
    std::int32_t customSpec = 0;
    std::int32_t power = 0;
    std::int32_t option = 0;
    std::int32_t optionFirmware = 0;
    std::int32_t optionCustomSpec = 0;
};

// A whole number in decimal, or in hexadecimal after 0x; nothing where the text is anything else or the
// number lies outside the limits.
std::optional<std::int64_t> ParseNumber(const std::string& text, std::int64_t least, std::int64_t most);

// Like ParseNumber; throws the error of a wrong command line.
std::int64_t NumberArgument(const std::string& text, std::int64_t least, std::int64_t most);

template <class Number>
void StoreNumber(Number& target, const std::string& text) {
    using Limits = std::numeric_limits<Number>;
    target = static_cast<Number>(NumberArgument(text, Limits::min(), Limits::max()));
}

template <class Number>
void StoreNumber(std::optional<Number>& target, const std::string& text) {
    StoreNumber(target.emplace(), text);
}

// Adds an option whose value is a number that fits its target.
template <class Target>
CLI::Option* AddNumber(CLI::App& command, const std::string& name, Target& target, const std::string& words) {
    return command
        .add_option_function<std::string>(
            name, [&target](const std::string& text) { StoreNumber(target, text); }, words)
        ->type_name("N");
}

CLI::Option* AddFormat(CLI::App& command, Format& format);
void AddCommon(CLI::App& command, CommonOptions& options);
// Returns the option of the model, for commands that cannot do without.
CLI::Option* AddCombination(CLI::App& command, Combination& combination);

}  // namespace cli
