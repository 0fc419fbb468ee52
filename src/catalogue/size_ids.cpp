#include <kalodata/catalogue.h>

#include "catalogue/row_reading.h"

using namespace kalo;

KaloStatus KALO_CALL KaloGetConvertID(std::uint16_t type, std::uint32_t sizeId, std::uint32_t* winId,
                                      std::uint32_t* winSubId) {
    enum : Status {
        kNotOpen = 0x2BFF1C8B,
        kFailed = 0x2BFF1C8C,
        kNoWinId = 0x2BFF1C8D,
        kNoWinSubId = 0x2BFF1C8E,
        kNoRow = 0x2BFF1C8F,
    };
    if (!DatabaseIsOpen()) return kNotOpen;
    return ReadRow(kNoRow, DaoCode(kFailed),
                   Sql("SELECT * FROM [tavrosizeID] WHERE [type] = %d AND [size_id] = %ld", type, sizeId),
                   [&](Rows& row) -> Status {
                       if (!row.Number("win_id", *winId)) return kNoWinId;
                       if (!row.Number("win_subid", *winSubId)) return kNoWinSubId;
                       return kOk;
                   });
}
