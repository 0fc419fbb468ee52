#include "merge/version_delta.h"

#include <algorithm>

namespace kalo {
namespace {

// The statements of one kind of delta table. W is the working table, D the delta table.
struct DeltaStatements {
    const char* modifyFilter;   // D four times, servo, option, version
    const char* insertFilter;   // D, servo, option, version
    const char* deleteByKey;    // W, key, key, D, then D four times with version, servo, option
    const char* deleteByModel;  // W, W, D, W, D, then D four times with version, servo, option
    Status modifyFailed;
    Status insertFailed;
    Status deleteFailed;
};

constexpr DeltaStatements kFirmwareStatements = {
    " WHERE ([%s].[change_type] = 1 AND [%s].[servo_id] = %ld AND [%s].[option_id] = %ld AND [%s].[firm_id] "
    "<= %ld)",
    " FROM [%s] WHERE ([servo_id] = %ld AND [option_id] = %ld AND [change_type] = 2 AND [firm_id] <= %ld ) ",
    "DELETE * FROM [%s] WHERE [%s] = ANY (SELECT [%s] FROM [%s] WHERE ([%s].[change_type] = 3 AND "
    "[%s].[firm_id] <= "
    "%ld AND [%s].[servo_id] = %ld AND [%s].[option_id] = %ld))",
    "DELETE [%s].* FROM [%s] INNER JOIN [%s] ON [%s].[servo_id] = [%s].[servo_id] WHERE ([%s].[change_type] "
    "= 3 AND "
    "[%s].[firm_id] <= %ld AND [%s].[servo_id] = %ld AND [%s].[option_id] = %ld)",
    kFirmwareModifyFailed,
    kFirmwareInsertFailed,
    kFirmwareDeleteFailed,
};

constexpr DeltaStatements kCustomSpecStatements = {
    " WHERE ([%s].[change_type] = 1 AND [%s].[servo_id] = %ld AND [%s].[option_id] = %ld AND [%s].[cmod_id] "
    "= %ld)",
    " FROM [%s] WHERE ([servo_id] = %ld AND [option_id] = %ld AND [change_type] = 2 AND [cmod_id] = %ld ) ",
    "DELETE * FROM [%s] WHERE [%s] = ANY (SELECT [%s] FROM [%s] WHERE ([%s].[change_type] = 3 AND "
    "[%s].[cmod_id] = "
    "%ld AND [%s].[servo_id] = %ld AND [%s].[option_id] = %ld))",
    "DELETE [%s].* FROM [%s] INNER JOIN [%s] ON [%s].[servo_id] = [%s].[servo_id] WHERE ([%s].[change_type] "
    "= 3 AND "
    "[%s].[cmod_id] = %ld AND [%s].[servo_id] = %ld AND [%s].[option_id] = %ld)",
    kCustomSpecModifyFailed,
    kCustomSpecInsertFailed,
    kCustomSpecDeleteFailed,
};

// One merge with one delta table.
struct DeltaRun {
    const MergeRequest& request;
    const DeltaStatements& statements;
    const char* deltaTable;
    std::int32_t version;  // the bound of firm_id, or the cmod_id
};

bool IsKey(const MergeColumn& column) {
    return column.kind == ColumnKind::Key;
}

CString ModifyStatement(const DeltaRun& run) {
    const CString& work = run.request.workTable;
    const char* delta = run.deltaTable;
    CString text =
        Sql("UPDATE [%s] INNER JOIN [%s] ON [%s].[servo_id] = [%s].[servo_id] ", work, delta, work, delta);
    for (const MergeColumn& column : run.request.deltas.columns) {
        if (IsKey(column)) text += Sql("AND [%s].[%s] = [%s].[%s] ", work, column.name, delta, column.name);
    }
    const char* assignment = "SET [%s].[%s] = [%s].[%s]";
    for (const MergeColumn& column : run.request.deltas.columns) {
        if (IsKey(column)) continue;
        text += Sql(assignment, work, column.name, delta, column.name);
        assignment = ",[%s].[%s] = [%s].[%s]";
    }
    text += Sql(run.statements.modifyFilter, delta, delta, run.request.servoId, delta, run.request.optionId,
                delta, run.version);
    return text;
}

CString InsertStatement(const DeltaRun& run) {
    const char* delta = run.deltaTable;
    CString text =
        Sql("INSERT INTO [%s] SELECT [%s].[servo_id],[%s].[option_id]", run.request.workTable, delta, delta);
    for (const MergeColumn& column : run.request.deltas.columns)
        text += Sql(",[%s].[%s]", delta, column.name);
    text += Sql(run.statements.insertFilter, delta, run.request.servoId, run.request.optionId, run.version);
    return text;
}

CString DeleteStatement(const DeltaRun& run) {
    const CString& work = run.request.workTable;
    const char* delta = run.deltaTable;
    const auto& columns = run.request.deltas.columns;
    const auto key = std::find_if(columns.begin(), columns.end(), IsKey);
    if (key != columns.end()) {
        return Sql(run.statements.deleteByKey, work, key->name, key->name, delta, delta, delta, run.version,
                   delta, run.request.servoId, delta, run.request.optionId);
    }
    return Sql(run.statements.deleteByModel, work, work, delta, work, delta, delta, delta, run.version, delta,
               run.request.servoId, delta, run.request.optionId);
}

Status RunStep(const CString& statement, Status code) {
    long affected = 0;
    return Run(DaoCode(code).AndLeaveLock(), statement, &affected);
}

Status ApplySteps(const DeltaRun& run, unsigned steps, Status codeBase) {
    const auto& columns = run.request.deltas.columns;
    const bool hasData = !std::all_of(columns.begin(), columns.end(), IsKey);
    Status status = kOk;
    if ((steps & kModify) != 0 && hasData) {
        status = RunStep(ModifyStatement(run), codeBase + run.statements.modifyFailed);
    }
    if (status == kOk && (steps & kInsert) != 0) {
        status = RunStep(InsertStatement(run), codeBase + run.statements.insertFailed);
    }
    if (status == kOk && (steps & kDelete) != 0) {
        status = RunStep(DeleteStatement(run), codeBase + run.statements.deleteFailed);
    }
    return status;
}

// The request of the option unit's steps: same table, the option's id, versions and custom specification.
MergeRequest OptionRequest(const CString& workTable, const DeltaTables& deltas,
                           const DeltaIdentity& identity) {
    return {workTable,
            deltas,
            identity.servoId,
            identity.optionId,
            identity.optionFirmware,
            identity.optionCustomSpec};
}

// What an option unit changes: nothing by its firmware when that is 0.
Status ApplyOptionDeltas(MergeRequest request, Status codeBase) {
    const std::int32_t firmware = request.firmwareVersion;
    Status status = kOk;
    if (firmware != 0) {
        request.firmwareVersion = 0;  // firm_id 0: the unit's own changes to the model's base rows
        status = ApplyFirmwareDeltas(request, kModify, codeBase);
        request.firmwareVersion = firmware;
        if (status == kOk) status = ApplyFirmwareDeltas(request, kAllSteps, codeBase);
    }
    if (status == kOk && IsCustomSpec(request.customSpecId)) {
        status = ApplyCustomSpecDeltas(request, kAllSteps, codeBase);
    }
    return status;
}

}  // namespace

Status CopyBaseRows(const CString& workTable, const char* baseTable, std::int32_t servoId,
                    std::int32_t optionId, Status codeBase) {
    return RunStep(Sql("SELECT * INTO [%s] FROM [%s] WHERE [servo_id] = %ld AND [option_id] = %ld", workTable,
                       baseTable, servoId, optionId),
                   codeBase + kBaseCopyFailed);
}

Status CopyBaseRows(const CString& workTable, const char* baseTable, std::int32_t servoId,
                    std::int32_t optionId, const BaseFilter& filter, Status codeBase) {
    return RunStep(
        Sql("SELECT * INTO [%s] FROM [%s] WHERE [servo_id] = %ld AND [option_id] = %ld AND [%s] = %d",
            workTable, baseTable, servoId, optionId, filter.column, filter.value),
        codeBase + kBaseCopyFailed);
}

Status ApplyFirmwareDeltas(const MergeRequest& request, unsigned steps, Status codeBase) {
    return ApplySteps({request, kFirmwareStatements, request.deltas.firmwareTable, request.firmwareVersion},
                      steps, codeBase);
}

Status ApplyCustomSpecDeltas(const MergeRequest& request, unsigned steps, Status codeBase) {
    return ApplySteps({request, kCustomSpecStatements, request.deltas.customSpecTable, request.customSpecId},
                      steps, codeBase);
}

Status ApplyDeltas(const CString& workTable, const DeltaTables& deltas, const DeltaIdentity& identity,
                   Status codeBase) {
    const MergeRequest model = {
        workTable, deltas, identity.servoId, kNoOption, identity.servoFirmware, identity.servoCustomSpec};
    Status status = kOk;
    if (model.firmwareVersion != 0) status = ApplyFirmwareDeltas(model, kAllSteps, codeBase);
    if (status == kOk && IsCustomSpec(model.customSpecId)) {
        status = ApplyCustomSpecDeltas(model, kAllSteps, codeBase);
    }
    if (status != kOk || !identity.HasOption()) return status;
    return ApplyOptionDeltas(OptionRequest(workTable, deltas, identity), codeBase);
}

}  // namespace kalo
