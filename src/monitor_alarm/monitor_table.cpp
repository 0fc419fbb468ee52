#include <kalodata/monitors.h>

#include "io/io_table.h"
#include "merge/builder.h"
#include "merge/model_deltas.h"

using namespace kalo;

namespace {

// Rows of the monitor table are matched by their monitor id.
constexpr ModelDeltaStatements kMonitorDeltas = {
    "SELECT COUNT (*) AS [Record] FROM [FirmMon] WHERE [model_id] = %ld",
    "SELECT * FROM [FirmMon] WHERE [model_id] = %ld ORDER BY [firm_id]",
    {
        "UPDATE [%s] INNER JOIN [FirmMon] ON [%s].[monitor_id] = [FirmMon].[monitor_id] SET "
        "[%s].[user_constant] = [FirmMon].[user_constant],[%s].[category_name_id] = "
        "[FirmMon].[category_name_id],[%s].[monitor_name_id] = [FirmMon].[monitor_name_id],"
        "[%s].[display_type] = [FirmMon].[display_type],[%s].[on_content_id] = [FirmMon].[on_content_id],"
        "[%s].[off_content_id] = [FirmMon].[off_content_id],[%s].[unit_str_id] = [FirmMon].[unit_str_id],"
        "[%s].[size] = [FirmMon].[size],[%s].[bit_position] = [FirmMon].[bit_position],[%s].[address] = "
        "[FirmMon].[address],[%s].[access_level] = [FirmMon].[access_level],[%s].[sv_control_type] = "
        "[FirmMon].[sv_control_type],[%s].[fixed_id] = [FirmMon].[fixed_id],[%s].[parameter_help] = "
        "[FirmMon].[parameter_help] WHERE ([FirmMon].[change_type] = 1 AND [FirmMon].[firm_id] <= %ld AND "
        "[FirmMon].[model_id] = %ld)",
        "INSERT INTO [%s] SELECT [FirmMon].[monitor_id],[FirmMon].[user_constant],"
        "[FirmMon].[category_name_id],[FirmMon].[monitor_name_id],[FirmMon].[display_type],"
        "[FirmMon].[on_content_id],[FirmMon].[off_content_id],[FirmMon].[unit_str_id],[FirmMon].[size],"
        "[FirmMon].[bit_position],[FirmMon].[address],[FirmMon].[access_level],[FirmMon].[sv_control_type],"
        "[FirmMon].[fixed_id],[FirmMon].[parameter_help] FROM [FirmMon] WHERE ([change_type] = 2 AND "
        "[firm_id] <= %ld AND [model_id] = %ld)",
        "DELETE * FROM [%s] WHERE [monitor_id] = ANY (SELECT [monitor_id] FROM [FirmMon] WHERE "
        "([FirmMon].[change_type] = 3 AND [FirmMon].[firm_id] <= %ld AND [FirmMon].[model_id] = %ld))",
    },
    {
        "UPDATE [%s] INNER JOIN [CmodMon] ON [%s].[monitor_id] = [CmodMon].[monitor_id] SET "
        "[%s].[user_constant] = [CmodMon].[user_constant],[%s].[category_name_id] = "
        "[CmodMon].[category_name_id],[%s].[monitor_name_id] = [CmodMon].[monitor_name_id],"
        "[%s].[display_type] = [CmodMon].[display_type],[%s].[on_content_id] = [CmodMon].[on_content_id],"
        "[%s].[off_content_id] = [CmodMon].[off_content_id],[%s].[unit_str_id] = [CmodMon].[unit_str_id],"
        "[%s].[size] = [CmodMon].[size],[%s].[bit_position] = [CmodMon].[bit_position],[%s].[address] = "
        "[CmodMon].[address],[%s].[access_level] = [CmodMon].[access_level],[%s].[sv_control_type] = "
        "[CmodMon].[sv_control_type],[%s].[fixed_id] = [CmodMon].[fixed_id],[%s].[parameter_help] = "
        "[CmodMon].[parameter_help] WHERE ([CmodMon].[change_type] = 1 AND [CmodMon].[Cmod_id] = %ld AND "
        "[CmodMon].[model_id] = %ld)",
        "INSERT INTO [%s] SELECT [CmodMon].[monitor_id],[CmodMon].[user_constant],"
        "[CmodMon].[category_name_id],[CmodMon].[monitor_name_id],[CmodMon].[display_type],"
        "[CmodMon].[on_content_id],[CmodMon].[off_content_id],[CmodMon].[unit_str_id],[CmodMon].[size],"
        "[CmodMon].[bit_position],[CmodMon].[address],[CmodMon].[access_level],[CmodMon].[sv_control_type],"
        "[CmodMon].[fixed_id],[CmodMon].[parameter_help] FROM [CmodMon] WHERE ([change_type] = 2 AND "
        "[Cmod_id] = %ld AND [model_id] = %ld)",
        "DELETE * FROM [%s] WHERE [monitor_id] = ANY (SELECT [monitor_id] FROM [CmodMon] WHERE "
        "([CmodMon].[change_type] = 3 AND [CmodMon].[Cmod_id] = %ld AND [CmodMon].[model_id] = %ld))",
    },
};

constexpr ModelDeltaCodes kMonitorCodes = {
    .noCount = 0x2BFF0809,
    .noNewest = 0x2BFF080A,
    .bound = DaoBase(0x2BA40000),
    .firmware = DaoBase(0x2BA50000),
    .customSpec = DaoBase(0x2BA60000),
};

// One kind of text that a new monitor table gets in the session's language. A language in which the
// statements of a kind together find no row has no texts of that kind.
struct TextStep {
    Status noText;
    const char* statement;
    const char* secondStatement;
};

constexpr TextStep kTextSteps[] = {
    {0x2A000076,
     "UPDATE [%s] INNER JOIN [moncategory] ON [%s].[category_name_id] = [moncategory].[category_name_id] SET "
     "[%s].[category_name] = [moncategory].[category_name] WHERE ([moncategory].[country_id] = %d)",
     nullptr},
    {0x2A000077,
     "UPDATE [%s] INNER JOIN [monname] ON [%s].[monitor_name_id] = [monname].[mon_name_id] SET "
     "[%s].[monitor_name] = [monname].[monitor_name] WHERE ([monname].[country_id] = %d)",
     nullptr},
    {0x2A000078,
     "UPDATE [%s] INNER JOIN [monbit] ON [%s].[on_content_id] = [monbit].[onoff_content_id] SET "
     "[%s].[on_content] = [monbit].[onoff_content] WHERE ([monbit].[country_id] = %d)",
     "UPDATE [%s] INNER JOIN [monbit] ON [%s].[off_content_id] = [monbit].[onoff_content_id] SET "
     "[%s].[off_content] = [monbit].[onoff_content] WHERE ([monbit].[country_id] = %d)"},
    {0x2A000079,
     "UPDATE [%s] INNER JOIN [unit] ON [%s].[unit_str_id] = [unit].[unit_str_id] SET [%s].[unit] = "
     "[unit].[unit], "
     "[%s].[unit_multiplier] = [unit].[unit_multiplier],[%s].[unit_name] = [unit].[unit_name] WHERE "
     "([unit].[country_id] = %d OR [unit].[country_id] = 100)",
     nullptr},
};

Status RunTextStep(const CString& table, std::int32_t country, const TextStep& step, long& affected) {
    constexpr OnDaoError kOnError = DaoBase(0x2BA70000);
    long second = 0;
    Status status = Run(kOnError, SqlOnTable(step.statement, table, {country}), &affected);
    if (status == kOk && step.secondStatement != nullptr) {
        status = Run(kOnError, SqlOnTable(step.secondStatement, table, {country}), &second);
    }
    affected += second;
    return status;
}

// A table without texts of some kind is dropped, so that the next call builds it again.
Status Localise(const CString& table, std::int32_t country) {
    for (const TextStep& step : kTextSteps) {
        long affected = 0;
        Status status = RunTextStep(table, country, step, affected);
        if (status != kOk) return status;
        if (affected != 0) continue;
        status = Run(DaoBase(0x2BA80000), Sql("DROP TABLE [%s]", table));
        return status != kOk ? status : step.noText;
    }
    return kOk;
}

Status BuildMonitorTable(const CString& table, const CString& modelName, const DeltaIdentity& identity,
                         std::int32_t country) {
    DropLeftover(table);
    Status status = Run(DaoBase(0x2BA30000), Sql("SELECT * INTO [%s] FROM [%s_Mon]", table, modelName));
    if (status == kOk) status = ApplyModelDeltas(table, kMonitorDeltas, kMonitorCodes, identity);
    if (status == kOk) status = Localise(table, country);
    return status;
}

// Builds what no axis has registered yet.
Status BuildMissing(const RegisteredTable& monitors, const RegisteredTable& io, const CString& modelName,
                    const DeltaIdentity& identity, std::int32_t country) {
    constexpr OnDaoError kOnError = DaoBase(0x2BA20000);
    bool monitorsExist = false;
    bool ioExists = false;
    Status status = IsRegistered(monitors.column, monitors.table, 0x2BFF0807, kOnError, monitorsExist);
    if (status == kOk) status = IsRegistered(io.column, io.table, 0x2BFF0808, kOnError, ioExists);
    if (status == kOk && !monitorsExist) {
        status = BuildMonitorTable(monitors.table, modelName, identity, country);
    }
    if (status == kOk && !ioExists) status = BuildIoTable(io.table, modelName, identity);
    return status;
}

Status BuildAndRegister(BuildIdentity identity, std::int32_t country, std::int16_t axis) {
    constexpr RegistrationCodes kRegistration = {
        .noCount = 0x2BFF080D,
        .noAxis = 0x2BFF080E,
        .noUsers = 0x2BFF080F,
        .onLookup = DaoBase(0x2BAD0000),
        .onDrop = DaoBase(0x2BAE0000),
        .onWrite = DaoBase(0x2BAF0000),
    };
    CString modelName;
    Status status = IdentifyModelVariant(identity.servoId, identity.servoFirmware, DaoBase(0x2BA00000));
    if (status == kOk) status = ReadModelName(identity, 0x2BFF0806, DaoBase(0x2BA10000), modelName);
    if (status != kOk) return status;
    const CString combination = CombinationName(modelName, identity);
    const RegisteredTable tables[] = {{"monitor_table", TableName(combination, "Mon")},
                                      {"io_table", TableName(combination, "Io")}};
    status = BuildMissing(tables[0], tables[1], modelName, identity.Deltas(), country);
    if (status != kOk) return status;
    return RegisterTables(axis, tables, kRegistration);
}

}  // namespace

KaloStatus KALO_CALL KaloMonCreate(std::int32_t country_id, std::int32_t servo_id, std::int32_t sFirm_version,
                                   std::int32_t sCmod_version, std::int32_t prate, std::int32_t option_id,
                                   std::int32_t oFirm_version, std::int32_t oCmod_version,
                                   std::int16_t axis_num) {
    constexpr Status kNotOpen = 0x2A000075;
    if (!DatabaseIsOpen()) return kNotOpen;
    return BuildAndRegister(
        {servo_id, sFirm_version, sCmod_version, prate, option_id, oFirm_version, oCmod_version}, country_id,
        axis_num);
}
