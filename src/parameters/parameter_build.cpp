#include <kalodata/parameters.h>

#include "parameters/parameter_merge.h"

using namespace kalo;

namespace {

// The three tables of a combination and the one in which it is built. The digit or the decimal table is empty
// text when the combination has none.
struct ParameterTables {
    explicit ParameterTables(const CString& combination)
        : scratch(TableName(combination, "TempUpara")),
          parameters(TableName(combination, "Upara")),
          digits(TableName(combination, "nibble")),
          decimals(TableName(combination, "dec")) {}

    CString scratch;
    CString parameters;
    CString digits;
    CString decimals;
};

// Makes a table that belongs to the parameters and drops it again when no row was copied.
Status CopyOrDrop(const OnDaoError& onError, const CString& statement, CString& table) {
    DropLeftover(table);
    long copied = 0;
    Status status = Run(onError, statement, &copied);
    if (status != kOk || copied != 0) return status;
    status = Run(onError, Sql("DROP TABLE [%s]", table));
    table.Empty();
    return status;
}

Status MakeDigits(ParameterTables& tables) {
    return CopyOrDrop(
        DaoBase(0x2B0F0000),
        Sql("SELECT * INTO [%s] FROM [nibble_ex] WHERE ([nibble_data_id] = ANY (SELECT [nibble_data_id] "
            "FROM [%s]))",
            tables.digits, tables.scratch),
        tables.digits);
}

Status MakeDecimals(ParameterTables& tables, std::int16_t countryId) {
    return CopyOrDrop(
        DaoBase(0x2B100000),
        Sql("SELECT * INTO [%s] FROM [decdata] WHERE ([dec_data_id] = ANY (SELECT [dec_data_id] FROM "
            "[%s]) AND [decdata].[country_id] = %d)",
            tables.decimals, tables.scratch, countryId),
        tables.decimals);
}

// A language without names: nothing of the build stays.
Status Abandon(const ParameterTables& tables, Status reason) {
    if (!tables.digits.IsEmpty()) DropLeftover(tables.digits);
    if (!tables.decimals.IsEmpty()) DropLeftover(tables.decimals);
    const Status status = Run(DaoBase(0x2B1A0000), Sql("DROP TABLE [%s]", tables.scratch));
    return status != kOk ? status : reason;
}

// Puts names into the scratch table by one statement; no row touched means that the language has none.
Status Name(const OnDaoError& onError, const char* statement, const ParameterTables& tables,
            std::int16_t countryId, Status noNames) {
    long named = 0;
    const Status status = Run(onError, SqlOnTable(statement, tables.scratch, {countryId}), &named);
    if (status != kOk || named != 0) return status;
    return Abandon(tables, noNames);
}

Status LocaliseCategories(const ParameterTables& tables, std::int16_t countryId) {
    enum : Status { kNoCategoryNames = 0x2A000005 };
    return Name(
        DaoBase(0x2B110000),
        "UPDATE [%s] INNER JOIN [paracategory] ON [%s].[category_name_id] = "
        "[paracategory].[category_name_id] "
        "SET [%s].[category_name] = [paracategory].[category_name] WHERE ([paracategory].[country_id] = %d)",
        tables, countryId, kNoCategoryNames);
}

Status LocaliseParameters(const ParameterTables& tables, std::int16_t countryId) {
    enum : Status { kNoParameterNames = 0x2A000006 };
    return Name(DaoBase(0x2B120000),
                "UPDATE [%s] INNER JOIN [paraname] ON [%s].[parameter_name_id] = [paraname].[name_id] SET "
                "[%s].[parameter_name] = [paraname].[parameter_name] WHERE ([paraname].[country_id] = %d)",
                tables, countryId, kNoParameterNames);
}

// Country 100 holds the units that all languages share.
Status LocaliseUnits(const CString& scratch, std::int16_t countryId) {
    return Run(
        DaoBase(0x2B130000),
        SqlOnTable(
            "UPDATE [%s] INNER JOIN [unit] ON [%s].[unit_str_id] = [unit].[unit_str_id] SET [%s].[unit] "
            "= [unit].[unit], [%s].[unit_multiplier] = [unit].[unit_multiplier],[%s].[unit_name] = "
            "[unit].[unit_name] WHERE ([unit].[country_id] = %d OR [unit].[country_id] = 100)",
            scratch, {countryId}));
}

Status ApplyPowerRating(const CString& scratch, const BuildIdentity& identity) {
    if (identity.powerRating == 0) return kOk;
    return Run(
        DaoBase(0x2B140000),
        SqlOnTable(
            "UPDATE [%s] INNER JOIN [powerrating] ON [%s].[user_constant] = "
            "[powerrating].[user_constant] SET [%s].[max] = [powerrating].[max], [%s].[min] = "
            "[powerrating].[min], [%s].[initial_value] = [powerrating].[initial_value], [%s].[max_check] "
            "= [powerrating].[max_check], [%s].[min_check] = [powerrating].[min_check] WHERE "
            "([powerrating].[powerrating_id] = %ld AND [powerrating].[model_id] = %ld)",
            scratch, {identity.powerRating, identity.servoId}));
}

// Replaces the ids of names by the category's own id.
Status ReplaceNameIds(const CString& scratch) {
    constexpr const char* kSetCategoryId =
        "UPDATE [%s] INNER JOIN [paracategory] ON [%s].[category_name_id] = "
        "[paracategory].[category_name_id] SET "
        "[%s].[category_id] = [paracategory].[category_id]";
    constexpr const char* kStatements[] = {
        "ALTER TABLE [%s] ADD COLUMN [category_id] LONG",  kSetCategoryId,
        "ALTER TABLE [%s] DROP COLUMN [category_name_id]", "ALTER TABLE [%s] DROP COLUMN [parameter_name_id]",
        "ALTER TABLE [%s] DROP COLUMN [unit_str_id]",
    };
    for (const char* statement : kStatements) {
        const Status status = Run(DaoBase(0x2B150000), SqlOnTable(statement, scratch));
        if (status != kOk) return status;
    }
    return kOk;
}

Status StoreInOrder(const ParameterTables& tables) {
    DropLeftover(tables.parameters);
    const Status status = Run(DaoBase(0x2B160000), Sql("SELECT * INTO [%s] FROM [%s] ORDER BY [Parameter_id]",
                                                       tables.parameters, tables.scratch));
    if (status != kOk) return status;
    return Run(DaoBase(0x2B160000), Sql("DROP TABLE [%s]", tables.scratch));
}

Status Build(ParameterTables& tables, const CString& modelName, std::int16_t countryId,
             const BuildIdentity& identity) {
    Status status = MergeParameters(tables.scratch, modelName, identity);
    if (status == kOk) status = MakeDigits(tables);
    if (status == kOk) status = MakeDecimals(tables, countryId);
    if (status == kOk) status = LocaliseCategories(tables, countryId);
    if (status == kOk) status = LocaliseParameters(tables, countryId);
    if (status == kOk) status = LocaliseUnits(tables.scratch, countryId);
    if (status == kOk) status = ApplyPowerRating(tables.scratch, identity);
    if (status == kOk) status = ReplaceNameIds(tables.scratch);
    if (status == kOk) status = StoreInOrder(tables);
    return status;
}

// Takes the names of a combination's tables from an axis that has them.
Status ShareTables(ParameterTables& tables) {
    enum : Status { kNoAxis = 0x2BFF0757 };
    return Locked(DaoBase(0x2B060000), [&tables]() -> Status {
        Rows rows(Sql("SELECT * FROM [tablemanager] WHERE [userparameter_table] = %c%s%c", kQuote,
                      tables.parameters, kQuote));
        if (rows.Empty()) return kNoAxis;
        rows.First();
        rows.Text("nibble_table", tables.digits);
        rows.Text("dec_table", tables.decimals);
        return kOk;
    });
}

Status Register(std::int16_t axis, const ParameterTables& tables) {
    const RegisteredTable registered[] = {{"userparameter_table", tables.parameters},
                                          {"nibble_table", tables.digits},
                                          {"dec_table", tables.decimals}};
    return RegisterTables(axis, registered,
                          {.noCount = 0x2BFF0758,
                           .noAxis = 0x2BFF0759,
                           .noUsers = 0x2BFF075A,
                           .onLookup = DaoBase(0x2B170000),
                           .onDrop = DaoBase(0x2B180000),
                           .onWrite = DaoBase(0x2B190000)});
}

Status BuildOrShare(std::int16_t countryId, const BuildIdentity& identity, std::int16_t axis) {
    enum : Status { kNoModel = 0x2BFF0750, kNoCount = 0x2BFF0751 };
    CString modelName;
    Status status = ReadModelName(identity, kNoModel, DaoBase(0x2B040000), modelName);
    if (status != kOk) return status;
    ParameterTables tables(CombinationName(modelName, identity));
    bool registered = false;
    status =
        IsRegistered("userparameter_table", tables.parameters, kNoCount, DaoBase(0x2B050000), registered);
    if (status != kOk) return status;
    status = registered ? ShareTables(tables) : Build(tables, modelName, countryId, identity);
    if (status != kOk) return status;
    return Register(axis, tables);
}

}  // namespace

KaloStatus KALO_CALL KaloUparaCreate(std::int16_t countryId, std::int32_t servoId, std::int32_t servoFirmware,
                                     std::int32_t servoCustomSpec, std::int32_t powerRating,
                                     std::int32_t optionId, std::int32_t optionFirmware,
                                     std::int32_t optionCustomSpec, std::int16_t axis) {
    enum : Status { kNotOpen = 0x2A000004 };
    if (!DatabaseIsOpen()) return kNotOpen;
    const Status status = IdentifyModelVariant(servoId, servoFirmware, DaoBase(0x2B030000));
    if (status != kOk) return status;
    return BuildOrShare(
        countryId,
        {servoId, servoFirmware, servoCustomSpec, powerRating, optionId, optionFirmware, optionCustomSpec},
        axis);
}
