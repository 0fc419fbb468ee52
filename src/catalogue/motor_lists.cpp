#include <kalodata/catalogue.h>

#include "catalogue/row_reading.h"

namespace kalo {
namespace {

// The kinds of the voltage, linear and direct-drive lists.
enum : std::uint16_t { kFirstKind = 1, kSecondKind = 2 };

// The statements of a list of two kinds; null for any other kind.
struct ByKind {
    const char* first;
    const char* second;

    const char* Statement(std::uint16_t kind) const {
        if (kind == kFirstKind) return first;
        return kind == kSecondKind ? second : nullptr;
    }
};

struct MotorCountCodes {
    Status notOpen;
    Status noSuchKind;
    Status failed;
};

// Counts a motor's voltages or parts. `partId` is the power, magnet or torque id, where the statement asks
// for it.
Status CountOfMotor(const MotorCountCodes& codes, const ByKind& statements, std::uint16_t kind,
                    std::uint32_t motorId, std::uint32_t partId, std::uint16_t* count) {
    if (!DatabaseIsOpen()) return codes.notOpen;
    const char* statement = statements.Statement(kind);
    if (statement == nullptr) return codes.noSuchKind;
    return CountRows(DaoCode(codes.failed), Sql(statement, motorId, partId), count);
}

struct MotorPartCodes {
    Status notOpen;
    Status failed;
    Status noSuchKind;
    Status noId;
    Status noRow;
};

// Lists a motor's parts: the columns ID and NAME of each row, no more than `counted` gives.
Status ListParts(const MotorPartCodes& codes, const ByKind& statements, const ByKind& counted,
                 std::uint16_t kind, std::uint32_t motorId, std::uint32_t partId, std::uint16_t capacity,
                 KaloMotorPart* parts) {
    if (!DatabaseIsOpen()) return codes.notOpen;
    const char* statement = statements.Statement(kind);
    if (statement == nullptr) return codes.noSuchKind;
    return ReadCountedRows(codes.noRow, DaoCode(codes.failed), Sql(statement, motorId, partId),
                           Sql(counted.Statement(kind), motorId, partId), capacity, parts,
                           [&](Rows& row, KaloMotorPart& part) {
                               if (!row.Read("ID")) return codes.noId;
                               part.id = row.Value("ID");
                               row.Text("NAME", part.name);
                               return kOk;
                           });
}

// What the count getters count.

CString PowersOf(std::uint32_t motorId) {
    return Sql("SELECT DISTINCT [power_id] FROM [motorspec] WHERE [motor_id] = %ld", motorId);
}

CString OptionsOf(std::uint32_t motorId) {
    return Sql("SELECT * FROM [optioninfo] WHERE [motor_id] = %ld", motorId);
}

CString EncodersOf(std::uint32_t motorId) {
    return Sql("SELECT * FROM [pginfo] WHERE [motor_id] = %ld", motorId);
}

constexpr ByKind kCountedVoltages = {
    "SELECT * FROM [motorspec] WHERE [motor_id] = %ld AND [power_id] = %ld",
    "SELECT DISTINCT [voltage] FROM [motorspec] WHERE [motor_id] = %ld AND [magnet_id] = %ld"};

constexpr ByKind kCountedLinearParts = {
    "SELECT DISTINCT magnet_id FROM [motorspec] WHERE [motor_id] = %ld",
    "SELECT * FROM [motorspec] WHERE [motor_id] = %ld AND [magnet_id] = %ld"};

constexpr ByKind kCountedDirectDriveParts = {
    "SELECT DISTINCT torque_id FROM [motorspec] WHERE [motor_id] = %ld",
    "SELECT * FROM [motorspec] WHERE [motor_id] = %ld AND [torque_id] = %ld"};

}  // namespace
}  // namespace kalo

using namespace kalo;

KaloStatus KALO_CALL KaloGetMotorCapacityNum(std::uint32_t motorId, std::uint16_t* count) {
    enum : Status { kNotOpen = 0x2BFF0227, kFailed = 0x2BFF0232 };
    if (!DatabaseIsOpen()) return kNotOpen;
    return CountRows(DaoCode(kFailed), PowersOf(motorId), count);
}

KaloStatus KALO_CALL KaloGetMotorCapacityInfo(std::uint32_t motorId, std::uint16_t capacity,
                                              KaloMotorCapacity* capacities) {
    enum : Status { kNotOpen = 0x2BFF0239, kNoRow = 0x2BFF0240, kNoId = 0x2BFF0241, kFailed = 0x2BFF0242 };
    if (!DatabaseIsOpen()) return kNotOpen;
    return ReadCountedRows(
        kNoRow, DaoCode(kFailed),
        Sql("SELECT DISTINCT power_id, power_name FROM [motorspec] WHERE [motor_id] = %ld ORDER "
            "BY [power_id]",
            motorId),
        PowersOf(motorId), capacity, capacities, [](Rows& row, KaloMotorCapacity& power) -> Status {
            if (!row.Read("power_id")) return kNoId;
            power.power_id = row.Value("power_id");
            row.Text("power_name", power.power_name);
            return kOk;
        });
}

KaloStatus KALO_CALL KaloGetMotorPowerVoltageNum(std::uint32_t motorId, std::uint16_t kind,
                                                 std::uint32_t powerOrMagnetId, std::uint16_t* count) {
    return CountOfMotor({.notOpen = 0x2BFF0211, .noSuchKind = 0x2BFF0215, .failed = 0x2BFF0216},
                        kCountedVoltages, kind, motorId, powerOrMagnetId, count);
}

KaloStatus KALO_CALL KaloGetMotorPowerVoltageInfo(std::uint32_t motorId, std::uint16_t kind,
                                                  std::uint32_t powerOrMagnetId, std::uint16_t capacity,
                                                  KaloMotorVoltage* voltages) {
    enum : Status {
        kNotOpen = 0x2BFF0223,
        kNoSuchKind = 0x2BFF0224,
        kNoRow = 0x2BFF0225,
        kFailed = 0x2BFF0226
    };
    static constexpr ByKind kStatements = {
        "SELECT DISTINCT [motorspec].voltage, [motorvoltagesymbol].voltage_string FROM [motorspec] LEFT JOIN "
        "[motorvoltagesymbol] ON [motorspec].[voltage] = [motorvoltagesymbol].[voltage_symbol_id] WHERE "
        "[motorspec].[motor_id] = %ld AND [motorspec].[power_id] = %ld ",
        "SELECT DISTINCT [motorspec].voltage, [motorvoltagesymbol].voltage_string FROM [motorspec] LEFT JOIN "
        "[motorvoltagesymbol] ON [motorspec].[voltage] = [motorvoltagesymbol].[voltage_symbol_id] WHERE "
        "[motorspec].[motor_id] = %ld AND [motorspec].[magnet_id] = %ld "};
    if (!DatabaseIsOpen()) return kNotOpen;
    const char* statement = kStatements.Statement(kind);
    if (statement == nullptr) return kNoSuchKind;
    return ReadCountedRows(kNoRow, DaoCode(kFailed), Sql(statement, motorId, powerOrMagnetId),
                           Sql(kCountedVoltages.Statement(kind), motorId, powerOrMagnetId), capacity,
                           voltages, [](Rows& row, KaloMotorVoltage& voltage) {
                               voltage.voltage = row.Value("voltage");
                               row.Text("voltage_string", voltage.voltage_string);
                               return kOk;
                           });
}

KaloStatus KALO_CALL KaloGetMotorLinearInfoNum(std::uint32_t motorId, std::uint16_t kind,
                                               std::uint32_t magnetId, std::uint16_t* count) {
    return CountOfMotor({.notOpen = 0x2BFF1C6B, .noSuchKind = 0x2BFF1C6D, .failed = 0x2BFF1C6C},
                        kCountedLinearParts, kind, motorId, magnetId, count);
}

KaloStatus KALO_CALL KaloGetMotorLinearInfo(std::uint32_t motorId, std::uint16_t kind, std::uint32_t magnetId,
                                            std::uint16_t capacity, KaloMotorPart* parts) {
    return ListParts(
        {.notOpen = 0x2BFF1C7B,
         .failed = 0x2BFF1C7C,
         .noSuchKind = 0x2BFF1C7D,
         .noId = 0x2BFF1C7E,
         .noRow = 0x2BFF1C7F},
        {"SELECT DISTINCT magnet_id AS [ID], magnet_name AS [NAME] FROM [motorspec] WHERE [motor_id] = "
         "%ld ORDER BY [magnet_id]",
         "SELECT coil_id AS [ID], coil_name AS [NAME] FROM [motorspec] WHERE [motor_id] = %ld AND "
         "[magnet_id] = %ld ORDER BY [coil_id]"},
        kCountedLinearParts, kind, motorId, magnetId, capacity, parts);
}

KaloStatus KALO_CALL KaloGetMotorDDInfoNum(std::uint32_t motorId, std::uint16_t kind, std::uint32_t torqueId,
                                           std::uint16_t* count) {
    return CountOfMotor({.notOpen = 0x2BFF1CDB, .noSuchKind = 0x2BFF1CDD, .failed = 0x2BFF1CDC},
                        kCountedDirectDriveParts, kind, motorId, torqueId, count);
}

KaloStatus KALO_CALL KaloGetMotorDDInfo(std::uint32_t motorId, std::uint16_t kind, std::uint32_t torqueId,
                                        std::uint16_t capacity, KaloMotorPart* parts) {
    return ListParts(
        {.notOpen = 0x2BFF1CEB,
         .failed = 0x2BFF1CEC,
         .noSuchKind = 0x2BFF1CED,
         .noId = 0x2BFF1CEE,
         .noRow = 0x2BFF1CEF},
        {"SELECT DISTINCT torque_id AS [ID], torque_name AS [NAME] FROM [motorspec] WHERE [motor_id] = "
         "%ld ORDER BY [torque_id]",
         "SELECT ext_size_id AS [ID], ext_size_name AS [NAME] FROM [motorspec] WHERE [motor_id] = %ld "
         "AND [torque_id] = %ld ORDER BY [ext_size_id]"},
        kCountedDirectDriveParts, kind, motorId, torqueId, capacity, parts);
}

KaloStatus KALO_CALL KaloGetOptionInfoNum(std::uint32_t motorId, std::uint16_t* count) {
    enum : Status { kNotOpen = 0x2BFF0269, kFailed = 0x2BFF0270 };
    if (!DatabaseIsOpen()) return kNotOpen;
    return CountRows(DaoCode(kFailed), OptionsOf(motorId), count);
}

KaloStatus KALO_CALL KaloGetOptionInfo(std::uint32_t motorId, std::uint16_t capacity,
                                       KaloOptionInfo* options) {
    enum : Status { kNotOpen = 0x2BFF0275, kNoRow = 0x2BFF0276, kNoId = 0x2BFF0277, kFailed = 0x2BFF0278 };
    if (!DatabaseIsOpen()) return kNotOpen;
    return ReadCountedRows(
        kNoRow, DaoCode(kFailed),
        Sql("SELECT * FROM [optioninfo] INNER JOIN [FunctionStrings] ON [optioninfo].[name_id] = "
            "[FunctionStrings].[string_id] WHERE [motor_id] = %ld ORDER BY [option_id]",
            motorId),
        OptionsOf(motorId), capacity, options, [](Rows& row, KaloOptionInfo& option) -> Status {
            if (!row.Read("option_id")) return kNoId;
            option.option_id = row.Value("option_id");
            row.Text("string", option.string);
            option.brake = row.NumberOr("break", option.brake);
            option.oilseal = row.NumberOr("oilseal", option.oilseal);
            return kOk;
        });
}

KaloStatus KALO_CALL KaloGetPGInfoNum(std::uint32_t motorId, std::uint16_t* count) {
    enum : Status { kNotOpen = 0x2BFF0256, kFailed = 0x2BFF0257 };
    if (!DatabaseIsOpen()) return kNotOpen;
    return CountRows(DaoCode(kFailed), EncodersOf(motorId), count);
}

KaloStatus KALO_CALL KaloGetPGInfo(std::uint32_t motorId, std::uint16_t capacity, KaloPGInfo* encoders) {
    enum : Status { kNotOpen = 0x2BFF0262, kNoRow = 0x2BFF0263, kNoId = 0x2BFF0264, kFailed = 0x2BFF0265 };
    if (!DatabaseIsOpen()) return kNotOpen;
    return ReadCountedRows(kNoRow, DaoCode(kFailed),
                           Sql("SELECT * FROM [pginfo] INNER JOIN [FunctionStrings] ON [pginfo].[name_id] = "
                               "[FunctionStrings].[string_id] WHERE [motor_id] = %ld ORDER BY [pg_id]",
                               motorId),
                           EncodersOf(motorId), capacity, encoders,
                           [](Rows& row, KaloPGInfo& encoder) -> Status {
                               if (!row.Read("pg_id")) return kNoId;
                               encoder.pg_id = row.Value("pg_id");
                               row.Text("string", encoder.string);
                               encoder.resolution = row.Value("resolution");
                               encoder.type = row.NumberOr("type", encoder.type);
                               encoder.sign = row.NumberOr("sign", encoder.sign);
                               return kOk;
                           });
}
