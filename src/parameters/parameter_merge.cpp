#include "parameters/parameter_merge.h"

#include "merge/model_deltas.h"

namespace kalo {
namespace {

// A column that the merge copies. The modify of a custom specification writes some of them with the engine's
// other separator.
struct ParameterColumn {
    const char* name;
    const char* customSpecModify = "[CmodUPara].[%s]";
};

constexpr const char* kOtherSeparator = "[CmodUPara]![%s]";

constexpr ParameterColumn kColumns[] = {
    {"user_constant"},
    {"category_name_id"},
    {"parameter_name_id"},
    {"nibble_data_id"},
    {"dec_data_id"},
    {"decdata_num"},
    {"nonvolatile_address"},
    {"volatile_address"},
    {"size"},
    {"max"},
    {"min"},
    {"max_check"},
    {"min_check", kOtherSeparator},
    {"initial_value", kOtherSeparator},
    {"unit_str_id", kOtherSeparator},
    {"edit_type", kOtherSeparator},
    {"disp_type"},
    {"user_level"},
    {"control_mode"},
    {"access_level"},
    {"sv_control_type"},
    {"effective_timing"},
    {"fixed_id"},
    {"parameter_help"},
};

// change_type of a delta row.
constexpr int kModified = 1;
constexpr int kInserted = 2;
constexpr int kDeleted = 3;

// Delta rows of one step: the table, the id that matches Parameter_id, and a filter with one %d for the
// change type.
struct DeltaRows {
    const char* table;
    const char* id;
    CString filter;
};

CString DeltaColumn(const DeltaRows& delta, const ParameterColumn& column) {
    const bool customSpec = CString(delta.table) == "CmodUPara";
    return Sql(customSpec ? column.customSpecModify : "[FirmUPara].[%s]", column.name);
}

CString ModifyStatement(const CString& work, const DeltaRows& delta) {
    CString text = Sql("UPDATE [%s] INNER JOIN [%s] ON [%s].[Parameter_id] = [%s].[%s] SET ", work,
                       delta.table, work, delta.table, delta.id);
    const char* separator = "";
    for (const ParameterColumn& column : kColumns) {
        text += Sql("%s[%s].[%s] = %s", separator, work, column.name, DeltaColumn(delta, column));
        separator = ",";
    }
    text += Sql(" WHERE ([%s].[sv_control_type] = [%s].[sv_control_type] AND %s)", work, delta.table,
                Sql(delta.filter, kModified));
    return text;
}

CString InsertStatement(const CString& work, const DeltaRows& delta, const CString& furtherFilter) {
    CString text = Sql("INSERT INTO [%s] SELECT [%s].[%s] AS [Parameter_id]", work, delta.table, delta.id);
    for (const ParameterColumn& column : kColumns)
        text += Sql(",[%s].[%s]", delta.table, column.name);
    text += Sql(" FROM [%s] WHERE (%s%s)", delta.table, Sql(delta.filter, kInserted), furtherFilter);
    return text;
}

CString DeleteStatement(const CString& work, const DeltaRows& delta) {
    return Sql("DELETE * FROM [%s] WHERE [user_constant] = ANY (SELECT [user_constant] FROM [%s] WHERE (%s))",
               work, delta.table, Sql(delta.filter, kDeleted));
}

Status ApplyAll(const OnDaoError& onError, const CString& work, const DeltaRows& delta,
                const CString& insertFilter = {}) {
    Status status = Run(onError, ModifyStatement(work, delta));
    if (status == kOk) status = Run(onError, InsertStatement(work, delta, insertFilter));
    if (status == kOk) status = Run(onError, DeleteStatement(work, delta));
    return status;
}

DeltaRows FirmwareRows(std::int32_t bound, std::int32_t modelId, std::int32_t optionId) {
    return {"FirmUPara", "FirmUPara_id",
            "[FirmUPara].[change_type] = %d" +
                Sql(" AND [FirmUPara].[firm_id] <= %ld AND [FirmUPara].[model_id] = "
                    "%ld AND [FirmUPara].[option_id] = %ld",
                    bound, modelId, optionId)};
}

DeltaRows OptionsOwnRows(std::int32_t modelId, std::int32_t optionId) {
    return {"FirmUPara", "FirmUPara_id",
            "[FirmUPara].[change_type] = %d" +
                Sql(" AND [FirmUPara].[firm_id] = 0 AND [FirmUPara].[model_id] = %ld "
                    "AND [FirmUPara].[option_id] = %ld",
                    modelId, optionId)};
}

// modelType: 1 = a custom specification of the amplifier, 2 = of the option unit.
DeltaRows CustomSpecRows(std::int32_t customSpec, const BuildIdentity& identity, int modelType) {
    return {"CmodUPara", "cmodUPara_id",
            "[CmodUPara].[change_type] = %d" +
                Sql(" AND [CmodUPara].[cmod_id] = %ld AND [CmodUPara].[model_id] = %ld "
                    "AND [CmodUPara].[option_id] = %ld AND [CmodUPara].[model_type] = "
                    "%d",
                    customSpec, identity.servoId, identity.optionId, modelType)};
}

// Keeps a firmware from inserting what a custom specification of the drive inserts itself.
CString NotInsertedByCustomSpec(const BuildIdentity& identity) {
    if (!identity.HasOption()) {
        return Sql(
            " AND NOT EXISTS (SELECT * FROM [CmodUPara] WHERE ([cmodUPara_id] = [FirmUPara].[FirmUPara_id] "
            "AND "
            "[change_type] = 2 AND ([cmod_id] = %ld AND [model_id] = %ld AND [option_id] = 65533)))",
            identity.servoCustomSpec, identity.servoId);
    }
    return Sql(
        " AND NOT EXISTS (SELECT * FROM [CmodUPara] WHERE ([cmodUPara_id] = [FirmUPara].[FirmUPara_id] AND "
        "[change_type] = 2 AND (([cmod_id] = %ld AND [model_id] = %ld AND [option_id] = 65533) OR ([cmod_id] "
        "= "
        "%ld AND [model_id] = %ld AND [option_id] = %ld))))",
        identity.servoCustomSpec, identity.servoId, identity.optionCustomSpec, identity.servoId,
        identity.optionId);
}

Status MergeModelFirmware(const CString& work, const BuildIdentity& identity) {
    enum : Status { kNoCount = 0x2BFF0752, kNoNewest = 0x2BFF0753 };
    std::int32_t bound = 0;
    const Status status = ReadFirmwareBound(
        {Sql("SELECT COUNT (*) AS [Record] FROM [FirmUPara] WHERE [model_id] = %ld AND [option_id] = 65533",
             identity.servoId),
         Sql("SELECT * FROM [FirmUPara] WHERE [model_id] = %ld AND [option_id] = 65533 ORDER BY [firm_id]",
             identity.servoId),
         kNoCount, kNoNewest, DaoBase(0x2B080000)},
        identity.servoFirmware, bound);
    if (status != kOk || bound == 0) return status;
    return ApplyAll(DaoBase(0x2B090000), work, FirmwareRows(bound, identity.servoId, kNoOption),
                    NotInsertedByCustomSpec(identity));
}

Status MergeModelCustomSpec(const CString& work, const BuildIdentity& identity) {
    if (!IsCustomSpec(identity.servoCustomSpec)) return kOk;
    return ApplyAll(DaoBase(0x2B0A0000), work, CustomSpecRows(identity.servoCustomSpec, identity, 1));
}

// The option unit's own changes to its base model, at every version of its firmware.
Status MergeOptionsOwn(const CString& work, const BuildIdentity& identity) {
    return Run(DaoBase(0x2B0B0000),
               ModifyStatement(work, OptionsOwnRows(identity.servoId, identity.optionId)));
}

Status MergeOptionFirmware(const CString& work, const BuildIdentity& identity) {
    enum : Status { kNoCount = 0x2BFF0754, kNoNewest = 0x2BFF0755 };
    std::int32_t bound = 0;
    const Status status = ReadFirmwareBound(
        {Sql("SELECT COUNT (*) AS [Record] FROM [FirmUPara] WHERE [model_id] = %ld AND [option_id] = %ld ",
             identity.servoId, identity.optionId),
         Sql("SELECT * FROM [FirmUPara] WHERE [model_id] = %ld AND [option_id] = %ld ORDER BY [firm_id]",
             identity.servoId, identity.optionId),
         kNoCount, kNoNewest, DaoBase(0x2B0C0000)},
        identity.optionFirmware, bound);
    if (status != kOk || bound == 0) return status;
    return ApplyAll(DaoBase(0x2B0D0000), work, FirmwareRows(bound, identity.servoId, identity.optionId));
}

Status MergeOptionCustomSpec(const CString& work, const BuildIdentity& identity) {
    if (!IsCustomSpec(identity.optionCustomSpec)) return kOk;
    return ApplyAll(DaoBase(0x2B0E0000), work, CustomSpecRows(identity.optionCustomSpec, identity, 2));
}

}  // namespace

Status MergeParameters(const CString& scratch, const CString& modelName, const BuildIdentity& identity) {
    DropLeftover(scratch);
    Status status = Run(DaoBase(0x2B070000), Sql("SELECT * INTO [%s] FROM [%s_Upara]", scratch, modelName));
    if (status == kOk) status = MergeModelFirmware(scratch, identity);
    if (status == kOk) status = MergeModelCustomSpec(scratch, identity);
    if (status != kOk || !identity.HasOption()) return status;
    status = MergeOptionsOwn(scratch, identity);
    if (status == kOk) status = MergeOptionFirmware(scratch, identity);
    if (status == kOk) status = MergeOptionCustomSpec(scratch, identity);
    return status;
}

}  // namespace kalo
