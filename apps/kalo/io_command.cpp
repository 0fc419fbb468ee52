#include <fmt/format.h>
#include <kalodata/io.h>

#include <memory>
#include <optional>

#include "axis.h"
#include "commands.h"
#include "io_words.h"
#include "session.h"
#include "table.h"
#include "text.h"

namespace cli {
namespace {

constexpr std::size_t kPelkSignals = 7;

struct Options {
    CommonOptions common;
    Combination combination;
    bool inputs = false;
    bool outputs = false;
    bool fixed = false;
    bool parameters = false;
    std::optional<std::uint16_t> value;
    std::uint16_t select = 0;
    std::optional<std::int32_t> address;
    std::optional<std::int16_t> pelk;
    CLI::Option* model = nullptr;
};

std::vector<Direction> Directions(const Options& options) {
    if (options.inputs == options.outputs) return {Direction::Inputs, Direction::Outputs};
    return {options.inputs ? Direction::Inputs : Direction::Outputs};
}

std::vector<KaloIoSignal> ReadFixed(Direction direction) {
    const auto inout = static_cast<std::int32_t>(direction);
    return ReadList<KaloIoSignal, std::uint16_t>(
        "KaloGetFixedIONum", [inout](std::uint16_t* count) { return KaloGetFixedIONum(kAxis, inout, count); },
        "KaloGetFixedIOInfo",
        [inout](std::uint16_t, KaloIoSignal* signals) { return KaloGetFixedIOInfo(kAxis, inout, signals); });
}

void AddSignal(Table& table, const char* kind, const KaloIoSignal& signal) {
    table.rows.push_back({kind, FieldText(signal.logical_name), FieldText(signal.physical_name),
                          signal.positive_logic != 0, signal.reverse != 0});
}

Table SignalTable() {
    return {{{"kind"}, {"signal"}, {"terminal"}, {"positive_logic"}, {"reverse"}}, {}};
}

Table FixedSignals(const Options& options) {
    Identify(options.combination);
    Table table = SignalTable();
    for (const Direction direction : Directions(options))
        for (const KaloIoSignal& signal : ReadFixed(direction))
            AddSignal(table, NameOf(direction), signal);
    return table;
}

Table PelkSignals(std::int16_t selector) {
    std::uint32_t count = 0;
    Check("KaloGetPELKIOInfoNum", KaloGetPELKIOInfoNum(selector, &count));
    std::vector<KaloIoSignal> signals(kPelkSignals);
    Check("KaloGetPELKIOInfo", KaloGetPELKIOInfo(selector, signals.data()));
    Table table = SignalTable();
    for (const KaloIoSignal& signal : signals)
        AddSignal(table, "PELK", signal);
    return table;
}

// Ids of the user parameters that allocate signals.
Table AllocatingParameters(const Options& options) {
    BuildParameters(options.combination, options.common.language);
    Table table{{{"direction"}, {"parameter_id", Shown::Hex}}, {}};
    for (const Direction direction : Directions(options))
        for (const std::int32_t id : AllocatingParameterIds(direction))
            table.rows.push_back({NameOf(direction), id});
    return table;
}

void ShowAllocation(const Options& options) {
    BuildMonitors(options.combination, options.common.language);
    if (options.value)
        PrintDecodedWord(Directions(options), options.address, *options.value, options.select,
                         options.common.format);
    else
        Print(AllocationTable(Directions(options), options.address, options.select), options.common.format);
}

void Show(const Options& options) {
    const Session session(options.common);
    const Format format = options.common.format;
    if (options.pelk) return Print(PelkSignals(*options.pelk), format);
    if (options.model->count() == 0) throw CLI::RequiredError("--model");
    if (options.parameters) return Print(AllocatingParameters(options), format);
    if (!options.fixed) return ShowAllocation(options);
    BuildMonitors(options.combination, options.common.language);
    Print(FixedSignals(options), format);
}

}  // namespace

void AddIoCommand(CLI::App& app) {
    CLI::App* command =
        app.add_subcommand("io", "Signals of an amplifier and the terminals that they are on");
    auto options = std::make_shared<Options>();
    AddCommon(*command, options->common);
    options->model = AddCombination(*command, options->combination);
    command->add_flag("--inputs", options->inputs, "Only inputs");
    command->add_flag("--outputs", options->outputs, "Only outputs");
    AddNumber(*command, "--value", options->value, "Decode the word of a parameter that allocates signals");
    AddNumber(*command, "--select", options->select, "Word of the selection parameter (default 0)");
    AddNumber(*command, "--address", options->address, "Only the parameter at this address");
    command->add_flag("--fixed", options->fixed, "Signals of the option unit, whose allocation is fixed");
    command->add_flag("--parameters", options->parameters, "Ids of the parameters that allocate signals");
    AddNumber(*command, "--pelk", options->pelk,
              "Fixed signals of the PELK series for a selector; needs no model");
    command->final_callback([options] { Show(*options); });
}

}  // namespace cli
