#include <kalodata/catalogue.h>
#include <kalodata/parameters.h>

#include <algorithm>
#include <memory>
#include <optional>

#include "axis.h"
#include "commands.h"
#include "models.h"
#include "session.h"
#include "table.h"
#include "text.h"

namespace cli {
namespace {

// Selector of an option unit's name.
constexpr std::uint16_t kOptionName = 2;
// Whose custom specifications.
constexpr std::uint16_t kOfModel = 1;
constexpr std::uint16_t kOfOption = 2;
// Answer of KaloGetUserCmodId where there are none.
constexpr KaloStatus kNoCustomSpecs = 0x2A00006B;
// An element that a getter left as it was.
constexpr std::uint32_t kNoId = UINT32_MAX;

struct Options {
    CommonOptions common;
    bool indexer = false;
    std::optional<std::uint32_t> ratings;
    std::optional<std::uint32_t> units;
    std::optional<std::uint32_t> customSpecs;
    std::uint32_t option = KALO_NO_OPTION;
};

std::vector<std::uint32_t> WizardModels() {
    return ReadList<std::uint32_t, std::uint16_t>(
        "KaloGetWizardServoNum", KaloGetWizardServoNum, "KaloGetWizardServoId",
        [](std::uint16_t, std::uint32_t* ids) { return KaloGetWizardServoId(ids); });
}

std::uint16_t CountOptionUnits(std::uint32_t model) {
    std::uint16_t count = 0;
    Check("KaloGetOptionUnitNum", KaloGetOptionUnitNum(model, &count));
    return count;
}

Table ModelTable() {
    Table table{{{"model_id"},
                 {"option_id"},
                 {"name"},
                 {"option"},
                 {"offline_name"},
                 {"offline_option", Shown::Detail},
                 {"option_units"},
                 {"wizard"}},
                {}};
    const std::vector<std::uint32_t> wizard = WizardModels();
    for (const Model& model : ReadModels()) {
        const bool alone = model.option == KALO_NO_OPTION;
        table.rows.push_back({model.id, alone ? Cell() : Cell(model.option), model.name, model.optionName,
                              model.offlineName, model.offlineOptionName, CountOptionUnits(model.id),
                              alone && std::ranges::find(wizard, model.id) != wizard.end()});
    }
    return table;
}

// A name that a getter fills for some ids.
template <class Getter, class... Ids>
std::string NameFrom(const char* function, Getter getter, Ids... ids) {
    char name[KALO_NAME_SIZE] = {};
    Check(function, getter(ids..., name));
    return FieldText(name);
}

// The option units that a model can have, as off-line lists know them.
Table OptionUnitTable(std::uint32_t model) {
    Table table{{{"option_id"}, {"name"}, {"offline_name"}}, {}};
    const std::uint16_t count = CountOptionUnits(model);
    for (std::uint16_t index = 0; index < count; ++index) {
        std::uint32_t option = 0;
        Check("KaloGetOptionUnitId", KaloGetOptionUnitId(model, index, &option));
        table.rows.push_back(
            {option, NameFrom("KaloGetModelOnName", KaloGetModelOnName, kOptionName, model, option),
             NameFrom("KaloGetModelOffName", KaloGetModelOffName, kOptionName, model, option)});
    }
    return table;
}

void AddCustomSpecs(const char* of, const std::vector<std::uint32_t>& ids, Table& table) {
    for (const std::uint32_t id : ids)
        if (id != kNoId) table.rows.push_back({of, id});
}

std::vector<std::uint32_t> ModelCustomSpecs(std::uint32_t model, std::uint32_t option) {
    KaloCustomSpecSummary summary{};
    Check("KaloGetUserCmodNum", KaloGetUserCmodNum(model, option, &summary));
    std::vector<std::uint32_t> ids(summary.count, kNoId);
    if (!ids.empty())
        Check("KaloGetUserCmodId", KaloGetUserCmodId(static_cast<std::int32_t>(model), option, kOfModel,
                                                     static_cast<std::int16_t>(ids.size()), ids.data()));
    return ids;
}

// No getter counts those of an option unit: the array is as large as the getter takes it.
std::vector<std::uint32_t> OptionCustomSpecs(std::uint32_t option) {
    std::vector<std::uint32_t> ids(INT16_MAX, kNoId);
    const KaloStatus status =
        KaloGetUserCmodId(static_cast<std::int32_t>(option), option, kOfOption, INT16_MAX, ids.data());
    if (status != kNoCustomSpecs) Check("KaloGetUserCmodId", status);
    return ids;
}

// The custom specifications that change the user parameters of a model, and of the option unit with it.
Table CustomSpecTable(std::uint32_t model, std::uint32_t option) {
    Table table{{{"of"}, {"cmod_id"}}, {}};
    AddCustomSpecs("amplifier", ModelCustomSpecs(model, option), table);
    if (option != KALO_NO_OPTION) AddCustomSpecs("option unit", OptionCustomSpecs(option), table);
    return table;
}

void AddPower(std::uint32_t model, std::uint32_t option, std::uint32_t power, Table& table) {
    const std::string sign = NameFrom("KaloGetServoPower", KaloGetServoPower, power);
    for (const KaloServoVoltage& voltage : ReadList<KaloServoVoltage, std::uint16_t>(
             "KaloGetServovoltageNum",
             [=](std::uint16_t*count) { return KaloGetServovoltageNum(model, option, power, count); },
             "KaloGetServovoltageInfo",
             [=](std::uint16_t count, KaloServoVoltage*voltages) {
                 return KaloGetServovoltageInfo(model, option, power, count, voltages);
             })) {
        std::uint32_t current = 0;
        std::uint32_t greatest = 0;
        Check("KaloGetServoCurrentInfo",
              KaloGetServoCurrentInfo(model, option, power, voltage.voltage, &current, &greatest));
        table.rows.push_back({power, sign, voltage.voltage, FieldText(voltage.voltage_str),
                              NameFrom("KaloGetServoVoltage", KaloGetServoVoltage, voltage.voltage), current,
                              greatest});
    }
}

// Powers, voltages and currents of a model.
Table RatingTable(std::uint32_t model, std::uint32_t option) {
    Table table{{{"power_id"},
                 {"power"},
                 {"voltage_id"},
                 {"voltage"},
                 {"voltage_sign", Shown::Detail},
                 {"current_mA"},
                 {"max_current_mA"}},
                {}};
    std::uint16_t count = 0;
    Check("KaloGetServoPowerNum", KaloGetServoPowerNum(model, option, &count));
    for (std::uint16_t index = 0; index < count; ++index) {
        std::uint32_t power = 0;
        Check("KaloGetServoPowerId", KaloGetServoPowerId(model, option, index, &power));
        AddPower(model, option, power, table);
    }
    return table;
}

Table Answer(const Options& options) {
    if (options.ratings) return RatingTable(*options.ratings, options.option);
    if (options.units) return OptionUnitTable(*options.units);
    if (options.customSpecs) return CustomSpecTable(*options.customSpecs, options.option);
    return ModelTable();
}

void Show(const Options& options) {
    const Session session(options.common, options.indexer);
    Print(Answer(options), options.common.format);
}

}  // namespace

void AddModelsCommand(CLI::App& app) {
    CLI::App* command = app.add_subcommand("models", "Amplifier models and their option units");
    auto options = std::make_shared<Options>();
    AddCommon(*command, options->common);
    command->add_flag("--indexer", options->indexer, "The indexer's models");
    CLI::Option* ratings =
        AddNumber(*command, "--ratings", options->ratings, "Powers, voltages and currents of a model");
    CLI::Option* units =
        AddNumber(*command, "--options", options->units, "Option units of a model that are known off-line");
    AddNumber(*command, "--cmods", options->customSpecs,
              "Custom specifications that change a model's user parameters")
        ->excludes(ratings)
        ->excludes(units);
    ratings->excludes(units);
    AddNumber(*command, "--option", options->option, "With --ratings and --cmods: with an option unit");
    command->final_callback([options] { Show(*options); });
}

}  // namespace cli
