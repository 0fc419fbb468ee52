#pragma once

#include <optional>
#include <string>
#include <string_view>

// Dates as Jet counts them: days since 1899-12-30, the fraction being the time of day (also before that day,
// where the fraction still counts forward from midnight).
namespace jetsql {

// Reads `m/d/yyyy`, `yyyy-mm-dd`, a time `h:nn[:ss] [AM|PM]`, or both.
std::optional<double> ParseDate(std::string_view text);

// `m/d/yyyy h:nn:ss AM`, without the part that is zero.
std::string FormatDate(double date);

}  // namespace jetsql
