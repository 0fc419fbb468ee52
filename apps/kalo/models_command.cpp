#include <kalodata/catalogue.h>

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

struct Options {
    CommonOptions common;
    bool indexer = false;
    std::optional<std::uint32_t> ratings;
    std::uint32_t option = KALO_NO_OPTION;
};

std::vector<std::uint32_t> WizardModels() {
    return ReadList<std::uint32_t, std::uint16_t>(
        "KaloGetWizardServoNum", KaloGetWizardServoNum, "KaloGetWizardServoId",
        [](std::uint16_t, std::uint32_t* ids) { return KaloGetWizardServoId(ids); });
}

std::uint16_t OptionUnits(std::uint32_t model) {
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
                              model.offlineName, model.offlineOptionName, OptionUnits(model.id),
                              alone && std::ranges::find(wizard, model.id) != wizard.end()});
    }
    return table;
}

std::string PowerSign(std::uint32_t power) {
    char sign[KALO_NAME_SIZE] = {};
    Check("KaloGetServoPower", KaloGetServoPower(power, sign));
    return FieldText(sign);
}

void AddPower(std::uint32_t model, std::uint32_t option, std::uint32_t power, Table& table) {
    const std::string sign = PowerSign(power);
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
        table.rows.push_back(
            {power, sign, voltage.voltage, FieldText(voltage.voltage_str), current, greatest});
    }
}

// Powers, voltages and currents of a model.
Table RatingTable(std::uint32_t model, std::uint32_t option) {
    Table table{{{"power_id"}, {"power"}, {"voltage_id"}, {"voltage"}, {"current_mA"}, {"max_current_mA"}},
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

void Show(const Options& options) {
    const Session session(options.common, options.indexer);
    Print(options.ratings ? RatingTable(*options.ratings, options.option) : ModelTable(),
          options.common.format);
}

}  // namespace

void AddModelsCommand(CLI::App& app) {
    CLI::App* command = app.add_subcommand("models", "Amplifier models and their option units");
    auto options = std::make_shared<Options>();
    AddCommon(*command, options->common);
    command->add_flag("--indexer", options->indexer, "The indexer's models");
    AddNumber(*command, "--ratings", options->ratings, "Powers, voltages and currents of a model");
    AddNumber(*command, "--option", options->option, "With --ratings: with an option unit");
    command->final_callback([options] { Show(*options); });
}

}  // namespace cli
