#include "models.h"

#include <kalodata/catalogue.h>

#include "status_words.h"
#include "text.h"

namespace cli {
namespace {

// The list of all models with and without option unit.
constexpr std::uint16_t kEverything = 0;
constexpr std::uint16_t kAmplifierName = 1;
constexpr std::uint16_t kOptionName = 2;
// The engine's "no current record", for an index past the end.
constexpr KaloStatus kPastEnd = 0x2B760000 + 3021;
constexpr KaloStatus kNone = 0x2A000059;

std::string Name(const char* function, decltype(&KaloGetModelOnName) getter, std::uint16_t selector,
                 const Model& model) {
    char name[KALO_NAME_SIZE] = {};
    Check(function, getter(selector, model.id, model.option, name));
    return FieldText(name);
}

void ReadNames(Model& model) {
    model.name = Name("KaloGetModelOnName", KaloGetModelOnName, kAmplifierName, model);
    model.offlineName = Name("KaloGetModelOffName", KaloGetModelOffName, kAmplifierName, model);
    if (model.option == KALO_NO_OPTION) return;
    model.optionName = Name("KaloGetModelOnName", KaloGetModelOnName, kOptionName, model);
    model.offlineOptionName = Name("KaloGetModelOffName", KaloGetModelOffName, kOptionName, model);
}

}  // namespace

std::vector<Model> ReadModels() {
    std::vector<Model> models;
    for (std::uint16_t index = 0; index < UINT16_MAX; ++index) {
        Model model{};
        const KaloStatus status = KaloGetAmpUnitId(kEverything, kEverything, index, &model.id, &model.option);
        if (status == kPastEnd || status == kNone) break;
        Check("KaloGetAmpUnitId", status);
        ReadNames(model);
        models.push_back(std::move(model));
    }
    return models;
}

}  // namespace cli
