#pragma once

#include "merge/version_delta.h"

// The deltas of tables whose rows belong to one model_id (monitors, I/O, displayed alarms): an option unit
// has a model_id of its own, so that a pass stands for the amplifier or for the option unit.
namespace kalo {

// How a build finds the newest firmware version that the delta rows know. Both statements are complete.
struct FirmwareBoundQuery {
    CString count;   // COUNT (*) AS [Record] of the delta rows
    CString newest;  // the delta rows ORDER BY [firm_id]
    Status noCount;
    Status noNewest;
    OnDaoError onError;
};

// The bound of a firmware step: the smaller of `version` and the newest version of the delta rows, 0 without
// any.
Status ReadFirmwareBound(const FirmwareBoundQuery& query, std::int32_t version, std::int32_t& bound);

// One family's statements. In the firmware statements every %s is the working table and the numbers are the
// bound and the model id; in those of the custom specification they are its id and the model id; in the first
// two, the model id alone.
struct ModelDeltaStatements {
    const char* count;
    const char* newest;
    const char* firmware[3];    // modify, insert, delete
    const char* customSpec[3];  // modify, insert, delete
};

struct ModelDeltaCodes {
    Status noCount;
    Status noNewest;
    OnDaoError bound;       // reading the count and the newest version
    OnDaoError firmware;    // the three firmware statements
    OnDaoError customSpec;  // the three statements of the custom specification
};

// The amplifier or the option unit.
struct ModelPass {
    std::int32_t modelId;
    std::int32_t firmwareVersion;
    std::int32_t customSpecId;
};

// One pass: firmware deltas up to the bound unless that is 0, then those of the custom specification if there
// is one; modify, insert, delete. The first status that is not 0 ends it.
Status ApplyModelDeltas(const CString& workTable, const ModelDeltaStatements& statements,
                        const ModelDeltaCodes& codes, const ModelPass& pass);

// The amplifier's pass, then with an option unit the unit's.
Status ApplyModelDeltas(const CString& workTable, const ModelDeltaStatements& statements,
                        const ModelDeltaCodes& codes, const DeltaIdentity& identity);

}  // namespace kalo
