#include <kalodata/help.h>

#include <algorithm>
#include <cstring>

#include "session/query_frame.h"

namespace kalo {
namespace {

// Ids above this one stand for "no choice of this kind".
constexpr std::int32_t kGreatestId = 65534;

// Elements are addressed with a signed 16-bit number.
constexpr std::uint16_t kMostElements = 32768;

struct CountCodes {
    Status notOpen;
    Status noRow;
    Status failed;
};

struct ListCodes {
    Status notOpen;
    Status noRow;
    Status noId;
    Status noText;
    Status failed;
};

// The columns of one kind of choice, and the size of an element: a 32-bit id, then the text.
struct Element {
    const char* idColumn;
    const char* textColumn;
    std::size_t size;
};

constexpr const char* kPulseForms =
    "SELECT * FROM [refpulsestring] WHERE ([pulse_id] <= %ld AND [country_id] = %hu)";
constexpr const char* kPulseLogics =
    "SELECT * FROM [refpulsestring] WHERE ([logic_id] <= %ld AND [country_id] = %hu)";
constexpr const char* kMultiSettings =
    "SELECT * FROM [refpulsestring] WHERE ([multi_id] <= %ld AND [country_id] = %hu)";

// An empty list is an error here.
Status CountChoices(const CountCodes& codes, const char* statement, std::uint16_t countryId,
                    std::uint16_t* count) {
    if (!DatabaseIsOpen()) return codes.notOpen;
    return Locked(DaoCode(codes.failed).AndLeaveLock(), [&] {
        Rows rows(Sql(statement, kGreatestId, countryId));
        const long rowCount = rows.Count();
        *count = static_cast<std::uint16_t>(rowCount);
        return rowCount == 0 ? codes.noRow : kOk;
    });
}

// Fills one element from the current row. A text that is too long runs on, but never past `end`.
Status ReadChoice(const ListCodes& codes, const Element& kind, Rows& row, char* element, const char* end) {
    std::uint32_t id = 0;
    if (!row.Number(kind.idColumn, id)) return codes.noId;
    std::memcpy(element, &id, sizeof id);
    return row.TextWhole(kind.textColumn, element + sizeof id, end) ? kOk : codes.noText;
}

Status ListChoices(const ListCodes& codes, const char* statement, std::uint16_t countryId,
                   const Element& kind, void* elements) {
    if (!DatabaseIsOpen()) return codes.notOpen;
    return Locked(DaoCode(codes.failed).AndLeaveLock(), [&] {
        Rows rows(Sql(statement, kGreatestId, countryId));
        if (rows.Empty()) return codes.noRow;
        // The caller's array is as long as the 16-bit count said.
        const auto count = static_cast<std::uint16_t>(rows.Count());
        const std::uint16_t listed = std::min(count, kMostElements);
        auto* element = static_cast<char*>(elements);
        const char* end = element + count * kind.size;
        rows.First();
        for (std::uint16_t i = 0; i < listed; ++i, rows.Next(), element += kind.size) {
            const Status status = ReadChoice(codes, kind, rows, element, end);
            if (status != kOk) return status;
        }
        return kOk;
    });
}

}  // namespace
}  // namespace kalo

using namespace kalo;

static_assert(sizeof(KaloRefPulseString) == 68 && offsetof(KaloRefPulseString, pulse_string) == 4);
static_assert(sizeof(KaloRefLogicString) == 36 && offsetof(KaloRefLogicString, logic_string) == 4);
static_assert(sizeof(KaloRefMultiString) == 36 && offsetof(KaloRefMultiString, multi_string) == 4);

KaloStatus KALO_CALL KaloGetRefPulseStringNum(std::uint16_t countryId, std::uint16_t* count) {
    return CountChoices({.notOpen = 0x2BFF0480, .noRow = 0x2BFF0481, .failed = 0x2BFF0482}, kPulseForms,
                        countryId, count);
}

KaloStatus KALO_CALL KaloGetRefPulseString(std::uint16_t countryId, KaloRefPulseString* strings) {
    return ListChoices({.notOpen = 0x2BFF0483,
                        .noRow = 0x2BFF0484,
                        .noId = 0x2BFF0485,
                        .noText = 0x2BFF0486,
                        .failed = 0x2BFF0487},
                       kPulseForms, countryId, {"pulse_id", "pulse_string", sizeof *strings}, strings);
}

KaloStatus KALO_CALL KaloGetRefLogicStringNum(std::uint16_t countryId, std::uint16_t* count) {
    return CountChoices({.notOpen = 0x2BFF048A, .noRow = 0x2BFF048B, .failed = 0x2BFF048C}, kPulseLogics,
                        countryId, count);
}

KaloStatus KALO_CALL KaloGetRefLogicString(std::uint16_t countryId, KaloRefLogicString* strings) {
    return ListChoices({.notOpen = 0x2BFF048D,
                        .noRow = 0x2BFF048E,
                        .noId = 0x2BFF048F,
                        .noText = 0x2BFF0490,
                        .failed = 0x2BFF0491},
                       kPulseLogics, countryId, {"logic_id", "logic_string", sizeof *strings}, strings);
}

KaloStatus KALO_CALL KaloGetRefMultiStringNum(std::uint16_t countryId, std::uint16_t* count) {
    return CountChoices({.notOpen = 0x2BFF0495, .noRow = 0x2BFF0496, .failed = 0x2BFF0497}, kMultiSettings,
                        countryId, count);
}

KaloStatus KALO_CALL KaloGetRefMultiString(std::uint16_t countryId, KaloRefMultiString* strings) {
    return ListChoices({.notOpen = 0x2BFF0498,
                        .noRow = 0x2BFF0499,
                        .noId = 0x2BFF049A,
                        .noText = 0x2BFF049B,
                        .failed = 0x2BFF049C},
                       kMultiSettings, countryId, {"multi_id", "multi_string", sizeof *strings}, strings);
}
