#include <kalodata/alarms.h>

#include "merge/builder.h"
#include "merge/model_deltas.h"

using namespace kalo;

namespace {

// Rows of the alarm table are matched by their alarm code.
constexpr ModelDeltaStatements kAlarmDeltas = {
    "SELECT COUNT (*) AS [Record] FROM [FirmDispAlarm] WHERE [model_id] = %ld",
    "SELECT * FROM [FirmDispAlarm] WHERE [model_id] = %ld ORDER BY [firm_id]",
    {
        "UPDATE [%s] INNER JOIN [FirmDispAlarm] ON [%s].[alarm_code] = [FirmDispAlarm].[alarm_code] SET "
        "[%s].[alarm_display] = [FirmDispAlarm].[alarm_display],[%s].[indexer_alarm_code] = "
        "[FirmDispAlarm].[indexer_alarm_code],[%s].[alarm_level] = [FirmDispAlarm].[alarm_level], "
        "[%s].[alarm_meaning_id] = [FirmDispAlarm].[alarm_meaning_id],[%s].[alarm_type] = "
        "[FirmDispAlarm].[alarm_type], [%s].[alarm_category_id] = [FirmDispAlarm].[alarm_category_id],"
        "[%s].[alarm_name_id] = [FirmDispAlarm].[alarm_name_id], [%s].[alo] = [FirmDispAlarm].[alo],"
        "[%s].[fixed_id] = [FirmDispAlarm].[fixed_id], [%s].[help_path] = [FirmDispAlarm].[help_path] WHERE "
        "([FirmDispAlarm].[change_type] = 1 AND [FirmDispAlarm].[firm_id] <= %ld AND "
        "[FirmDispAlarm].[model_id] = %ld)",
        "INSERT INTO [%s] SELECT [FirmDispAlarm].[alarm_code],[FirmDispAlarm].[indexer_alarm_code],"
        "[FirmDispAlarm].[alarm_display],[FirmDispAlarm].[alarm_type],[FirmDispAlarm].[alarm_level],"
        "[FirmDispAlarm].[alarm_category_id],[FirmDispAlarm].[alarm_name_id],"
        "[FirmDispAlarm].[alarm_meaning_id],[FirmDispAlarm].[alo],[FirmDispAlarm].[fixed_id],"
        "[FirmDispAlarm].[help_path] FROM [FirmDispAlarm] WHERE ([change_type] = 2 AND [firm_id] <= %ld AND "
        "[model_id] = %ld)",
        "DELETE * FROM [%s] WHERE [alarm_code] = ANY (SELECT [alarm_code] FROM [FirmDispAlarm] WHERE "
        "([FirmDispAlarm].[change_type] = 3 AND [FirmDispAlarm].[firm_id] <= %ld AND "
        "[FirmDispAlarm].[model_id] = %ld))",
    },
    {
        "UPDATE [%s] INNER JOIN [CmodDispAlarm] ON [%s].[alarm_code] = [CmodDispAlarm].[alarm_code] SET "
        "[%s].[alarm_display] = [CmodDispAlarm].[alarm_display],[%s].[indexer_alarm_code] = "
        "[CmodDispAlarm].[indexer_alarm_code],[%s].[alarm_level] = [CmodDispAlarm].[alarm_level], "
        "[%s].[alarm_meaning_id] = [CmodDispAlarm].[alarm_meaning_id],[%s].[alarm_type] = "
        "[CmodDispAlarm].[alarm_type], [%s].[alarm_category_id] = [CmodDispAlarm].[alarm_category_id],"
        "[%s].[alarm_name_id] = [CmodDispAlarm].[alarm_name_id], [%s].[alo] = [CmodDispAlarm].[alo],"
        "[%s].[fixed_id] = [CmodDispAlarm].[fixed_id], [%s].[help_path] = [CmodDispAlarm].[help_path] WHERE "
        "([CmodDispAlarm].[change_type] = 1 AND [CmodDispAlarm].[cmod_id] = %ld AND "
        "[CmodDispAlarm].[model_id] = %ld)",
        "INSERT INTO [%s] SELECT [CmodDispAlarm].[alarm_code],[CmodDispAlarm].[indexer_alarm_code],"
        "[CmodDispAlarm].[alarm_display],[CmodDispAlarm].[alarm_type],[CmodDispAlarm].[alarm_level],"
        "[CmodDispAlarm].[alarm_category_id],[CmodDispAlarm].[alarm_name_id],"
        "[CmodDispAlarm].[alarm_meaning_id],[CmodDispAlarm].[alo],[CmodDispAlarm].[fixed_id],"
        "[CmodDispAlarm].[help_path] FROM [CmodDispAlarm] WHERE ([change_type] = 2 AND [cmod_id] = %ld AND "
        "[model_id] = %ld)",
        "DELETE * FROM [%s] WHERE [alarm_code] = ANY (SELECT [alarm_code] FROM [CmodDispAlarm] WHERE "
        "([CmodDispAlarm].[change_type] = 3 AND [CmodDispAlarm].[cmod_id] = %ld AND "
        "[CmodDispAlarm].[model_id] = %ld))",
    },
};

// What the base version of an option unit changes.
constexpr const char* kOptionBaseChanges =
    "UPDATE [%s] INNER JOIN [FirmDispAlarm] ON [%s].[alarm_code] = [FirmDispAlarm].[alarm_code] SET "
    "[%s].[alarm_display] = [FirmDispAlarm].[alarm_display],[%s].[indexer_alarm_code] = "
    "[FirmDispAlarm].[indexer_alarm_code],[%s].[alarm_level] = [FirmDispAlarm].[alarm_level], "
    "[%s].[alarm_meaning_id] = [FirmDispAlarm].[alarm_meaning_id],[%s].[alarm_type] = "
    "[FirmDispAlarm].[alarm_type], [%s].[alarm_category_id] = [FirmDispAlarm].[alarm_category_id],"
    "[%s].[alarm_name_id] = [FirmDispAlarm].[alarm_name_id], [%s].[alo] = [FirmDispAlarm].[alo],"
    "[%s].[fixed_id] = [FirmDispAlarm].[fixed_id], [%s].[help_path] = [FirmDispAlarm].[help_path] WHERE "
    "([FirmDispAlarm].[change_type] = 1 AND [FirmDispAlarm].[firm_id] = 0 AND [FirmDispAlarm].[model_id] = "
    "%ld)";

constexpr ModelDeltaCodes kAmplifierCodes = {
    .noCount = 0x2BFF06E3,
    .noNewest = 0x2BFF06E4,
    .bound = DaoBase(0x2B2B0000),
    .firmware = DaoBase(0x2B2C0000),
    .customSpec = DaoBase(0x2B2D0000),
};

constexpr ModelDeltaCodes kOptionCodes = {
    .noCount = 0x2BFF06E5,
    .noNewest = 0x2BFF06E6,
    .bound = DaoBase(0x2B2F0000),
    .firmware = DaoBase(0x2B300000),
    .customSpec = DaoBase(0x2B310000),
};

// The step for the base version takes the rows of the model_id that equals the unit's firmware version, not
// its id; built tables depend on it. The unit's own rows come with the steps after it.
Status ApplyOption(const CString& table, const DeltaIdentity& identity) {
    const Status status =
        Run(DaoBase(0x2B2E0000), SqlOnTable(kOptionBaseChanges, table, {identity.optionFirmware}));
    if (status != kOk) return status;
    return ApplyModelDeltas(table, kAlarmDeltas, kOptionCodes,
                            ModelPass{identity.optionId, identity.optionFirmware, identity.optionCustomSpec});
}

Status ApplyAlarmDeltas(const CString& table, const DeltaIdentity& identity) {
    const Status status =
        ApplyModelDeltas(table, kAlarmDeltas, kAmplifierCodes,
                         ModelPass{identity.servoId, identity.servoFirmware, identity.servoCustomSpec});
    if (status != kOk || !identity.HasOption()) return status;
    return ApplyOption(table, identity);
}

// Gives the alarms their names; a table for which the language has none is dropped.
Status Localise(const CString& table, std::int32_t country) {
    constexpr Status kNoNames = 0x2A00000C;
    long affected = 0;
    Status status =
        Run(DaoBase(0x2B320000),
            SqlOnTable("UPDATE [%s] INNER JOIN [alarmname] ON [%s].[alarm_name_id] = "
                       "[alarmname].[alarm_name_id] SET [%s].[alarm_name] = [alarmname].[alarm_name] "
                       "WHERE ([alarmname].[country_id] = %d)",
                       table, {country}),
            &affected);
    if (status != kOk || affected != 0) return status;
    status = Run(DaoBase(0x2B330000), Sql("DROP TABLE [%s]", table));
    return status != kOk ? status : kNoNames;
}

// The alarms are put together in a build table, which is copied in display order and then dropped.
Status BuildAlarmTable(const CString& table, const CString& buildTable, const CString& modelName,
                       const DeltaIdentity& identity, std::int32_t country) {
    DropLeftover(buildTable);
    DropLeftover(table);
    Status status =
        Run(DaoBase(0x2B2A0000), Sql("SELECT * INTO [%s] FROM [%s_DispAl]", buildTable, modelName));
    if (status == kOk) status = ApplyAlarmDeltas(buildTable, identity);
    if (status == kOk) status = Localise(buildTable, country);
    if (status != kOk) return status;
    status = Run(DaoBase(0x2B340000),
                 Sql("SELECT * INTO [%s] FROM [%s] ORDER BY [alarm_display]", table, buildTable));
    if (status != kOk) return status;
    return Run(DaoBase(0x2B350000), Sql("DROP TABLE [%s]", buildTable));
}

Status BuildAndRegister(BuildIdentity identity, std::int32_t country, std::int16_t axis) {
    constexpr RegistrationCodes kRegistration = {
        .noCount = 0x2BFF06E7,
        .noAxis = 0x2BFF06E8,
        .noUsers = 0x2BFF06E9,
        .onLookup = DaoBase(0x2B360000),
        .onDrop = DaoBase(0x2B370000),
        .onWrite = DaoBase(0x2B380000),
    };
    CString modelName;
    Status status = IdentifyModelVariant(identity.servoId, identity.servoFirmware, DaoBase(0x2B270000));
    if (status == kOk) status = ReadModelName(identity, 0x2BFF06E1, DaoBase(0x2B280000), modelName);
    if (status != kOk) return status;
    const CString combination = CombinationName(modelName, identity);
    const RegisteredTable tables[] = {{"dispalarm_table", TableName(combination, "DispAl")}};
    bool exists = false;
    status = IsRegistered(tables[0].column, tables[0].table, 0x2BFF06E2, DaoBase(0x2B290000), exists);
    if (status == kOk && !exists) {
        status = BuildAlarmTable(tables[0].table, TableName(combination, "TempDispAl"), modelName,
                                 identity.Deltas(), country);
    }
    if (status != kOk) return status;
    return RegisterTables(axis, tables, kRegistration);
}

}  // namespace

KaloStatus KALO_CALL KaloAlarmCreate(std::uint16_t country_id, std::int32_t servo_id,
                                     std::int32_t sFirm_version, std::int32_t sCmod_version,
                                     std::int32_t prate, std::int32_t option_id, std::int32_t oFirm_version,
                                     std::int32_t oCmod_version, std::int16_t axis_num) {
    constexpr Status kNotOpen = 0x2A00000B;
    if (!DatabaseIsOpen()) return kNotOpen;
    return BuildAndRegister(
        {servo_id, sFirm_version, sCmod_version, prate, option_id, oFirm_version, oCmod_version}, country_id,
        axis_num);
}
