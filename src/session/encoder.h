#pragma once

#include "session/query_frame.h"

namespace kalo {

// An encoder without firmware of its own.
constexpr std::int32_t kNoEncoderFirmware = 65535;

struct EncoderKey {
    std::int32_t encoderId;
    std::int32_t motorId;
    std::int32_t firmware;
};

// What is known about an encoder; an encoder that is missing keeps these values.
struct Encoder {
    std::int32_t ability = 0;
    CString type = "*";
};

// One answer per statement of the resolution.
struct EncoderErrors {
    OnDaoError copy;
    OnDaoError modify;
    OnDaoError insert;
    OnDaoError remove;
    OnDaoError read;
    OnDaoError drop;
    OnDaoError readDirectly;
};

// Finds an encoder's ability and type as they stand for its firmware: in a copy of the encoder table,
// `temporaryTable`, to which the firmware's changes are applied and which is gone again after a success;
// without firmware, in the encoder table itself. A NULL ability is 0, a NULL type "*".
Status ResolveEncoder(const EncoderKey& key, const char* temporaryTable, const EncoderErrors& errors,
                      Encoder& encoder);

}  // namespace kalo
