#include <kalodata/catalogue.h>

#include "session/query_frame.h"

using namespace kalo;

KaloStatus KALO_CALL KaloMotorSpecStringCreate(std::int16_t /*axis*/) {
    enum : Status { kNotOpen = 0x2BFF0243, kNamesFailed = 0x2BFF0244, kUnitsFailed = 0x2BFF0245 };
    if (!DatabaseIsOpen()) return kNotOpen;
    const Status status = Run(
        DaoCode(kNamesFailed),
        "UPDATE [motor_specstring] INNER JOIN [FunctionStrings] ON [motor_specstring].[name_id] = "
        "[FunctionStrings].[string_id] SET [motor_specstring].[name_string] = [FunctionStrings].[string] ");
    if (status != kOk) return status;
    return Run(DaoCode(kUnitsFailed),
               "UPDATE [motor_specstring] INNER JOIN [unit] ON [motor_specstring].[unit_str_id] = "
               "[unit].[unit_str_id] SET [motor_specstring].[unit] = [unit].[unit], "
               "[motor_specstring].[unit_multiplier] = [unit].[unit_multiplier] ");
}
