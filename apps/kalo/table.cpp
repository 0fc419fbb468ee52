#include "table.h"

#include <fmt/format.h>

#include <cstdlib>

namespace cli {
namespace {

struct TextOf {
    std::string operator()(std::monostate) const { return {}; }
    std::string operator()(const std::string& text) const { return text; }
    std::string operator()(const auto& value) const { return fmt::format("{}", value); }
};

}  // namespace

// The shortest decimal number that is this float, not the long one that is its double.
Cell::Cell(float value) : value_(std::strtod(fmt::format("{}", value).c_str(), nullptr)) {}

std::string Cell::Text() const {
    return std::visit(TextOf{}, value_);
}

std::string Cell::HexText() const {
    const auto* number = std::get_if<std::int64_t>(&value_);
    return number == nullptr ? Text() : fmt::format("0x{:X}", *number);
}

}  // namespace cli
