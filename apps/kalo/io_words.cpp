#include "io_words.h"

#include <fmt/format.h>
#include <kalodata/io.h>

#include <array>

#include "axis.h"
#include "failure.h"
#include "text.h"

namespace cli {
namespace {

constexpr int kDigits = 4;
constexpr std::int32_t kValues = 16;
// A word with the same value in each digit is this times the value.
constexpr std::int32_t kAllDigits = 0x1111;
// The list of one direction is empty.
constexpr KaloStatus kNoInputParameters = 0x2BFF0424;
constexpr KaloStatus kNoOutputParameters = 0x2BFF0444;

struct Word {
    std::uint16_t inputMode = 0;  // not 0: chosen instead of any allocation
    std::array<KaloIoSignal, kDigits> signals{};
};

Word Decode(Direction direction, std::int32_t address, std::int32_t word, std::int32_t selectWord) {
    Word decoded;
    Check("KaloGetIOInfo", KaloGetIOInfo(kAxis, static_cast<std::int16_t>(direction), address, word,
                                         selectWord, &decoded.inputMode, decoded.signals.data()));
    return decoded;
}

// Addresses of the parameters whose digits allocate signals: all but the selection parameter.
std::vector<std::int32_t> Addresses(Direction direction) {
    const auto code = static_cast<std::int16_t>(direction);
    std::int32_t selection = -1;
    Check("KaloGetIOSelectAddress", KaloGetIOSelectAddress(kAxis, code, &selection));
    std::uint16_t count = 0;
    Check("KaloGetIONum", KaloGetIONum(kAxis, code, &count));
    std::vector<std::int32_t> addresses;
    for (std::int16_t index = 0; index < static_cast<std::int16_t>(count); ++index) {
        std::int32_t address = 0;
        Check("KaloGetIOAddress", KaloGetIOAddress(kAxis, code, index, &address));
        if (address != selection) addresses.push_back(address);
    }
    return addresses;
}

bool Allocates(const KaloIoSignal& signal) {
    return signal.logical_name[0] != '\0';
}

std::string SignalText(const KaloIoSignal& signal) {
    if (!Allocates(signal)) return "no signal";
    return fmt::format("{} on {}{}{}", FieldText(signal.logical_name), FieldText(signal.physical_name),
                       signal.positive_logic != 0 ? "" : ", active low",
                       signal.reverse != 0 ? ", reversed" : "");
}

// Four digits with a line from each to its signal, the lowest digit's first.
std::string Picture(std::uint16_t word, const Word& decoded) {
    const std::string digits = fmt::format("{:04X}", word);
    std::string text = fmt::format("    {}\n", fmt::join(digits, " "));
    for (int digit = 0; digit < kDigits; ++digit) {
        text += "    ";
        for (int left = digit + 1; left < kDigits; ++left)
            text += "│ ";
        text += "└─";
        for (int right = 0; right < digit; ++right)
            text += "──";
        text += fmt::format(" digit {}: {}\n", digit,
                            SignalText(decoded.signals[static_cast<std::size_t>(digit)]));
    }
    return text;
}

void AddDigit(Table& table, Direction direction, std::int32_t address, int digit, std::int32_t value,
              const KaloIoSignal& signal) {
    table.rows.push_back({NameOf(direction), address, digit, value, FieldText(signal.logical_name),
                          FieldText(signal.physical_name), signal.positive_logic != 0, signal.reverse != 0});
}

Table DigitTable() {
    return {{{"direction"},
             {"address", Shown::Hex},
             {"digit"},
             {"value", Shown::Hex},
             {"signal"},
             {"terminal"},
             {"positive_logic"},
             {"reverse"}},
            {}};
}

struct Place {
    Direction direction;
    std::int32_t address;
};

std::vector<Place> PlacesOf(const std::vector<Direction>& directions, std::optional<std::int32_t> wanted) {
    std::vector<Place> places;
    for (const Direction direction : directions)
        for (const std::int32_t address : Addresses(direction))
            if (!wanted || *wanted == address) places.push_back({direction, address});
    if (places.empty() && wanted)
        throw Failure(fmt::format("no parameter at 0x{:X} allocates signals", *wanted));
    return places;
}

std::string ForPeople(const Place& place, std::uint16_t word, const Word& decoded) {
    std::string text = fmt::format("{} at 0x{:X}\n", NameOf(place.direction), place.address);
    if (decoded.inputMode == 0) return text + Picture(word, decoded);
    return text + fmt::format("    the selection parameter chooses input mode {}; no digit counts\n",
                              decoded.inputMode);
}

}  // namespace

const char* NameOf(Direction direction) {
    return direction == Direction::Inputs ? "input" : "output";
}

std::vector<std::int32_t> AllocatingParameterIds(Direction direction) {
    const bool inputs = direction == Direction::Inputs;
    std::uint16_t count = 0;
    const KaloStatus status =
        inputs ? KaloGetInputSignalPrmIDNum(kAxis, &count) : KaloGetOutputSignalPrmIDNum(kAxis, &count);
    if (status == kNoInputParameters || status == kNoOutputParameters) return {};
    Check(inputs ? "KaloGetInputSignalPrmIDNum" : "KaloGetOutputSignalPrmIDNum", status);
    std::vector<std::int32_t> ids(count);
    if (inputs)
        Check("KaloGetInputSignalPrmID", KaloGetInputSignalPrmID(kAxis, ids.data()));
    else
        Check("KaloGetOutputSignalPrmID", KaloGetOutputSignalPrmID(kAxis, ids.data()));
    return ids;
}

Table AllocationTable(const std::vector<Direction>& directions, std::optional<std::int32_t> address,
                      std::uint16_t selectWord) {
    Table table = DigitTable();
    for (const Place& place : PlacesOf(directions, address)) {
        std::vector<Word> words;
        words.reserve(kValues);
        for (std::int32_t value = 0; value < kValues; ++value)
            words.push_back(Decode(place.direction, place.address, value * kAllDigits, selectWord));
        for (std::size_t digit = 0; digit < kDigits; ++digit)
            for (std::size_t value = 0; value < words.size(); ++value)
                if (Allocates(words[value].signals[digit]))
                    AddDigit(table, place.direction, place.address, static_cast<int>(digit),
                             static_cast<std::int32_t>(value), words[value].signals[digit]);
    }
    return table;
}

void PrintDecodedWord(const std::vector<Direction>& directions, std::optional<std::int32_t> address,
                      std::uint16_t word, std::uint16_t selectWord, Format format) {
    std::string text;
    Table table = DigitTable();
    for (const Place& place : PlacesOf(directions, address)) {
        const Word decoded = Decode(place.direction, place.address, word, selectWord);
        text += ForPeople(place, word, decoded);
        for (int digit = 0; digit < kDigits; ++digit)
            AddDigit(table, place.direction, place.address, digit, (word >> (4 * digit)) & 0xF,
                     decoded.signals[static_cast<std::size_t>(digit)]);
    }
    if (format == Format::Table)
        PrintText(text);
    else
        Print(table, format);
}

}  // namespace cli
