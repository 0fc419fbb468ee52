#include <kalodata/catalogue.h>

#include <span>

#include "catalogue/row_reading.h"

namespace kalo {
namespace {

// One list of models: how a caller names it, and its statement.
struct ModelList {
    std::uint16_t kind;
    std::uint16_t subKind;
    const char* statement;
};

constexpr ModelList kCountedLists[] = {
    {1, 0, "SELECT DISTINCT [servo_type] FROM [model] WHERE [off_flag] = 1 AND [servo_type] <> 0"},
    {1, 1, "SELECT DISTINCT [servo_id] FROM [model] WHERE [off_flag] = 1 AND [servo_type] = 0"},
    {2, 0, "SELECT DISTINCT [servo_type] FROM [model] WHERE [Linear_flag] = 0 AND [option_id] = 65533"},
    {2, 1, "SELECT DISTINCT [servo_type] FROM [model] WHERE [Linear_flag] = 1 AND [option_id] = 65533"},
    {3, 0, "SELECT DISTINCT [option_id] FROM [model] WHERE ([option_id] < 65533 AND [off_flag] = 1)"},
    {3, 1, "SELECT DISTINCT [option_id] FROM [model] WHERE [option_id] < 65533"},
};

constexpr ModelList kListedUnits[] = {
    {0, 0, "SELECT DISTINCT [disp_id], [servo_id], [option_id] FROM [model]"},
    {1, 0,
     "SELECT DISTINCT [disp_id], [servo_id], [option_id] FROM [model] WHERE [off_flag] = 1 AND [servo_type] "
     "<> 0"},
    {2, 0,
     "SELECT DISTINCT [disp_id], [servo_id], [option_id] FROM [model] WHERE [linear_flag] = 0 AND "
     "[option_id] = "
     "65533"},
    {2, 1,
     "SELECT DISTINCT [disp_id], [servo_id], [option_id] FROM [model] WHERE [linear_flag] = 1 AND "
     "[option_id] = "
     "65533"},
    {3, 0,
     "SELECT DISTINCT [disp_id], [servo_id], [option_id] FROM [model] WHERE ([option_id] < 65533 AND "
     "[off_flag] = "
     "1)"},
    {3, 1, "SELECT DISTINCT [disp_id], [servo_id], [option_id] FROM [model] WHERE [option_id] < 65533"},
};

// The statement of a list; null for a kind and sub-kind that name none.
const char* StatementOf(std::span<const ModelList> lists, std::uint16_t kind, std::uint16_t subKind) {
    for (const ModelList& list : lists) {
        if (list.kind == kind && list.subKind == subKind) return list.statement;
    }
    return nullptr;
}

CString OptionUnitsOf(std::uint32_t modelId) {
    return Sql(
        "SELECT * FROM [model] WHERE [servo_id]= %d AND [option_id] <> 65533 AND [off_flag] = 1 AND "
        "[servo_type] = 0",
        modelId);
}

}  // namespace
}  // namespace kalo

using namespace kalo;

KaloStatus KALO_CALL KaloGetModelNumber(std::uint16_t kind, std::uint16_t subKind, std::uint16_t* count) {
    enum : Status { kNotOpen = 0x2A00001E, kNoSuchList = 0x2A00001F };
    if (!DatabaseIsOpen()) return kNotOpen;
    const char* statement = StatementOf(kCountedLists, kind, subKind);
    if (statement == nullptr) return kNoSuchList;
    return CountRows(DaoBase(0x2B560000), statement, count);
}

KaloStatus KALO_CALL KaloGetAmpUnitId(std::uint16_t kind, std::uint16_t subKind, std::uint16_t index,
                                      std::uint32_t* modelId, std::uint32_t* optionId) {
    enum : Status {
        kNotOpen = 0x2A000057,
        kNoSuchList = 0x2A000058,
        kNoRow = 0x2A000059,
        kNoId = 0x2A00005A,
    };
    if (!DatabaseIsOpen()) return kNotOpen;
    const char* statement = StatementOf(kListedUnits, kind, subKind);
    if (statement == nullptr) return kNoSuchList;
    return ReadRowAt(kNoRow, DaoBase(0x2B760000), statement, index, [&](Rows& row) -> Status {
        if (!row.Number("servo_id", *modelId) || !row.Number("option_id", *optionId)) return kNoId;
        return kOk;
    });
}

KaloStatus KALO_CALL KaloGetOptionUnitNum(std::uint32_t modelId, std::uint16_t* count) {
    enum : Status { kNotOpenOrFailed = 0x2BFF06C0 };
    if (!DatabaseIsOpen()) return kNotOpenOrFailed;
    return CountRows(DaoCode(kNotOpenOrFailed), OptionUnitsOf(modelId), count);
}

KaloStatus KALO_CALL KaloGetOptionUnitId(std::uint32_t modelId, std::uint16_t index,
                                         std::uint32_t* optionId) {
    enum : Status { kNotOpen = 0x2BFF06C0, kNoRow = 0x2BFF06C1, kFailed = 0x2BFF06C2 };
    if (!DatabaseIsOpen()) return kNotOpen;
    return ReadNumberAt({kNoRow, kOk, DaoCode(kFailed)}, OptionUnitsOf(modelId), index, "option_id",
                        optionId);
}
