#include <kalodata/parameters.h>

#include <memory>
#include <optional>

#include "axis.h"
#include "commands.h"
#include "digits_view.h"
#include "groups.h"
#include "parameter_answers.h"
#include "parameter_rows.h"
#include "session.h"

namespace cli {
namespace {

struct Options {
    CommonOptions common;
    Combination combination;
    CLI::Option* model = nullptr;
    // Which parameters.
    std::optional<std::int32_t> id;
    std::optional<std::int16_t> index;
    std::string group;
    std::optional<std::uint16_t> controlMask;
    // What is shown of them.
    bool digits = false;
    bool values = false;
    // Other questions.
    std::optional<std::int32_t> function;
    std::optional<std::uint16_t> fixedId;
    std::vector<std::string> firmware;
    std::vector<std::string> optionFirmware;
};

std::vector<KaloUserParameter> ChosenParameters(const Options& options) {
    if (options.id) return {ReadParameter(*options.id)};
    if (options.index) return {ReadParameterAt(*options.index)};
    std::vector<KaloUserParameter> all = ReadParameters();
    if (options.group.empty()) return all;
    // Additional groups are those of the axis's devices.
    Identify(options.combination);
    return MembersOf(options.group, all);
}

void ReadVersions(const std::vector<std::string>& words, std::uint32_t (&versions)[2]) {
    for (std::size_t i = 0; i < words.size(); ++i)
        StoreNumber(versions[i], words[i]);
}

// Questions about the drive as a whole; false where its parameters are asked for.
bool AnswerAboutDrive(const Options& options, Table& answer) {
    const bool compares = !options.firmware.empty() || !options.optionFirmware.empty();
    if (!compares && !options.function) return false;
    VersionPairs versions;
    ReadVersions(options.firmware, versions.firmware);
    ReadVersions(options.optionFirmware, versions.optionFirmware);
    BuildParameters(options.combination, options.common.language);
    Identify(options.combination);
    answer = compares ? VersionComparison(versions) : FunctionSwitch(*options.function);
    return true;
}

void ShowParameters(const Options& options) {
    const auto& [file, format, language] = options.common;
    BuildParameters(options.combination, language);
    if (options.controlMask) Check("KaloUparaUpdate", KaloUparaUpdate(kAxis, *options.controlMask));
    const std::vector<KaloUserParameter> parameters = ChosenParameters(options);
    if (options.digits)
        PrintDigits(parameters, language, format);
    else
        Print(options.values ? DigitValueTable(parameters, language) : ParameterTable(parameters), format);
}

void Show(const Options& options) {
    const Session session(options.common);
    const Format format = options.common.format;
    if (options.fixedId) return Print(FixedName(*options.fixedId, options.common.language), format);
    if (options.model->count() == 0) throw CLI::RequiredError("--model");
    Table answer;
    if (AnswerAboutDrive(options, answer)) return Print(answer, format);
    ShowParameters(options);
}

void AddChoices(CLI::App& command, Options& options) {
    CLI::Option* id = AddNumber(command, "--id", options.id, "Only one parameter");
    CLI::Option* index = AddNumber(command, "--index", options.index,
                                   "Only the parameter at a place in the order of ids, from 0");
    CLI::Option* group = command.add_option("--group", options.group,
                                            "Only one category or additional group, by its name or id");
    id->excludes(index)->excludes(group);
    index->excludes(group);
    AddNumber(command, "--control-mask", options.controlMask,
              "Only parameters of control modes that have a bit in the mask");
    CLI::Option* digits = command.add_flag("--digits", options.digits,
                                           "Digits of parameters that have them, with values and meanings");
    command.add_flag("--values", options.values, "Values of these digits, with the messages that they show")
        ->excludes(digits);
}

void AddQuestions(CLI::App& command, Options& options) {
    AddNumber(command, "--switch", options.function, "Digit that switches a function of the drive on");
    AddNumber(command, "--fixed-name", options.fixedId,
              "Name of the parameter with a fixed id; needs no model");
    command
        .add_option("--compare", options.firmware,
                    "Whether parameters differ between two firmware versions of the amplifier")
        ->expected(2)
        ->type_name("N");
    command
        .add_option("--compare-option", options.optionFirmware,
                    "Whether they differ between two firmware versions of the option unit")
        ->expected(2)
        ->type_name("N");
}

}  // namespace

void AddParamsCommand(CLI::App& app) {
    CLI::App* command =
        app.add_subcommand("params", "User parameters of an amplifier, as its versions have them");
    auto options = std::make_shared<Options>();
    AddCommon(*command, options->common);
    options->model = AddCombination(*command, options->combination);
    AddChoices(*command, *options);
    AddQuestions(*command, *options);
    command->final_callback([options] { Show(*options); });
}

}  // namespace cli
