#include "io/io_signal.h"

namespace kalo {
namespace {

void ReadName(Rows& rows, const char* column, char (&name)[20], const KaloIoSignal* end) {
    if (!rows.TextWhole(column, name, end)) std::memset(name, 0, sizeof(name));
}

}  // namespace

void ReadTerminal(Rows& rows, KaloIoSignal& signal, const KaloIoSignal* end) {
    ReadName(rows, "logical_name", signal.logical_name, end);
    ReadName(rows, "physical_name", signal.physical_name, end);
    signal.positive_logic = rows.NumberOr<std::uint16_t>("positive_logic", 0);
}

void ReadSignal(Rows& rows, KaloIoSignal& signal, const KaloIoSignal* end) {
    ReadTerminal(rows, signal, end);
    signal.reverse = rows.NumberOr<std::uint16_t>("reverse", 0);
}

}  // namespace kalo
