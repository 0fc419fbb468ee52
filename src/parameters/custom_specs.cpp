#include <kalodata/parameters.h>

#include "session/query_frame.h"

using namespace kalo;

static_assert(sizeof(KaloCustomSpecSummary) == 4);
static_assert(offsetof(KaloCustomSpecSummary, count) == 0);
static_assert(offsetof(KaloCustomSpecSummary, kinds) == 2);

namespace {

// model_type of a custom specification.
constexpr std::uint16_t kOfModel = 1;
constexpr std::uint16_t kOfOption = 2;

// The option unit's statement compares option_id with both ids.
CString CustomSpecStatement(std::int32_t modelId, std::uint32_t optionId, std::uint16_t which) {
    if (which == kOfModel) {
        return Sql(
            "SELECT DISTINCT [cmod_id] FROM [CmodUpara] WHERE [model_id] = %ld AND [option_id] = %ld AND "
            "[model_type] = %d ORDER BY [cmod_id]",
            modelId, optionId, kOfModel);
    }
    return Sql(
        "SELECT DISTINCT [cmod_id] FROM [CmodUpara] WHERE [option_id] = %ld  AND [option_id] = %ld AND "
        "[model_type] = %d ORDER BY [cmod_id]",
        modelId, optionId, kOfOption);
}

}  // namespace

KaloStatus KALO_CALL KaloGetUserCmodId(std::int32_t modelId, std::uint32_t optionId, std::uint16_t which,
                                       std::int16_t count, std::uint32_t* ids) {
    enum : Status { kNotOpen = 0x2A00006A, kNone = 0x2A00006B, kNoId = 0x2A00006C };
    if (!DatabaseIsOpen()) return kNotOpen;
    if (which != kOfModel && which != kOfOption) return kNone;
    return Locked(DaoBase(0x2B7F0000), [&]() -> Status {
        Rows rows(CustomSpecStatement(modelId, optionId, which));
        if (rows.Empty()) return kNone;
        rows.First();
        for (std::int16_t index = 0; index < count && !rows.AtEnd(); ++index) {
            if (!rows.Number("cmod_id", ids[index])) return kNoId;
            rows.Next();
        }
        return kOk;
    });
}

KaloStatus KALO_CALL KaloGetUserCmodNum(std::uint32_t modelId, std::uint32_t optionId,
                                        KaloCustomSpecSummary* summary) {
    enum : Status { kNotOpen = 0x2A00006D, kNoId = 0x2A00006E };
    if (!DatabaseIsOpen()) return kNotOpen;
    *summary = {};
    return Locked(DaoBase(0x2B800000), [&]() -> Status {
        Rows rows(
            Sql("SELECT DISTINCT [cmod_id], [model_type] FROM [CmodUPara] WHERE ([model_id] = %ld AND "
                "[model_type] = 1 AND [option_id] = %ld) ORDER BY [cmod_id]",
                modelId, optionId));
        for (; !rows.AtEnd(); rows.Next()) {
            if (!rows.Read("cmod_id")) return kNoId;
            ++summary->count;
            summary->kinds = static_cast<std::uint16_t>(summary->kinds | rows.Value("model_type"));
        }
        return kOk;
    });
}
