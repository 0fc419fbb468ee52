#include <kalodata/catalogue.h>

#include <mbstring.h>

#include "catalogue/row_reading.h"
#include "session/encoder.h"

namespace kalo {
namespace {

constexpr EncoderErrors kEncodorErrors = {
    .copy = DaoBase(0x2B900000),
    .modify = DaoBase(0x2B910000),
    .insert = DaoBase(0x2B920000),
    .remove = DaoBase(0x2B930000),
    .read = DaoBase(0x2B940000),
    .drop = DaoBase(0x2B950000),
    .readDirectly = DaoBase(0x2B960000),
};

}  // namespace
}  // namespace kalo

using namespace kalo;

KaloStatus KALO_CALL KaloGetEncoderNum(std::uint16_t* count) {
    enum : Status { kNotOpen = 0x2BFF0279, kFailed = 0x2BFF0280 };
    if (!DatabaseIsOpen()) return kNotOpen;
    return CountRows(DaoCode(kFailed), "SELECT * FROM [encoder_typename]", count);
}

KaloStatus KALO_CALL KaloGetEncoderId(std::uint16_t countryId, std::uint16_t index, std::uint32_t* typecode) {
    enum : Status {
        kNotOpen = 0x2BFF0281,
        kNoRow = 0x2BFF0282,
        kNoTypecode = 0x2BFF0283,
        kFailed = 0x2BFF0284
    };
    if (!DatabaseIsOpen()) return kNotOpen;
    return ReadNumberAt(
        {kNoRow, kNoTypecode, DaoCode(kFailed)},
        Sql("SELECT * FROM [encoder_typename] WHERE [country_id] = %d ORDER BY [typecode]", countryId), index,
        "typecode", typecode);
}

KaloStatus KALO_CALL KaloGetEncoderString(std::uint16_t countryId, std::uint32_t typecode, char* name) {
    enum : Status { kNotOpen = 0x2BFF0128, kNoRow = 0x2BFF0129, kNoName = 0x2BFF012A, kFailed = 0x2BFF012B };
    if (!DatabaseIsOpen()) return kNotOpen;
    return ReadText({kNoRow, kNoName, DaoCode(kFailed)},
                    Sql("SELECT * FROM [encoder_typename] WHERE ([country_id] = %d AND [typecode] = %d)",
                        countryId, typecode),
                    "typename", name, KALO_NAME_SIZE);
}

KaloStatus KALO_CALL KaloGetEncodor(std::uint32_t motorId, std::uint32_t encoderId, std::uint32_t firmware,
                                    KaloEncodor* encodor) {
    enum : Status { kNotOpen = 0x2A000074 };
    if (!DatabaseIsOpen()) return kNotOpen;
    const EncoderKey key{.encoderId = static_cast<std::int32_t>(encoderId),
                         .motorId = static_cast<std::int32_t>(motorId),
                         .firmware = static_cast<std::int32_t>(firmware)};
    Encoder found;
    const Status status = ResolveEncoder(key, "EFencodor", kEncodorErrors, found);
    if (status != kOk) return status;
    *encodor = {};
    encodor->encodor_ability = found.ability;
    const CString& type = found.type;
    _mbsnbcpy(reinterpret_cast<unsigned char*>(encodor->encodor_type),
              reinterpret_cast<const unsigned char*>(static_cast<const char*>(type)), KALO_TEXT_SIZE - 1);
    return kOk;
}
