#pragma once

#include "merge/version_delta.h"

// What the builders of per-axis working tables have in common: the variant and the name of the model, the name of the
// combination, the reuse check and the registration in the axis's row.
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
};

// Replaces a model id by its variant where model_subspecies says so. `originalId` (where given) receives the id as it
// came in when it was replaced, else 0.
Status IdentifyModelVariant(std::int32_t& servoId, std::int32_t servoFirmware, const OnDaoError& onError,
                            std::int32_t* originalId = nullptr);

// Reads the model name of a combination from the session's model table.
Status ReadModelName(const BuildIdentity& identity, Status noModel, const OnDaoError& onError, CString& modelName);

// "model_firmware_custom_power", or with an option unit "model_firmware_custom_power_ofirmware_ocustom".
CString CombinationName(const CString& modelName, const BuildIdentity& identity);

// Joins a combination name and the kind of a table.
CString TableName(const CString& combination, const char* kind);

// True in `registered` when some axis's row names `table` in `column`.
Status IsRegistered(const char* column, const CString& table, Status noRow, const OnDaoError& onError,
                    bool& registered);

}  // namespace kalo
