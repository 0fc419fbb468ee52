#include <kalodata/catalogue.h>

#include "catalogue/row_reading.h"

using namespace kalo;

KaloStatus KALO_CALL KaloGetWizardServoNum(std::uint16_t* count) {
    enum : Status { kNotOpen = 0x2BFF0599, kFailed = 0x2BFF059A };
    if (!DatabaseIsOpen()) return kNotOpen;
    return CountRows(DaoCode(kFailed), "SELECT * FROM [model] WHERE [wizard_flag] = 1", count);
}

KaloStatus KALO_CALL KaloGetWizardServoId(std::uint32_t* modelIds) {
    enum : Status { kNotOpen = 0x2BFF059C, kFailed = 0x2BFF059D, kNoRow = 0x2BFF06DA };
    if (!DatabaseIsOpen()) return kNotOpen;
    return Locked(DaoCode(kFailed), [&]() -> Status {
        Rows rows("SELECT * FROM [model] WHERE [wizard_flag] = 1 ORDER BY [servo_id],[option_id]");
        if (rows.Empty()) return kNoRow;
        // The caller's array is as long as the 16-bit count said.
        const auto count = static_cast<std::uint16_t>(rows.Count());
        rows.First();
        for (std::uint16_t i = 0; i < count; ++i, rows.Next())
            modelIds[i] = rows.Value("servo_id");
        return kOk;
    });
}

KaloStatus KALO_CALL KaloGetWizHelp(std::uint32_t /*value*/, std::uint32_t helpId, char* help) {
    enum : Status { kNotOpen = 0x2BFF0320, kNoRow = 0x2BFF0322, kFailed = 0x2BFF0323 };
    if (!DatabaseIsOpen()) return kNotOpen;
    return ReadText({kNoRow, kOk, DaoCode(kFailed)}, Sql("SELECT * FROM wizhelp WHERE [id] = %ld", helpId),
                    "helppath_string", help, KALO_HELP_SIZE);
}
