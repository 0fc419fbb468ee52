#include <kalodata/traces.h>

#include <algorithm>
#include <memory>
#include <optional>

#include "axis.h"
#include "commands.h"
#include "session.h"
#include "table.h"
#include "trace_rows.h"

namespace cli {
namespace {

// The kinds of conversion.
constexpr std::uint16_t kAnalogIds = 1;
constexpr std::uint16_t kIoIds = 2;

struct Options {
    CommonOptions common;
    Combination combination;
    bool analog = false;
    bool io = false;
    std::uint32_t kind = 1;
    std::vector<std::string> support;
    TraceRange range;
    std::optional<std::uint16_t> position;
    std::optional<std::uint32_t> convert;
    std::optional<std::uint32_t> fromModel;
    std::optional<std::int32_t> offline;
    std::vector<std::string> same;
    bool none = false;
    CLI::Option* model = nullptr;
};

std::vector<std::uint16_t> Bitmap(const std::vector<std::string>& words) {
    std::vector<std::uint16_t> bitmap;
    bitmap.reserve(words.size());
    for (const std::string& word : words)
        bitmap.push_back(static_cast<std::uint16_t>(NumberArgument(word, 0, UINT16_MAX)));
    return bitmap;
}

std::uint32_t ServoOf(const Options& options) {
    return options.fromModel.value_or(static_cast<std::uint32_t>(options.combination.model));
}

Table Converted(const Options& options) {
    const std::uint32_t id = *options.convert;
    std::uint32_t converted = 0;
    const KaloStatus status = options.io ? KaloConvertTraceID(kAxis, kIoIds, ServoOf(options), 0,
                                                              static_cast<std::uint16_t>(id), &converted)
                                         : KaloConvertTraceID(kAxis, kAnalogIds, id, 0, 0, &converted);
    Check("KaloConvertTraceID", status);
    return {{{"id"}, {"converted"}}, {{id, converted}}};
}

Table Compared(const Options& options) {
    const auto a = static_cast<std::uint32_t>(NumberArgument(options.same[0], 0, UINT16_MAX));
    const auto b = static_cast<std::uint32_t>(NumberArgument(options.same[1], 0, UINT16_MAX));
    std::uint16_t different = 1;
    const std::uint32_t servo = options.fromModel.value_or(0);
    Check("KaloCheckTraceID", options.io ? KaloCheckTraceID(kIoIds, servo, 0, a, servo, 0, b, &different)
                                         : KaloCheckTraceID(kAnalogIds, a, 0, 0, b, 0, 0, &different));
    return {{{"a"}, {"b"}, {"same_group"}}, {{a, b, different == 0}}};
}

// What needs no axis; false where the question is another.
bool AnswerOffline(const Options& options, Table& answer) {
    if (!options.same.empty())
        answer = Compared(options);
    else if (options.offline)
        answer = options.io ? OfflineIoTrace(options.fromModel.value_or(0), *options.offline)
                            : OfflineAnalogTrace(*options.offline);
    else
        return false;
    return true;
}

Table Answer(const Options& options) {
    Table answer;
    if (AnswerOffline(options, answer)) return answer;
    if (options.model->count() == 0) {
        if (options.none) return OfflineNoTarget();
        throw CLI::RequiredError("--model");
    }
    BuildTraces(options.combination, options.common.language, options.range);
    if (options.none) return NoTarget();
    if (options.convert) return Converted(options);
    if (options.position)
        return options.io ? IoTraceAt(options.kind, *options.position)
                          : AnalogTraceAt(options.kind, *options.position);
    const TraceQuestion question{options.kind, Bitmap(options.support)};
    return options.io ? IoTraces(question) : AnalogTraces(question);
}

void Show(const Options& options) {
    const Session session(options.common);
    Print(Answer(options), options.common.format);
}

}  // namespace

void AddTracesCommand(CLI::App& app) {
    CLI::App* command = app.add_subcommand("traces", "What an amplifier can record in its data trace");
    auto options = std::make_shared<Options>();
    AddCommon(*command, options->common);
    options->model = AddCombination(*command, options->combination);
    CLI::Option* analog = command->add_flag("--analog", options->analog, "Analog targets (the default)");
    command->add_flag("--io", options->io, "Digital signals")->excludes(analog);
    AddNumber(*command, "--kind", options->kind, "Trace kind, 1 to 32 (default 1)");
    command
        ->add_option("--support", options->support,
                     "The drive's bitmap of 16-bit words (default: all supported)")
        ->type_name("WORD");
    AddNumber(*command, "--position", options->position,
              "Only what stands at a position of a kind's display order, from 0");
    AddNumber(*command, "--spec-version", options->range.specVersion, "Newest version of the trace wanted");
    AddNumber(*command, "--control-type", options->range.controlType, "Control type of the digital signals");
    AddNumber(*command, "--convert", options->convert,
              "The drive's own id for an id of the other generation");
    AddNumber(*command, "--from-model", options->fromModel,
              "Amplifier that digital ids are of (default: the model)");
    AddNumber(*command, "--offline", options->offline, "One target without a drive; needs no model");
    command->add_option("--same", options->same, "Whether two ids belong to one group; needs no model")
        ->expected(2);
    command->add_flag("--none", options->none, "The settings that stand for no target");
    command->final_callback([options] { Show(*options); });
}

}  // namespace cli
