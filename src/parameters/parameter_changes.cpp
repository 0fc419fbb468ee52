#include <kalodata/parameters.h>

#include <algorithm>
#include <utility>

#include "merge/version_delta.h"

using namespace kalo;

namespace {

enum : Status { kNotOpen = 0x2BFF011A, kNoAxis = 0x2BFF011B, kNoIdentity = 0x2BFF011C, kFailed = 0x2BFF011D };

struct Fitted {
    std::int32_t servoId = 0;
    std::int32_t optionId = 0;
};

Status ReadFitted(std::int16_t axis, Fitted& fitted) {
    return Locked(DaoCode(kFailed), [&]() -> Status {
        Rows rows(Sql("SELECT * FROM [tablemanager] WHERE axis_num = %d", axis));
        if (rows.Empty()) return kNoAxis;
        rows.First();
        const bool known =
            rows.Number("servo_id", fitted.servoId) && rows.Number("option_id", fitted.optionId);
        return known ? kOk : kNoIdentity;
    });
}

// Sets `changed` when a query of delta rows has any.
Status FindRows(const CString& statement, std::uint16_t& changed) {
    return Locked(DaoCode(kFailed), [&] {
        if (!Rows(statement).Empty()) changed = 1;
        return kOk;
    });
}

// Changes of the model between two versions, whichever is the later.
Status CompareModel(std::int32_t servoId, std::uint32_t a, std::uint32_t b, std::uint16_t& changed) {
    if (a == b) return kOk;
    return FindRows(
        Sql("SELECT * FROM [FirmUpara] WHERE ([model_id] = %ld AND ([firm_id] > %ld AND [firm_id] <= %ld))",
            servoId, std::min(a, b), std::max(a, b)),
        changed);
}

Status CompareOption(const Fitted& fitted, std::uint32_t a, std::uint32_t b, std::uint16_t& changed) {
    if (a == b) return kOk;
    return FindRows(
        Sql("SELECT * FROM [FirmUpara] WHERE ([model_id] = %ld AND [option_id] = %ld AND ([firm_id] > %ld "
            "AND [firm_id] <= %ld))",
            fitted.servoId, fitted.optionId, std::min(a, b), std::max(a, b)),
        changed);
}

}  // namespace

KaloStatus KALO_CALL KaloGetUparaChangeInfo(std::int16_t axis, std::uint32_t versionA, std::uint32_t versionB,
                                            std::uint32_t optionVersionA, std::uint32_t optionVersionB,
                                            std::uint16_t* changed) {
    if (!DatabaseIsOpen()) return kNotOpen;
    *changed = 0;
    Fitted fitted;
    Status status = ReadFitted(axis, fitted);
    if (status == kOk) status = CompareModel(fitted.servoId, versionA, versionB, *changed);
    if (status != kOk || *changed != 0 || fitted.optionId == kNoOption) return status;
    return CompareOption(fitted, optionVersionA, optionVersionB, *changed);
}
