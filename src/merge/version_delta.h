#pragma once

#include <span>

#include "session/query_frame.h"

// The version-delta merge by the generic rules: a working table is the base rows of a model with the rows of
// a firmware delta table and of a custom-specification delta table applied. Rows are matched by servo_id and
// the key columns.
//
// Every step reports a caught DAO error by a fixed code, an offset of MergeCode to the code base of its
// caller, and leaves the lock.
namespace kalo {

// No option unit is fitted; a custom specification of 0 or 65535 is a standard product.
constexpr std::int32_t kNoOption = 65533;
constexpr bool IsCustomSpec(std::int32_t customSpec) {
    return customSpec != 0 && customSpec != 65535;
}

// Which step failed: added to the caller's code base. (+ 7 to + 9 belong to DropWorkTable and
// ReadAxisIdentity.)
enum MergeCode : Status {
    kBaseCopyFailed = 0,
    kFirmwareModifyFailed = 1,
    kFirmwareInsertFailed = 2,
    kFirmwareDeleteFailed = 3,
    kCustomSpecModifyFailed = 4,
    kCustomSpecInsertFailed = 5,
    kCustomSpecDeleteFailed = 6,
};

enum class ColumnKind : std::uint16_t { Key = 1, Data = 2 };

struct MergeColumn {
    ColumnKind kind;
    const char* name;
};

// Delta steps, as a bit set.
enum MergeSteps : unsigned { kModify = 1, kInsert = 2, kDelete = 4, kAllSteps = 7 };

// What a builder merges: its two delta tables and its columns. The first key column is the delete key; a
// modify copies the data columns (without any it does nothing).
struct DeltaTables {
    const char* firmwareTable;
    const char* customSpecTable;
    std::span<const MergeColumn> columns;
};

// Who is fitted on an axis, as the delta steps need it.
struct DeltaIdentity {
    std::int32_t servoId;
    std::int32_t servoFirmware;
    std::int32_t servoCustomSpec;
    std::int32_t optionId;
    std::int32_t optionFirmware;
    std::int32_t optionCustomSpec;

    bool HasOption() const { return optionId != kNoOption; }
};

// One merge into one working table: the delta rows of this model and option, up to a firmware version or of
// one custom specification.
struct MergeRequest {
    CString workTable;
    DeltaTables deltas;
    std::int32_t servoId;
    std::int32_t optionId;
    std::int32_t firmwareVersion;
    std::int32_t customSpecId;
};

// One more equality on a named column for the base copy.
struct BaseFilter {
    const char* column;
    std::int32_t value;
};

// Makes the working table from the base rows of a model and option.
Status CopyBaseRows(const CString& workTable, const char* baseTable, std::int32_t servoId,
                    std::int32_t optionId, Status codeBase);
Status CopyBaseRows(const CString& workTable, const char* baseTable, std::int32_t servoId,
                    std::int32_t optionId, const BaseFilter& filter, Status codeBase);

// Apply the request's delta rows in one statement per step, in the order modify, insert, delete: firmware
// rows up to the request's version, or the rows of its custom specification. The first status that is not 0
// ends it.
Status ApplyFirmwareDeltas(const MergeRequest& request, unsigned steps, Status codeBase);
Status ApplyCustomSpecDeltas(const MergeRequest& request, unsigned steps, Status codeBase);

// All delta steps of a build, in order: the model's firmware and custom specification; with an option unit,
// its own changes to the base rows, its firmware and its custom specification. The first status that is not 0
// ends it.
Status ApplyDeltas(const CString& workTable, const DeltaTables& deltas, const DeltaIdentity& identity,
                   Status codeBase);

}  // namespace kalo
