#include "catalogue/row_reading.h"

#include <kalodata/catalogue.h>

static_assert(sizeof(KaloMotorCapacity) == 68 && sizeof(KaloMotorVoltage) == 68 &&
              sizeof(KaloMotorPart) == 68);
static_assert(sizeof(KaloOptionInfo) == 72 && sizeof(KaloPGInfo) == 76 && sizeof(KaloMotorInfo) == 264);
static_assert(sizeof(KaloMotorScaleInfo) == 16 && sizeof(KaloServoVoltage) == 68 &&
              sizeof(KaloEncodor) == 68);

namespace kalo {

Status ReadText(const RowCodes& codes, const CString& statement, const char* column, char* text,
                std::size_t size) {
    return ReadRow(codes.noRow, codes.onDaoError, statement,
                   [&](Rows& row) { return row.Text(column, text, size) ? kOk : codes.isNull; });
}

Status ReadNumberAt(const RowCodes& codes, const CString& statement, std::uint16_t index, const char* column,
                    std::uint32_t* number) {
    return ReadRowAt(codes.noRow, codes.onDaoError, statement, index,
                     [&](Rows& row) { return row.Number(column, *number) ? kOk : codes.isNull; });
}

}  // namespace kalo
