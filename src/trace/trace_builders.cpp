#include <kalodata/traces.h>

#include "merge/builder.h"

using namespace kalo;

namespace {

// What the analog and the I/O trace builders differ in, apart from the choice of base rows and the
// localisation.
struct TraceTable {
    const char* column;     // of the axis's row
    const char* kind;       // end of the table's name
    const char* buildName;  // of the table that is being built
    const char* baseTable;
    const char* finalCopy;  // final table from build table, in stored order
    DeltaTables deltas;
    Status mergeBase;  // code base of the copy and the deltas
    OnDaoError onVariant;
    OnDaoError onModelName;
    Status noModel;
    Status noReuseCount;
    OnDaoError onReuse;
    OnDaoError onFinalCopy;
    OnDaoError onDropBuild;
    RegistrationCodes registration;
};

constexpr Status kNotOpen = 0x2A000009;
constexpr Status kNoSpecVersion = 0x2BFF1261;
constexpr Status kSpecVersionFailed = 0x2BFF1262;

constexpr MergeColumn kAnalogColumns[] = {
    {ColumnKind::Data, "analog_id"},       {ColumnKind::Key, "target_name_id"},
    {ColumnKind::Data, "target_name"},     {ColumnKind::Data, "index"},
    {ColumnKind::Data, "bitindex"},        {ColumnKind::Data, "display_flag"},
    {ColumnKind::Data, "unit_str_id"},     {ColumnKind::Data, "unit"},
    {ColumnKind::Data, "unit_multiplier"}, {ColumnKind::Data, "unit_name"},
    {ColumnKind::Data, "conversion_type"}, {ColumnKind::Data, "limit"},
    {ColumnKind::Data, "max_level"},       {ColumnKind::Data, "min_level"},
    {ColumnKind::Data, "default_flag"},    {ColumnKind::Data, "spec_version"},
    {ColumnKind::Key, "target"},           {ColumnKind::Data, "order"},
    {ColumnKind::Data, "access_level"},    {ColumnKind::Key, "sv_control_type"},
    {ColumnKind::Data, "support"},
};

constexpr MergeColumn kIoColumns[] = {
    {ColumnKind::Data, "io_name"},      {ColumnKind::Data, "value"},
    {ColumnKind::Data, "reverse"},      {ColumnKind::Data, "default_flag"},
    {ColumnKind::Key, "io_id"},         {ColumnKind::Data, "spec_version"},
    {ColumnKind::Data, "index"},        {ColumnKind::Data, "bitindex"},
    {ColumnKind::Key, "target"},        {ColumnKind::Data, "order"},
    {ColumnKind::Data, "access_level"}, {ColumnKind::Data, "sv_control_type"},
    {ColumnKind::Data, "support"},
};

constexpr TraceTable kAnalogTrace = {
    .column = "analogtrace_table",
    .kind = "analogtrace",
    .buildName = "%s_anatemp",
    .baseTable = "analogtrace",
    .finalCopy = "SELECT * INTO [%s] FROM [%s] ORDER BY [analog_id]",
    .deltas = {"firmanalogtrace", "cmodanalogtrace", kAnalogColumns},
    .mergeBase = 0x2BFF1510,
    .onVariant = DaoCode(0x2BFF000A),
    .onModelName = DaoCode(0x2BFF000B),
    .noModel = 0x2BFF06EA,
    .noReuseCount = 0x2BFF06EB,
    .onReuse = DaoCode(0x2BFF06EC),
    .onFinalCopy = DaoCode(0x2BFF0012),
    .onDropBuild = DaoCode(0x2BFF0013),
    .registration = {.noCount = 0x2BFF06EE,
                     .noAxis = 0x2BFF06EF,
                     .noUsers = 0x2BFF06F1,
                     .onLookup = DaoCode(0x2BFF06ED),
                     .onDrop = DaoCode(0x2BFF06F3),
                     .onWrite = DaoCode(0x2BFF06F4)},
};

constexpr TraceTable kIoTrace = {
    .column = "iotrace_table",
    .kind = "iotrace",
    .buildName = "%s_iotemp",
    .baseTable = "iotrace",
    .finalCopy = "SELECT * INTO [%s] FROM [%s] ORDER BY [io_id]",
    .deltas = {"firmiotrace", "cmodiotrace", kIoColumns},
    .mergeBase = 0x2BFF1520,
    .onVariant = DaoCode(0x2BFF0768),
    .onModelName = DaoCode(0x2BFF0769),
    .noModel = 0x2BFF076A,
    .noReuseCount = 0x2BFF076B,
    .onReuse = DaoCode(0x2BFF076C),
    .onFinalCopy = DaoCode(0x2BFF0774),
    .onDropBuild = DaoCode(0x2BFF0775),
    .registration = {.noCount = 0x2BFF076E,
                     .noAxis = 0x2BFF076F,
                     .noUsers = 0x2BFF0771,
                     .onLookup = DaoCode(0x2BFF076D),
                     .onDrop = DaoCode(0x2BFF0772),
                     .onWrite = DaoCode(0x2BFF0773)},
};

// The newest spec version of a base table that is not above the wanted one.
Status ResolveSpecVersion(const char* baseTable, std::int16_t wanted, std::int32_t& specVersion) {
    return Locked(DaoCode(kSpecVersionFailed), [&]() -> Status {
        Rows rows(Sql("SELECT * FROM [%s] WHERE spec_version <= %ld ORDER BY spec_version DESC", baseTable,
                      wanted));
        if (rows.Empty()) return kNoSpecVersion;
        specVersion = rows.Value("spec_version");
        return kOk;
    });
}

// One localising statement; when it touches no row the build table is dropped and `noText` returned.
Status Localise(const CString& buildTable, const char* statement, std::int32_t countryId, Status noText,
                const OnDaoError& onError, const OnDaoError& onDrop) {
    long affected = 0;
    const Status status = Run(onError, SqlOnTable(statement, buildTable, {countryId}), &affected);
    if (status != kOk || affected != 0) return status;
    const Status dropped = Run(onDrop, Sql("DROP TABLE [%s]", buildTable));
    return dropped != kOk ? dropped : noText;
}

Status LocaliseAnalogTrace(const CString& buildTable, std::int32_t countryId) {
    enum : Status {
        kNamesFailed = 0x2BFF000C,
        kNoNames = 0x2BFF000D,
        kDropAfterNamesFailed = 0x2BFF000E,
        kUnitsFailed = 0x2BFF000F,
        kNoUnits = 0x2BFF0010,
        kDropAfterUnitsFailed = 0x2BFF0011
    };
    const Status named = Localise(
        buildTable,
        "UPDATE [%s] INNER JOIN [analogtracename] ON [%s].[target_name_id] = "
        "[analogtracename].[target_name_id] SET "
        "[%s].[target_name] = [analogtracename].[target_name] WHERE ([analogtracename].[country_id] = %d)",
        countryId, kNoNames, DaoCode(kNamesFailed), DaoCode(kDropAfterNamesFailed));
    if (named != kOk) return named;
    return Localise(
        buildTable,
        "UPDATE [%s] INNER JOIN [unit] ON [%s].[unit_str_id] = [unit].[unit_str_id] SET [%s].[unit] = "
        "[unit].[unit], [%s].[unit_multiplier] = [unit].[unit_multiplier],[%s].[unit_name] = "
        "[unit].[unit_name] "
        "WHERE ([unit].[country_id] = %d OR [unit].[country_id] = 100)",
        countryId, kNoUnits, DaoCode(kUnitsFailed), DaoCode(kDropAfterUnitsFailed));
}

// Builds `finalTable` by way of `buildTable`: base rows, deltas, texts, stored order.
template <class BaseRows, class Texts>
Status Build(const TraceTable& trace, const BuildIdentity& identity, std::int16_t wantedSpecVersion,
             const CString& buildTable, const CString& finalTable, BaseRows baseRows, Texts texts) {
    std::int32_t specVersion = 0;
    Status status = ResolveSpecVersion(trace.baseTable, wantedSpecVersion, specVersion);
    if (status != kOk) return status;
    DropLeftover(buildTable);
    DropLeftover(finalTable);
    status =
        Run(DaoCode(trace.mergeBase + kBaseCopyFailed).AndLeaveLock(), baseRows(buildTable, specVersion));
    if (status != kOk) return status;
    status = ApplyDeltas(buildTable, trace.deltas, identity.Deltas(), trace.mergeBase);
    if (status != kOk) return status;
    status = texts(buildTable);
    if (status != kOk) return status;
    status = Run(trace.onFinalCopy, Sql(trace.finalCopy, finalTable, buildTable));
    if (status != kOk) return status;
    return Run(trace.onDropBuild, Sql("DROP TABLE [%s]", buildTable));
}

// Finds the combination's table built, or builds it, and registers it for the axis.
template <class BaseRows, class Texts>
Status CreateTraceTable(const TraceTable& trace, BuildIdentity identity, std::int16_t axis,
                        std::int16_t specVersion, BaseRows baseRows, Texts texts) {
    if (!DatabaseIsOpen()) return kNotOpen;
    Status status = IdentifyModelVariant(identity.servoId, identity.servoFirmware, trace.onVariant);
    if (status != kOk) return status;
    CString modelName;
    status = ReadModelName(identity, trace.noModel, trace.onModelName, modelName);
    if (status != kOk) return status;
    const CString combination = CombinationNameWithoutPower(modelName, identity);
    const CString table = TableName(combination, trace.kind);
    bool registered = false;
    status = IsRegistered(trace.column, table, trace.noReuseCount, trace.onReuse, registered);
    if (status != kOk) return status;
    if (!registered) {
        status = Build(
            trace, identity, specVersion, Sql(trace.buildName, combination), table,
            [&](const CString& buildTable, std::int32_t resolved) {
                return baseRows(buildTable, resolved, identity);
            },
            texts);
        if (status != kOk) return status;
    }
    const RegisteredTable entry[] = {{trace.column, table}};
    return RegisterTables(axis, entry, trace.registration);
}

}  // namespace

KaloStatus KALO_CALL KaloAnalogtraceCreate(std::int32_t countryId, std::int32_t servoId,
                                           std::int32_t servoFirmware, std::int32_t servoCustomSpec,
                                           std::int32_t optionId, std::int32_t optionFirmware,
                                           std::int32_t optionCustomSpec, std::int16_t axis,
                                           std::int16_t specVersion, std::int32_t /*reserved*/) {
    const BuildIdentity identity{servoId,  servoFirmware,  servoCustomSpec, 0,
                                 optionId, optionFirmware, optionCustomSpec};
    return CreateTraceTable(
        kAnalogTrace, identity, axis, specVersion,
        [](const CString& buildTable, std::int32_t resolved, const BuildIdentity& built) {
            return Sql(
                "SELECT * INTO [%s] FROM [analogtrace] WHERE spec_version = %ld AND (sv_control_type = 0) "
                "AND "
                "(servo_id = %ld) AND (option_id = %ld)",
                buildTable, resolved, built.servoId, built.optionId);
        },
        [countryId](const CString& buildTable) { return LocaliseAnalogTrace(buildTable, countryId); });
}

KaloStatus KALO_CALL KaloIotraceCreate(std::int32_t servoId, std::int32_t servoFirmware,
                                       std::int32_t servoCustomSpec, std::int32_t optionId,
                                       std::int32_t optionFirmware, std::int32_t optionCustomSpec,
                                       std::int16_t axis, std::int16_t specVersion,
                                       std::int16_t controlType) {
    const BuildIdentity identity{servoId,  servoFirmware,  servoCustomSpec, 0,
                                 optionId, optionFirmware, optionCustomSpec};
    return CreateTraceTable(
        kIoTrace, identity, axis, specVersion,
        [controlType](const CString& buildTable, std::int32_t resolved, const BuildIdentity& built) {
            return Sql(
                "SELECT * INTO [%s] FROM [iotrace] WHERE spec_version = %ld AND (sv_control_type = 0 OR "
                "sv_control_type = %d) AND (servo_id = %ld) AND (option_id = %ld)",
                buildTable, resolved, controlType, built.servoId, built.optionId);
        },
        [](const CString&) { return kOk; });
}
