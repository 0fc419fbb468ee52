#pragma once

#include "session/query_frame.h"

namespace kalo {

// Each family of models has a table of its variants.
enum class ModelFamily { Tavro, Tavro2 };

// Replaces a model id by its variant where the family's table says so. `originalId` (where given) receives
// the id as it came in when it was replaced, else 0.
Status IdentifyModelVariant(std::int32_t& servoId, std::int32_t servoFirmware, const OnDaoError& onError,
                            std::int32_t* originalId = nullptr, ModelFamily family = ModelFamily::Tavro);

}  // namespace kalo
