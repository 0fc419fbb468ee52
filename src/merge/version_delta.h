#pragma once

#include <span>

#include "session/query_frame.h"

// The version-delta merge: a working table is the base rows of a model with the rows of a firmware delta table and
// of a custom-specification delta table applied.
namespace kalo {

// No option unit is fitted; a custom specification of 0 or 65535 is a standard product.
constexpr std::int32_t kNoOption = 65533;
constexpr bool IsCustomSpec(std::int32_t customSpec) { return customSpec != 0 && customSpec != 65535; }

enum class ColumnKind : std::uint16_t { Key = 1, Data = 2 };

struct MergeColumn {
    ColumnKind kind;
    const char* name;
};

// Delta steps, as a bit set.
enum MergeSteps : unsigned { kModify = 1, kInsert = 2, kDelete = 4, kAllSteps = 7 };

// One merge into one working table by the generic rules: rows are matched by servo_id and the key columns, the first
// key column is the delete key.
struct MergeRequest {
    CString workTable;
    const char* firmwareTable;
    const char* customSpecTable;
    std::int32_t servoId;
    std::int32_t optionId;
    std::int32_t firmwareVersion;
    std::int32_t customSpecId;
    std::span<const MergeColumn> columns;
};

// Apply the delta rows of the request's model and option: firmware rows up to the request's version, or the rows of
// its custom specification. A DAO error gives `onError`'s status; the lock is left in every case.
Status ApplyFirmwareDeltas(const MergeRequest& request, unsigned steps, Status onError);
Status ApplyCustomSpecDeltas(const MergeRequest& request, unsigned steps, Status onError);

// Who is fitted on an axis, as the delta steps need it.
struct DeltaIdentity {
    std::int32_t servoId;
    std::int32_t servoFirmware;
    std::int32_t servoCustomSpec;
    std::int32_t optionId;
    std::int32_t optionFirmware;
    std::int32_t optionCustomSpec;
};

// All delta steps of a generic build, in order: the model's firmware and custom specification, the option unit's own
// changes, firmware and custom specification. The first status that is not 0 ends it.
Status ApplyDeltas(const CString& workTable, const char* firmwareTable, const char* customSpecTable,
                   std::span<const MergeColumn> columns, const DeltaIdentity& identity, Status onError);

}  // namespace kalo
