#include <kalodata/catalogue.h>

#include "catalogue/row_reading.h"

namespace kalo {
namespace {

CString PowersOf(std::uint32_t modelId, std::uint32_t optionId) {
    return Sql("SELECT DISTINCT [power_id] FROM [servovoltage] WHERE [model_id] = %ld AND [option_id] = %ld",
               modelId, optionId);
}

}  // namespace
}  // namespace kalo

using namespace kalo;

KaloStatus KALO_CALL KaloGetServoPowerNum(std::uint32_t modelId, std::uint32_t optionId,
                                          std::uint16_t* count) {
    enum : Status { kNotOpen = 0x2A00004D };
    if (!DatabaseIsOpen()) return kNotOpen;
    return CountRows(DaoBase(0x2B720000), PowersOf(modelId, optionId), count);
}

KaloStatus KALO_CALL KaloGetServoPowerId(std::uint32_t modelId, std::uint32_t optionId, std::uint16_t index,
                                         std::uint32_t* powerId) {
    enum : Status { kNotOpen = 0x2A00004F, kNoRow = 0x2A000051, kNoId = 0x2A000052 };
    if (!DatabaseIsOpen()) return kNotOpen;
    return ReadNumberAt({kNoRow, kNoId, DaoBase(0x2B730000)}, PowersOf(modelId, optionId), index, "power_id",
                        powerId);
}

KaloStatus KALO_CALL KaloGetServoPower(std::uint32_t powerSymbolId, char* symbol) {
    enum : Status { kNotOpen = 0x2A00005B, kNoRow = 0x2A00005C };
    if (!DatabaseIsOpen()) return kNotOpen;
    return ReadText({kNoRow, kOk, DaoBase(0x2B770000)},
                    Sql("SELECT * FROM [PowerRateSymbol] WHERE [symbol_id] = %ld", powerSymbolId),
                    "prate_symbol", symbol, KALO_NAME_SIZE);
}

KaloStatus KALO_CALL KaloGetServovoltageNum(std::uint32_t modelId, std::uint32_t optionId,
                                            std::uint32_t powerId, std::uint16_t* count) {
    enum : Status { kNotOpen = 0x2BFF0197, kFailed = 0x2BFF0198 };
    if (!DatabaseIsOpen()) return kNotOpen;
    return CountRows(
        DaoCode(kFailed),
        Sql("SELECT * FROM [servovoltage] WHERE [model_id] = %ld AND [option_id] = %ld AND [power_id] = %ld",
            modelId, optionId, powerId),
        count);
}

KaloStatus KALO_CALL KaloGetServovoltageInfo(std::uint32_t modelId, std::uint32_t optionId,
                                             std::uint32_t powerId, std::uint16_t capacity,
                                             KaloServoVoltage* voltages) {
    enum : Status {
        kNotOpen = 0x2BFF0203,
        kNoRow = 0x2BFF0204,
        kNoVoltage = 0x2BFF0205,
        kFailed = 0x2BFF0206
    };
    if (!DatabaseIsOpen()) return kNotOpen;
    return ReadRows(kNoRow, DaoCode(kFailed),
                    Sql("SELECT * FROM [servovoltage] WHERE [model_id] = %ld AND [option_id] = %ld AND "
                        "[power_id] = %ld ORDER BY "
                        "[voltage]",
                        modelId, optionId, powerId),
                    capacity, voltages, [](Rows& row, KaloServoVoltage& voltage) -> Status {
                        if (!row.Read("voltage")) return kNoVoltage;
                        voltage.voltage = row.Value("voltage");
                        row.Text("voltage_str", voltage.voltage_str);
                        return kOk;
                    });
}

KaloStatus KALO_CALL KaloGetServoVoltage(std::uint32_t voltageSymbolId, char* symbol) {
    enum : Status { kNotOpen = 0x2A00005D, kNoRow = 0x2A00005E };
    if (!DatabaseIsOpen()) return kNotOpen;
    return ReadText({kNoRow, kOk, DaoBase(0x2B780000)},
                    Sql("SELECT * FROM [voltagesymbol] WHERE [voltage_symbol_id] = %ld", voltageSymbolId),
                    "voltage_symbol", symbol, KALO_NAME_SIZE);
}

KaloStatus KALO_CALL KaloGetServoCurrentInfo(std::uint32_t modelId, std::uint32_t optionId,
                                             std::uint32_t powerId, std::uint32_t voltage,
                                             std::uint32_t* current, std::uint32_t* maxCurrent) {
    enum : Status {
        kNotOpen = 0x2BFF1CFB,
        kFailed = 0x2BFF1CFC,
        kNoCurrent = 0x2BFF1CFD,
        kNoMaxCurrent = 0x2BFF1CFE,
        kNoRow = 0x2BFF1CFF,
    };
    if (!DatabaseIsOpen()) return kNotOpen;
    return ReadRow(
        kNoRow, DaoCode(kFailed),
        Sql("SELECT * FROM [servovoltage] WHERE [model_id] = %ld AND [option_id] = %ld AND [power_id] = "
            "%ld AND [voltage] = %ld",
            modelId, optionId, powerId, voltage),
        [&](Rows& row) -> Status {
            if (!row.Number("current", *current)) return kNoCurrent;
            if (!row.Number("max_current", *maxCurrent)) return kNoMaxCurrent;
            return kOk;
        });
}
