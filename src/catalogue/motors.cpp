#include <kalodata/catalogue.h>

#include "catalogue/row_reading.h"

namespace kalo {
namespace {

constexpr std::uint16_t kEveryControlType = 65535;

// What the row of an axis says about its motor.
struct AxisMotor {
    std::int32_t motorId;
    std::int32_t modelId;
};

// Reads the axis's ids, and its encoder values into the record.
Status ReadAxisMotor(std::int16_t axis, AxisMotor& motor, KaloMotorInfo& info) {
    constexpr Status kBase = 0x2B650000;
    return ReadRow(NoCurrentRecord(kBase), DaoBase(kBase),
                   Sql("SELECT * FROM [tablemanager] WHERE axis_num = %d", axis), [&](Rows& row) {
                       motor.motorId = row.Value("motor_id");
                       motor.modelId = row.Value("servo_id");
                       info.encodor_ability = row.Value("encodor_ability");
                       row.Text("encodor_type", info.encodor_type);
                       info.eFirm_id = row.Value("eFirm_id");
                       return kOk;
                   });
}

// Reads the motor's name and, where the amplifier model has one, its help reference.
Status ReadMotorTexts(const AxisMotor& motor, KaloMotorInfo& info) {
    constexpr Status kBase = 0x2B660000;
    return Locked(DaoBase(kBase), [&] {
        Rows name(Sql("SELECT * FROM [motor] WHERE [motor_id] = %ld", motor.motorId));
        if (name.Empty()) return NoCurrentRecord(kBase);
        name.First();
        name.Text("motor_name", info.motor_name);
        Rows help(Sql("SELECT * FROM [motor_help] WHERE [model_id] = %ld", motor.modelId));
        if (help.Empty()) return kOk;
        help.First();
        help.Text("motor_help", info.motor_help);
        return kOk;
    });
}

}  // namespace
}  // namespace kalo

using namespace kalo;

KaloStatus KALO_CALL KaloGetMotorNumber(std::uint16_t controlType, std::uint16_t* count) {
    enum : Status { kNotOpen = 0x2A000030 };
    if (!DatabaseIsOpen()) return kNotOpen;
    const CString statement = controlType == kEveryControlType
                                  ? CString("SELECT COUNT (*) AS [Record] FROM [motor] WHERE [disp_flag] = 1")
                                  : Sql("SELECT COUNT (*) AS [Record] FROM [motor] WHERE [disp_flag] = 1 AND "
                                        "[sv_control_type] = %d",
                                        controlType);
    std::int32_t record = 0;
    const Status status =
        ReadRecordCount(DaoBase(0x2B5E0000), statement, NoCurrentRecord(0x2B5E0000), record);
    if (status == kOk) *count = static_cast<std::uint16_t>(record);
    return status;
}

KaloStatus KALO_CALL KaloGetMotorId(std::uint16_t controlType, std::uint16_t index, std::uint32_t* motorId) {
    enum : Status { kNotOpen = 0x2A000031, kNoRow = 0x2A000032, kNoId = 0x2A000073 };
    if (!DatabaseIsOpen()) return kNotOpen;
    const CString statement = controlType == kEveryControlType
                                  ? CString("SELECT * FROM [motor] WHERE [disp_flag] = 1 ORDER BY [motor_id]")
                                  : Sql("SELECT * FROM [motor] WHERE [disp_flag] = 1 AND [sv_control_type] = "
                                        "%d ORDER BY [motor_id]",
                                        controlType);
    return ReadNumberAt({kNoRow, kNoId, DaoBase(0x2B5F0000)}, statement, index, "motor_id", motorId);
}

KaloStatus KALO_CALL KaloGetMotorName(std::uint32_t motorId, char* name, std::uint16_t* createType) {
    enum : Status { kNotOpen = 0x2A00003F };
    if (!DatabaseIsOpen()) return kNotOpen;
    return ReadRow(NoCurrentRecord(0x2B670000), DaoBase(0x2B670000),
                   Sql("SELECT * FROM [motor] WHERE [motor_id] = %ld", motorId), [&](Rows& row) {
                       row.Text("motor_name", name, KALO_NAME_SIZE);
                       row.Number("create_type", *createType);
                       return kOk;
                   });
}

KaloStatus KALO_CALL KaloGetMotorInfo(std::int16_t axis, KaloMotorInfo* info) {
    enum : Status { kNotOpen = 0x2A00003E };
    if (!DatabaseIsOpen()) return kNotOpen;
    AxisMotor motor{};
    KaloMotorInfo found{};
    Status status = ReadAxisMotor(axis, motor, found);
    if (status == kOk) status = ReadMotorTexts(motor, found);
    if (status == kOk) *info = found;
    return status;
}

KaloStatus KALO_CALL KaloGetMotorVoltage(std::uint32_t voltageSymbolId, char* symbol) {
    enum : Status { kNotOpen = 0x2A00003B, kNoRow = 0x2A00003D };
    if (!DatabaseIsOpen()) return kNotOpen;
    return ReadText({kNoRow, kOk, DaoBase(0x2B640000)},
                    Sql("SELECT [voltage_symbol] FROM [motorvoltagesymbol] WHERE [voltage_symbol_id] = %ld",
                        voltageSymbolId),
                    "voltage_symbol", symbol, KALO_NAME_SIZE);
}

KaloStatus KALO_CALL KaloGetMotorPower(std::uint32_t motorId, std::uint32_t powerId, char* power) {
    enum : Status { kNotOpen = 0x2A000040 };
    if (!DatabaseIsOpen()) return kNotOpen;
    return ReadText(
        {NoCurrentRecord(0x2B690000), kOk, DaoBase(0x2B680000)},
        Sql("SELECT * FROM [motorspec] WHERE (motor_id = %ld AND power_id = %ld)", motorId, powerId),
        "power_name", power, KALO_NAME_SIZE);
}

KaloStatus KALO_CALL KaloGetMotorScaleInfo(std::uint32_t /*id*/, KaloMotorScaleInfo* info) {
    enum : Status { kNotOpen = 0x2BFF170E, kFailed = 0x2BFF170F };
    if (!DatabaseIsOpen()) return kNotOpen;
    return ReadRow(kFailed, DaoCode(kFailed), "SELECT * FROM [MotorScaleInfo] WHERE [id] = 1",
                   [&](Rows& row) {
                       KaloMotorScaleInfo found{};
                       found.start_adr = row.NumberOr("start_adr", found.start_adr);
                       found.byte_size = row.NumberOr("byte_size", found.byte_size);
                       found.sum_adr = row.NumberOr("sum_adr", found.sum_adr);
                       found.protect_adr = row.NumberOr("protect_adr", found.protect_adr);
                       found.protect_bit = row.NumberOr("protect_bit", found.protect_bit);
                       found.protect_val = row.NumberOr("protect_val", found.protect_val);
                       found.model_adr = row.NumberOr("model_adr", found.model_adr);
                       found.model_size = row.NumberOr("model_size", found.model_size);
                       *info = found;
                       return kOk;
                   });
}
