#pragma once

#include <span>

#include "merge/version_delta.h"
#include "session/model_variant.h"

// What the builders of per-axis working tables have in common beside the variant of the model: its name, the
// name of the combination, the reuse check and the registration in the axis's row. All of it keeps the lock
// after a caught DAO error.
namespace kalo {

// Identity arguments of a builder.
struct BuildIdentity {
    std::int32_t servoId;
    std::int32_t servoFirmware;
    std::int32_t servoCustomSpec;
    std::int32_t powerRating;
    std::int32_t optionId;
    std::int32_t optionFirmware;
    std::int32_t optionCustomSpec;

    bool HasOption() const { return optionId != kNoOption; }
    DeltaIdentity Deltas() const {
        return {servoId, servoFirmware, servoCustomSpec, optionId, optionFirmware, optionCustomSpec};
    }
};

// --- Models ---

// Reads the model name of a combination from the session's model table. A NULL name counts as a missing row.
Status ReadModelName(const BuildIdentity& identity, Status noModel, const OnDaoError& onError,
                     CString& modelName);

// --- Names ---

// "model_firmware_custom_power", or with an option unit "model_firmware_custom_power_ofirmware_ocustom".
CString CombinationName(const CString& modelName, const BuildIdentity& identity);

// The same without the power rating, for the tables that do not depend on it.
CString CombinationNameWithoutPower(const CString& modelName, const BuildIdentity& identity);

// Joins a combination name and the kind of a table.
CString TableName(const CString& combination, const char* kind);

// --- Tables ---

// True in `registered` when some axis's row names `table` in `column`.
Status IsRegistered(const char* column, const CString& table, Status noRow, const OnDaoError& onError,
                    bool& registered);

// A column of the axis's row and the table that it is to name; an empty name stores NULL.
struct RegisteredTable {
    const char* column;
    CString table;
};

struct RegistrationCodes {
    Status noCount;       // counting the axis's rows gave no row
    Status noAxis;        // reading the axis's row gave no row
    Status noUsers;       // counting the users of the previous table gave no row
    OnDaoError onLookup;  // any of these three
    OnDaoError onDrop;    // dropping a previous table
    OnDaoError onWrite;   // the UPDATE or the INSERT
};

// Names an axis's working tables in its row, or in a new one. The first table decides about the previous
// ones: where the axis's row names another table there, which no other axis uses, all of the axis's previous
// tables of these columns are dropped.
Status RegisterTables(std::int32_t axis, std::span<const RegisteredTable> tables,
                      const RegistrationCodes& codes);

}  // namespace kalo
