#include <algorithm>
#include <array>

#include "io/io_signal.h"

using namespace kalo;

namespace {

constexpr std::int16_t kInputs = 1;
constexpr std::int16_t kOutputs = 2;
constexpr int kDigits = 4;

// The value of a hexadecimal digit of a parameter word, 0 = lowest.
std::int32_t Digit(std::int32_t word, int digit) {
    return (word >> (4 * digit)) & 0xF;
}

// What one call decodes: the words of a direction's parameters on the axis's I/O table.
struct IoWords {
    CString table;
    std::int16_t ioCode;
    std::int32_t address;
    std::int32_t value;
    std::int32_t select;
};

CString SelectionStatement(const IoWords& words, int digit) {
    return Sql(
        "SELECT * FROM [%s] WHERE ([io_code] = %d AND [mode_select] = 1 AND [digit] = %d AND [value] = %ld) ",
        words.table, words.ioCode, digit, Digit(words.select, digit));
}

CString AllocationStatement(const IoWords& words, int digit) {
    return Sql(
        "SELECT * FROM [%s] WHERE ([io_code] = %d AND [address] = %ld AND [digit] = %d AND [value] = %ld) ",
        words.table, words.ioCode, words.address, digit, Digit(words.value, digit));
}

// Fills a record for each digit: `read` fills it from a row; a digit without one gives a record of zeros.
template <class Read>
Status ReadAllocations(const IoWords& words, const OnDaoError& onError, KaloIoSignal* signals, Read&& read) {
    for (int digit = 0; digit < kDigits; ++digit) {
        const Status status = Locked(onError, [&] {
            Rows rows(AllocationStatement(words, digit));
            if (rows.Empty()) {
                signals[digit] = {};
            } else {
                read(rows, signals[digit]);
            }
            return kOk;
        });
        if (status != kOk) return status;
    }
    return kOk;
}

// The input mode that the lowest digit with a mode-selection row chooses; 1 without any.
constexpr std::uint16_t kByParameter = 1;

Status ReadInputMode(const IoWords& words, std::uint16_t& mode) {
    constexpr Status kNoMode = 0x2A00007A;
    bool chosen = false;
    mode = kByParameter;
    for (int digit = 0; digit < kDigits && !chosen; ++digit) {
        const Status status = Locked(DaoBase(0x2BCA0000), [&] {
            Rows rows(SelectionStatement(words, digit));
            if (rows.Empty()) return kOk;
            chosen = true;
            return rows.Number("input_mode_select", mode) ? kOk : kNoMode;
        });
        if (status != kOk) return status;
    }
    return kOk;
}

Status ReadInputs(const IoWords& words, std::uint16_t* inputMode, KaloIoSignal* signals) {
    std::uint16_t mode = kByParameter;
    const Status status = ReadInputMode(words, mode);
    if (status != kOk) return status;
    if (mode != kByParameter) {
        *inputMode = mode;
        std::fill_n(signals, kDigits, KaloIoSignal{});
        return kOk;
    }
    return ReadAllocations(words, DaoBase(0x2BCB0000), signals, [signals](Rows& rows, KaloIoSignal& signal) {
        ReadSignal(rows, signal, signals + kDigits);
    });
}

// What one digit of the outputs' selection parameter says: the rows with this reverse address have this
// polarity.
struct ReverseSetting {
    std::uint16_t reverseAddress = 0;
    std::uint16_t reverse = 0;
};
using ReverseSettings = std::array<ReverseSetting, kDigits>;

Status ReadReverseSettings(const IoWords& words, ReverseSettings& settings) {
    for (int digit = 0; digit < kDigits; ++digit) {
        const Status status = Locked(DaoBase(0x2BCC0000), [&] {
            Rows rows(SelectionStatement(words, digit));
            if (rows.Empty()) return kOk;
            rows.Number("reverse_address", settings[digit].reverseAddress);
            rows.Number("reverse", settings[digit].reverse);
            return kOk;
        });
        if (status != kOk) return status;
    }
    return kOk;
}

// An output takes its polarity from the last setting that fits; without one it stays as the caller passed it.
Status ReadOutputs(const IoWords& words, KaloIoSignal* signals) {
    ReverseSettings settings;
    const Status status = ReadReverseSettings(words, settings);
    if (status != kOk) return status;
    return ReadAllocations(words, DaoBase(0x2BCD0000), signals, [&](Rows& rows, KaloIoSignal& signal) {
        ReadTerminal(rows, signal, signals + kDigits);
        const auto reverseAddress = rows.NumberOr<std::uint16_t>("reverse_address", 0);
        for (const ReverseSetting& setting : settings) {
            if (setting.reverseAddress == reverseAddress) signal.reverse = setting.reverse;
        }
    });
}

}  // namespace

KaloStatus KALO_CALL KaloGetIOInfo(std::int16_t axis_num, std::int16_t io_code, std::int32_t address,
                                   std::int32_t value_word, std::int32_t select_word,
                                   std::uint16_t* input_mode, KaloIoSignal* signals) {
    constexpr Status kNotOpen = 0x2A00002C;
    if (!DatabaseIsOpen()) return kNotOpen;
    IoWords words = {{}, io_code, address, value_word, select_word};
    const Status status = FindTable({"SELECT * FROM [tablemanager] WHERE axis_num = %d", "io_table",
                                     0x2BC70000, 0x2A00002F, DaoBase(0x2BC80000)},
                                    axis_num, words.table);
    if (status != kOk) return status;
    *input_mode = 0;
    if (io_code == kInputs) return ReadInputs(words, input_mode, signals);
    if (io_code == kOutputs) return ReadOutputs(words, signals);
    return kOk;
}
