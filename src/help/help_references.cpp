#include <kalodata/help.h>

#include "session/query_frame.h"

namespace kalo {
namespace {

constexpr std::size_t kHelpSize = 128;

// The entry that holds for every model; as an axis number, no axis.
constexpr std::uint32_t kEveryModel = 65535;

struct HelpCodes {
    Status notOpen;
    Status noAxis;
    Status noHelp;
    Status axisFailed;
    Status helpFailed;
};

// Copies the reference of the first row, if it has one.
Status ReadHelpPath(Rows& rows, char* help) {
    rows.First();
    rows.Text("helppath", help, kHelpSize);
    return kOk;
}

// Finds a model's help, else that of every model. `statement` makes the help query for a model id.
template <class Statement>
Status ReadHelp(const HelpCodes& codes, std::uint32_t modelId, Statement&& statement, char* help) {
    return Locked(DaoCode(codes.helpFailed), [&]() -> Status {
        {
            Rows own(statement(modelId));
            if (!own.Empty()) return ReadHelpPath(own, help);
        }
        Rows common(statement(kEveryModel));
        return common.Empty() ? codes.noHelp : ReadHelpPath(common, help);
    });
}

Status FindModel(const HelpCodes& codes, std::int16_t axis, std::uint32_t& modelId) {
    AxisIdentity identity;
    const Status status = ReadAxisIdentity(axis, codes.noAxis, DaoCode(codes.axisFailed), identity);
    modelId = identity.servoId;
    return status;
}

template <class Statement>
Status ReadHelpOfAxis(const HelpCodes& codes, std::int16_t axis, Statement&& statement, char* help) {
    if (!DatabaseIsOpen()) return codes.notOpen;
    std::uint32_t modelId = 0;
    const Status status = FindModel(codes, axis, modelId);
    return status == kOk ? ReadHelp(codes, modelId, statement, help) : status;
}

}  // namespace
}  // namespace kalo

using namespace kalo;

KaloStatus KALO_CALL KaloGetAutotuningHelp(std::int16_t axis, char* help) {
    static constexpr HelpCodes kCodes = {.notOpen = 0x2BFF012C,
                                         .noAxis = 0x2BFF071A,
                                         .noHelp = 0x2BFF071A,
                                         .axisFailed = 0x2BFF012D,
                                         .helpFailed = 0x2BFF012E};
    return ReadHelpOfAxis(
        kCodes, axis,
        [](std::uint32_t modelId) {
            return Sql("SELECT * FROM [help] WHERE ( [model_id] = %ld AND [help_id] = 1)", modelId);
        },
        help);
}

KaloStatus KALO_CALL KaloGetInertiaHelp(std::int16_t axis, std::int32_t itemId, char* help) {
    static constexpr HelpCodes kCodes = {.notOpen = 0x2BFF012F,
                                         .noAxis = 0x2BFF071B,
                                         .noHelp = 0x2BFF071C,
                                         .axisFailed = 0x2BFF0130,
                                         .helpFailed = 0x2BFF0131};
    return ReadHelpOfAxis(
        kCodes, axis,
        [&](std::uint32_t modelId) {
            return Sql("SELECT * FROM [help] WHERE ([model_id] = %ld AND [id] = %ld AND [help_id] = 2)",
                       modelId, itemId);
        },
        help);
}

KaloStatus KALO_CALL KaloGetNctHelp(std::int16_t axis, char* help) {
    static constexpr HelpCodes kCodes = {.notOpen = 0x2BFF0132,
                                         .noAxis = 0x2BFF071D,
                                         .noHelp = 0x2BFF071E,
                                         .axisFailed = 0x2BFF0133,
                                         .helpFailed = 0x2BFF0134};
    return ReadHelpOfAxis(
        kCodes, axis,
        [](std::uint32_t modelId) {
            return Sql("SELECT * FROM [help] WHERE ( [model_id] = %ld AND [help_id] = 3)", modelId);
        },
        help);
}

KaloStatus KALO_CALL KaloGetCommonHelp(std::uint16_t axis, std::int32_t itemId, char* help) {
    static constexpr HelpCodes kCodes = {.notOpen = 0x2BFF0135,
                                         .noAxis = 0x2BFF071F,
                                         .noHelp = 0x2BFF0721,
                                         .axisFailed = 0x2BFF0136,
                                         .helpFailed = 0x2BFF0137};
    const auto statement = [&](std::uint32_t modelId) {
        return Sql("SELECT * FROM [help] WHERE ([model_id] = %ld AND [id] = %ld AND [help_id] = 4)", modelId,
                   itemId);
    };
    if (axis < kEveryModel) return ReadHelpOfAxis(kCodes, static_cast<std::int16_t>(axis), statement, help);
    if (!DatabaseIsOpen()) return kCodes.notOpen;
    return ReadHelp(kCodes, kEveryModel, statement, help);
}

KaloStatus KALO_CALL KaloGetMechanaHelp(std::int16_t axis, char* help) {
    static constexpr HelpCodes kCodes = {.notOpen = 0x2BFF0138,
                                         .noAxis = 0x2BFF0722,
                                         .noHelp = 0x2BFF0724,
                                         .axisFailed = 0x2BFF0139,
                                         .helpFailed = 0x2BFF013A};
    return ReadHelpOfAxis(
        kCodes, axis,
        [](std::uint32_t modelId) {
            return Sql("SELECT * FROM [help] WHERE ( [model_id] = %ld AND [help_id] = 5)", modelId);
        },
        help);
}

KaloStatus KALO_CALL KaloGetGaintuningHelp(std::int16_t axis, std::uint16_t itemId, char* help) {
    static constexpr HelpCodes kCodes = {.notOpen = 0x2BFF013B,
                                         .noAxis = 0x2BFF0725,
                                         .noHelp = 0x2BFF0148,
                                         .axisFailed = 0x2BFF013C,
                                         .helpFailed = 0x2BFF013D};
    if (!DatabaseIsOpen()) return kCodes.notOpen;
    std::uint32_t modelId = 0;
    const Status status = FindModel(kCodes, axis, modelId);
    if (status != kOk) return status;
    // Gains belong to one model: no help of every model stands in for its own.
    return Locked(DaoCode(kCodes.helpFailed), [&] {
        Rows rows(Sql("SELECT * FROM [help] WHERE ( [model_id] = %ld AND [id] = %d AND [help_id] = 6)",
                      modelId, itemId));
        return rows.Empty() ? kCodes.noHelp : ReadHelpPath(rows, help);
    });
}

KaloStatus KALO_CALL KaloGetGuidelineHelp(std::int16_t axis, std::uint32_t helpId, std::int32_t itemId,
                                          char* help) {
    static constexpr HelpCodes kCodes = {.notOpen = 0x2BFF180B,
                                         .noAxis = 0x2BFF1808,
                                         .noHelp = 0x2BFF180F,
                                         .axisFailed = 0x2BFF1809,
                                         .helpFailed = 0x2BFF180C};
    return ReadHelpOfAxis(
        kCodes, axis,
        [&](std::uint32_t modelId) {
            return Sql("SELECT * FROM [help] WHERE ( [model_id] = %ld AND [help_id] = %ld AND  [id] = %ld)",
                       modelId, helpId, itemId);
        },
        help);
}
