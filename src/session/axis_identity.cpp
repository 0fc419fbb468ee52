#include <kalodata/axis.h>

#include "session/encoder.h"
#include "session/model_variant.h"

using namespace kalo;

namespace {

// What the host says about an axis.
struct AxisDescription {
    std::int32_t servoId;
    std::int32_t servoFirmware;
    std::int32_t servoCustomSpec;
    std::int32_t powerRating;
    std::int32_t optionId;
    std::int32_t optionFirmware;
    std::int32_t optionCustomSpec;
    std::int32_t motorId;
    std::int32_t encoderFirmware;
};

Status UpdateAxis(std::int32_t axis, const AxisDescription& is) {
    return Run(
        DaoBase(0x2B890000),
        Sql("UPDATE [tablemanager] SET [tablemanager].[servo_id] = %ld,[tablemanager].[sFirm_version] = "
            "%ld,[tablemanager].[sCmod_version] = %ld,[tablemanager].[prate] = "
            "%ld,[tablemanager].[option_id] = "
            "%ld,[tablemanager].[oFirm_version] = %ld,[tablemanager].[oCmod_version] = "
            "%ld,[tablemanager].[motor_id] = %ld,[tablemanager].[eFirm_id] = %ld "
            "WHERE([tablemanager].[axis_num] "
            "= %d)",
            is.servoId, is.servoFirmware, is.servoCustomSpec, is.powerRating, is.optionId, is.optionFirmware,
            is.optionCustomSpec, is.motorId, is.encoderFirmware, axis));
}

// Identifies the variant of a new axis's model. The statement names one column more than it has values, which
// the engine refuses: rows come to exist when a builder registers a table.
Status InsertAxis(std::int32_t axis, AxisDescription is) {
    const Status status = IdentifyModelVariant(is.servoId, is.servoFirmware, DaoBase(0x2B8A0000));
    if (status != kOk) return status;
    return Run(
        DaoBase(0x2B8B0000),
        Sql("INSERT INTO "
            "[tablemanager]([axis_num],[servo_id],[sFirm_version],[sCmod_version],[prate],[option_id],[oFirm_"
            "version],[oCmod_version],[motor_id],[eFirm_id],[original_servo_id]) "
            "VALUES(%d,%ld,%ld,%ld,%ld,%ld,%ld,%ld,%ld,%ld)",
            axis, is.servoId, is.servoFirmware, is.servoCustomSpec, is.powerRating, is.optionId,
            is.optionFirmware, is.optionCustomSpec, is.motorId, is.encoderFirmware));
}

Status WriteIdentity(std::int32_t axis, const AxisDescription& description) {
    enum : Status { kNoCount = 0x2BFF0805 };
    std::int32_t rows = 0;
    const Status status = ReadRecordCount(
        DaoBase(0x2B870000),
        Sql("SELECT COUNT (*) AS [Record] FROM [tablemanager] WHERE [axis_num] = %d", axis), kNoCount, rows);
    if (status != kOk) return status;
    return rows != 0 ? UpdateAxis(axis, description) : InsertAxis(axis, description);
}

Status WriteEncoder(std::int32_t axis, const EncoderKey& key) {
    constexpr OnDaoError kDeltas = DaoBase(0x2B8C0000);
    constexpr OnDaoError kRead = DaoBase(0x2B990000);
    Encoder encoder;
    const Status status =
        ResolveEncoder(key, "ModelEFencodor",
                       {kDeltas, kDeltas, kDeltas, kDeltas, kRead, DaoBase(0x2B9A0000), kRead}, encoder);
    if (status != kOk) return status;
    return Run(DaoBase(0x2B9B0000), Sql("UPDATE [tablemanager] SET [encodor_ability] = %ld,[encodor_type] = "
                                        "%c%s%c WHERE([axis_num] = %d)",
                                        encoder.ability, kQuote, encoder.type, kQuote, axis));
}

}  // namespace

KaloStatus KALO_CALL KaloModelInfoCreate(std::int32_t servoId, std::int32_t servoFirmware,
                                         std::int32_t servoCustomSpec, std::int32_t powerRating,
                                         std::int32_t optionId, std::int32_t optionFirmware,
                                         std::int32_t optionCustomSpec, std::int32_t motorId,
                                         std::int32_t encoderId, std::int32_t encoderFirmware,
                                         std::int16_t axis) {
    enum : Status { kNotOpen = 0x2A000072 };
    if (!DatabaseIsOpen()) return kNotOpen;
    const Status status = WriteIdentity(axis, {servoId, servoFirmware, servoCustomSpec, powerRating, optionId,
                                               optionFirmware, optionCustomSpec, motorId, encoderFirmware});
    if (status != kOk) return status;
    return WriteEncoder(axis, {encoderId, motorId, encoderFirmware});
}
