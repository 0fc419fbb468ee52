#include "session/model_variant.h"

namespace kalo {
namespace {

// By ModelFamily.
constexpr const char* kVariantStatements[] = {
    "SELECT [ide_servo_id],[modify_flag_bitmask],[modify_flag],[modify_threshold_bitmask],[modify_threshold] "
    "FROM "
    "[model_subspecies] WHERE [servo_id] = %d ORDER BY [modify_threshold] DESC",
    "SELECT [ide_servo_id],[modify_flag_bitmask],[modify_flag],[modify_threshold_bitmask],[modify_threshold] "
    "FROM "
    "[tavro2_model_subspecies] WHERE [servo_id] = %d ORDER BY [modify_threshold] DESC",
};

// A variant row fits by the flag bits above the model's number, or else by the firmware version.
bool VariantMatches(Rows& rows, std::uint32_t servoId, std::uint32_t firmware) {
    const auto field = [&rows](const char* column) { return static_cast<std::uint32_t>(rows.Value(column)); };
    if (((servoId >> 8) & field("modify_flag_bitmask")) == field("modify_flag")) return true;
    return (firmware & field("modify_threshold_bitmask")) >= field("modify_threshold");
}

}  // namespace

Status IdentifyModelVariant(std::int32_t& servoId, std::int32_t servoFirmware, const OnDaoError& onError,
                            std::int32_t* originalId, ModelFamily family) {
    if (originalId != nullptr) *originalId = 0;
    const auto id = static_cast<std::uint32_t>(servoId);
    return Locked(onError, [&] {
        Rows rows(Sql(kVariantStatements[static_cast<int>(family)], id & 0xFF));
        for (; !rows.AtEnd(); rows.Next()) {
            if (!VariantMatches(rows, id, static_cast<std::uint32_t>(servoFirmware))) continue;
            if (originalId != nullptr) *originalId = servoId;
            servoId = rows.Value("ide_servo_id");
            break;
        }
        return kOk;
    });
}

}  // namespace kalo
