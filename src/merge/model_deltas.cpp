#include "merge/model_deltas.h"

#include <algorithm>

namespace kalo {
namespace {

Status RunSteps(const CString& workTable, const char* const (&statements)[3], const OnDaoError& onError,
                std::int32_t version, std::int32_t modelId) {
    for (const char* statement : statements) {
        const Status status = Run(onError, SqlOnTable(statement, workTable, {version, modelId}));
        if (status != kOk) return status;
    }
    return kOk;
}

}  // namespace

Status ReadFirmwareBound(const FirmwareBoundQuery& query, std::int32_t version, std::int32_t& bound) {
    bound = 0;
    std::int32_t count = 0;
    const Status status = ReadRecordCount(query.onError, query.count, query.noCount, count);
    if (status != kOk || count == 0) return status;
    return Locked(query.onError, [&] {
        Rows rows(query.newest);
        if (rows.Empty()) return query.noNewest;
        rows.Last();
        bound = std::min(version, rows.Value("firm_id"));
        return kOk;
    });
}

Status ApplyModelDeltas(const CString& workTable, const ModelDeltaStatements& statements,
                        const ModelDeltaCodes& codes, const ModelPass& pass) {
    std::int32_t bound = 0;
    Status status =
        ReadFirmwareBound({Sql(statements.count, pass.modelId), Sql(statements.newest, pass.modelId),
                           codes.noCount, codes.noNewest, codes.bound},
                          pass.firmwareVersion, bound);
    if (status == kOk && bound != 0) {
        status = RunSteps(workTable, statements.firmware, codes.firmware, bound, pass.modelId);
    }
    if (status == kOk && IsCustomSpec(pass.customSpecId)) {
        status =
            RunSteps(workTable, statements.customSpec, codes.customSpec, pass.customSpecId, pass.modelId);
    }
    return status;
}

Status ApplyModelDeltas(const CString& workTable, const ModelDeltaStatements& statements,
                        const ModelDeltaCodes& codes, const DeltaIdentity& identity) {
    const ModelPass amplifier = {identity.servoId, identity.servoFirmware, identity.servoCustomSpec};
    const Status status = ApplyModelDeltas(workTable, statements, codes, amplifier);
    if (status != kOk || !identity.HasOption()) return status;
    const ModelPass option = {identity.optionId, identity.optionFirmware, identity.optionCustomSpec};
    return ApplyModelDeltas(workTable, statements, codes, option);
}

}  // namespace kalo
