#include <kalodata/help.h>

#include "session/query_frame.h"

namespace kalo {
namespace {

constexpr std::size_t kHelpSize = 128;

// The entry that holds for every model; as an axis number, no axis.
constexpr std::uint32_t kEveryModel = 65535;

// What one kind of screen asks, and what its function answers.
struct Screen {
    const char* statement;  // takes the model id, then the items
    bool hasHelpOfEveryModel;
    Status notOpen;
    Status noAxis;
    Status noHelp;
    Status axisFailed;
    Status helpFailed;
};

// Which page of the screen, for screens that have several.
struct Items {
    std::uint32_t first = 0;
    std::uint32_t second = 0;
};

// Copies a model's reference, if there is one and it is not NULL. False when the model has no entry.
bool CopyReference(const Screen& screen, std::uint32_t modelId, const Items& items, char* help) {
    Rows rows(Sql(screen.statement, modelId, items.first, items.second));
    if (rows.Empty()) return false;
    rows.First();
    rows.Text("helppath", help, kHelpSize);
    return true;
}

// The reference of the model, else that of every model.
Status ReadHelp(const Screen& screen, std::uint32_t modelId, const Items& items, char* help) {
    return Locked(DaoCode(screen.helpFailed), [&] {
        if (CopyReference(screen, modelId, items, help)) return kOk;
        if (screen.hasHelpOfEveryModel && CopyReference(screen, kEveryModel, items, help)) return kOk;
        return screen.noHelp;
    });
}

Status ReadHelpOfAxis(const Screen& screen, std::int16_t axis, const Items& items, char* help) {
    if (!DatabaseIsOpen()) return screen.notOpen;
    AxisIdentity identity;
    const Status status = ReadAxisIdentity(axis, screen.noAxis, DaoCode(screen.axisFailed), identity);
    return status == kOk ? ReadHelp(screen, identity.servoId, items, help) : status;
}

}  // namespace
}  // namespace kalo

using namespace kalo;

KaloStatus KALO_CALL KaloGetAutotuningHelp(std::int16_t axis, char* help) {
    static constexpr Screen kScreen = {
        .statement = "SELECT * FROM [help] WHERE ( [model_id] = %ld AND [help_id] = 1)",
        .hasHelpOfEveryModel = true,
        .notOpen = 0x2BFF012C,
        .noAxis = 0x2BFF071A,
        .noHelp = 0x2BFF071A,
        .axisFailed = 0x2BFF012D,
        .helpFailed = 0x2BFF012E,
    };
    return ReadHelpOfAxis(kScreen, axis, {}, help);
}

KaloStatus KALO_CALL KaloGetInertiaHelp(std::int16_t axis, std::int32_t itemId, char* help) {
    static constexpr Screen kScreen = {
        .statement = "SELECT * FROM [help] WHERE ([model_id] = %ld AND [id] = %ld AND [help_id] = 2)",
        .hasHelpOfEveryModel = true,
        .notOpen = 0x2BFF012F,
        .noAxis = 0x2BFF071B,
        .noHelp = 0x2BFF071C,
        .axisFailed = 0x2BFF0130,
        .helpFailed = 0x2BFF0131,
    };
    return ReadHelpOfAxis(kScreen, axis, {static_cast<std::uint32_t>(itemId)}, help);
}

KaloStatus KALO_CALL KaloGetNctHelp(std::int16_t axis, char* help) {
    static constexpr Screen kScreen = {
        .statement = "SELECT * FROM [help] WHERE ( [model_id] = %ld AND [help_id] = 3)",
        .hasHelpOfEveryModel = true,
        .notOpen = 0x2BFF0132,
        .noAxis = 0x2BFF071D,
        .noHelp = 0x2BFF071E,
        .axisFailed = 0x2BFF0133,
        .helpFailed = 0x2BFF0134,
    };
    return ReadHelpOfAxis(kScreen, axis, {}, help);
}

KaloStatus KALO_CALL KaloGetCommonHelp(std::uint16_t axis, std::int32_t itemId, char* help) {
    static constexpr Screen kScreen = {
        .statement = "SELECT * FROM [help] WHERE ([model_id] = %ld AND [id] = %ld AND [help_id] = 4)",
        .hasHelpOfEveryModel = true,
        .notOpen = 0x2BFF0135,
        .noAxis = 0x2BFF071F,
        .noHelp = 0x2BFF0721,
        .axisFailed = 0x2BFF0136,
        .helpFailed = 0x2BFF0137,
    };
    const Items items{static_cast<std::uint32_t>(itemId)};
    if (axis < kEveryModel) return ReadHelpOfAxis(kScreen, static_cast<std::int16_t>(axis), items, help);
    if (!DatabaseIsOpen()) return kScreen.notOpen;
    return ReadHelp(kScreen, kEveryModel, items, help);
}

KaloStatus KALO_CALL KaloGetMechanaHelp(std::int16_t axis, char* help) {
    static constexpr Screen kScreen = {
        .statement = "SELECT * FROM [help] WHERE ( [model_id] = %ld AND [help_id] = 5)",
        .hasHelpOfEveryModel = true,
        .notOpen = 0x2BFF0138,
        .noAxis = 0x2BFF0722,
        .noHelp = 0x2BFF0724,
        .axisFailed = 0x2BFF0139,
        .helpFailed = 0x2BFF013A,
    };
    return ReadHelpOfAxis(kScreen, axis, {}, help);
}

KaloStatus KALO_CALL KaloGetGaintuningHelp(std::int16_t axis, std::uint16_t itemId, char* help) {
    static constexpr Screen kScreen = {
        .statement = "SELECT * FROM [help] WHERE ( [model_id] = %ld AND [id] = %d AND [help_id] = 6)",
        .hasHelpOfEveryModel = false,  // gains belong to one model
        .notOpen = 0x2BFF013B,
        .noAxis = 0x2BFF0725,
        .noHelp = 0x2BFF0148,
        .axisFailed = 0x2BFF013C,
        .helpFailed = 0x2BFF013D,
    };
    return ReadHelpOfAxis(kScreen, axis, {itemId}, help);
}

KaloStatus KALO_CALL KaloGetGuidelineHelp(std::int16_t axis, std::uint32_t helpId, std::int32_t itemId,
                                          char* help) {
    static constexpr Screen kScreen = {
        .statement = "SELECT * FROM [help] WHERE ( [model_id] = %ld AND [help_id] = %ld AND  [id] = %ld)",
        .hasHelpOfEveryModel = true,
        .notOpen = 0x2BFF180B,
        .noAxis = 0x2BFF1808,
        .noHelp = 0x2BFF180F,
        .axisFailed = 0x2BFF1809,
        .helpFailed = 0x2BFF180C,
    };
    return ReadHelpOfAxis(kScreen, axis, {helpId, static_cast<std::uint32_t>(itemId)}, help);
}
