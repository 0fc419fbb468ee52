#include "session/encoder.h"

namespace kalo {
namespace {

// In all of these, every %s is the temporary table.
constexpr const char* kCopy = "SELECT * INTO [%s] FROM [encodor]";
constexpr const char* kModify =
    "UPDATE [%s] INNER JOIN [Firmencodor] ON ([%s].[motor_id] = [Firmencodor].[motor_id]) AND "
    "([%s].[encodor_id] = "
    "[Firmencodor].[encodor_id]) SET [%s].[encodor_ability] = "
    "[Firmencodor].[encodor_ability],[%s].[encodor_type] = "
    "[Firmencodor].[encodor_type],[%s].[encodor_help] = [Firmencodor].[encodor_help] WHERE "
    "([FirmEncodor].[change_type] = 1 AND [FirmEncodor].[firm_id] <= %ld AND [FirmEncodor].[motor_id] = %ld)";
constexpr const char* kInsert =
    "INSERT INTO [%s] SELECT "
    "[Firmencodor].[encodor_id],[Firmencodor].[motor_id],[Firmencodor].[encodor_ability], "
    "[Firmencodor].[encodor_type],[Firmencodor].[encodor_help] FROM [Firmencodor] WHERE ([change_type] = 2 "
    "AND "
    "[firm_id] <= %ld AND [motor_id] = %ld) ";
constexpr const char* kDelete =
    "DELETE * FROM [%s] WHERE ([encodor_id] = ANY (SELECT [encodor_id] FROM [Firmencodor] WHERE "
    "([Firmencodor].[change_type] = 3 AND [Firmencodor].[firm_id] <= %ld AND [Firmencodor].[motor_id] = "
    "%ld))) AND "
    "([motor_id] = %ld)";
constexpr const char* kRead = "SELECT * FROM [%s] WHERE ([encodor_id] = %ld AND [motor_id] = %ld)";

Status ReadEncoder(const CString& table, const EncoderKey& key, const OnDaoError& onError, Encoder& encoder) {
    return Locked(onError, [&] {
        Rows rows(SqlOnTable(kRead, table, {key.encoderId, key.motorId}));
        if (rows.Empty()) return kOk;
        rows.First();
        encoder.ability = rows.Value("encodor_ability");
        CString type;
        if (rows.Text("encodor_type", type)) encoder.type = type;
        return kOk;
    });
}

// The copy of the encoder table with the firmware's changes to this motor's encoders.
Status MakeTemporaryTable(const CString& table, const EncoderKey& key, const EncoderErrors& errors) {
    DropLeftover(table);
    Status status = Run(errors.copy, SqlOnTable(kCopy, table));
    if (status == kOk) status = Run(errors.modify, SqlOnTable(kModify, table, {key.firmware, key.motorId}));
    if (status == kOk) status = Run(errors.insert, SqlOnTable(kInsert, table, {key.firmware, key.motorId}));
    if (status == kOk) {
        status = Run(errors.remove, SqlOnTable(kDelete, table, {key.firmware, key.motorId, key.motorId}));
    }
    return status;
}

}  // namespace

Status ResolveEncoder(const EncoderKey& key, const char* temporaryTable, const EncoderErrors& errors,
                      Encoder& encoder) {
    encoder = Encoder();
    if (key.firmware == kNoEncoderFirmware) return ReadEncoder("encodor", key, errors.readDirectly, encoder);
    Status status = MakeTemporaryTable(temporaryTable, key, errors);
    if (status == kOk) status = ReadEncoder(temporaryTable, key, errors.read, encoder);
    if (status == kOk) status = Run(errors.drop, Sql("DROP TABLE [%s]", temporaryTable));
    return status;
}

}  // namespace kalo
