#include <fmt/format.h>
#include <kalodata/monitors.h>

#include <memory>
#include <optional>

#include "axis.h"
#include "commands.h"
#include "session.h"
#include "table.h"
#include "text.h"

namespace cli {
namespace {

// No getter names the categories: without --category, the lists of those up to this one are looked at.
constexpr std::uint16_t kLastCategory = 255;
// Answer of KaloGetAllMonitorInfo for an axis without monitors.
constexpr KaloStatus kNoMonitor = 0x2A00002B;
constexpr std::size_t kFirstRoom = 1023;

struct Options {
    CommonOptions common;
    Combination combination;
    std::optional<std::uint16_t> category;
    std::optional<std::int32_t> id;
    std::optional<std::int32_t> group;
    std::optional<std::uint16_t> controlMask;
    bool meaning = false;
    CLI::Option* model = nullptr;
};

constexpr Field<KaloMonitor> kFields[] = {
    {"monitor_id", Shown::Hex, [](const KaloMonitor& m) { return Cell(m.monitor_id); }},
    {"name", Shown::Always, [](const KaloMonitor& m) { return Cell(FieldText(m.monitor_name)); }},
    {"category_id", Shown::Detail, [](const KaloMonitor& m) { return Cell(m.category_name_id); }},
    {"category", Shown::Always, [](const KaloMonitor& m) { return Cell(FieldText(m.category_name)); }},
    {"address", Shown::Hex, [](const KaloMonitor& m) { return Cell(m.address); }},
    {"bit", Shown::Always, [](const KaloMonitor& m) { return Cell(m.bit_position); }},
    {"size", Shown::Always, [](const KaloMonitor& m) { return Cell(m.size); }},
    {"step", Shown::Always, [](const KaloMonitor& m) { return Cell(m.unit_multiplier); }},
    {"unit", Shown::Always, [](const KaloMonitor& m) { return Cell(FieldText(m.unit)); }},
    {"unit_name", Shown::Detail, [](const KaloMonitor& m) { return Cell(FieldText(m.unit_name)); }},
    {"on", Shown::Always, [](const KaloMonitor& m) { return Cell(FieldText(m.on_text)); }},
    {"off", Shown::Always, [](const KaloMonitor& m) { return Cell(FieldText(m.off_text)); }},
    {"display_type", Shown::Detail, [](const KaloMonitor& m) { return Cell(m.display_type); }},
    {"access_level", Shown::Detail, [](const KaloMonitor& m) { return Cell(m.access_level); }},
    {"control_type_mask", Shown::Detail, [](const KaloMonitor& m) { return Cell(m.control_type_mask); }},
    {"fixed_id", Shown::Detail, [](const KaloMonitor& m) { return Cell(m.fixed_id); }},
    {"help", Shown::Detail, [](const KaloMonitor& m) { return Cell(FieldText(m.help_reference)); }},
};

constexpr Field<KaloMonitorListElement> kListFields[] = {
    {"monitor_id", Shown::Hex, [](const KaloMonitorListElement& m) { return Cell(m.monitor_id); }},
    {"name", Shown::Always, [](const KaloMonitorListElement& m) { return Cell(FieldText(m.monitor_name)); }},
    {"name_id", Shown::Detail, [](const KaloMonitorListElement& m) { return Cell(m.monitor_name_id); }},
    {"display_type", Shown::Always, [](const KaloMonitorListElement& m) { return Cell(m.display_type); }},
};

constexpr Field<KaloMeaningMonitor> kMeaningFields[] = {
    {"func_id", Shown::Always, [](const KaloMeaningMonitor& m) { return Cell(m.func_id); }},
    {"monitor_id", Shown::Hex,
     [](const KaloMeaningMonitor& m) { return m.monitor_id == KALO_NONE ? Cell() : Cell(m.monitor_id); }},
    {"value", Shown::Always, [](const KaloMeaningMonitor& m) { return Cell(m.value); }},
};

KaloMonitor ReadMonitor(std::int32_t id) {
    KaloMonitor monitor{};
    Check("KaloGetMonitorInfo", KaloGetMonitorInfo(kAxis, id, &monitor));
    return monitor;
}

std::vector<KaloMonitor> ReadCategory(std::uint16_t category) {
    std::uint16_t count = 0;
    Check("KaloGetMonitorNumber", KaloGetMonitorNumber(kAxis, category, &count));
    std::vector<KaloMonitor> monitors;
    for (std::uint16_t index = 0; index < count; ++index) {
        std::uint32_t id = 0;
        Check("KaloGetMonitorId", KaloGetMonitorId(kAxis, category, index, &id));
        monitors.push_back(ReadMonitor(static_cast<std::int32_t>(id)));
    }
    return monitors;
}

// No getter counts the monitors of all categories, those that no list shows too: the array grows until it is
// not filled.
std::vector<KaloMonitor> ReadAll() {
    std::vector<KaloMonitor> monitors;
    const auto unused = [](const KaloMonitor& monitor) {
        return monitor.monitor_id == 0 && monitor.category_name_id == 0 && monitor.monitor_name[0] == '\0';
    };
    for (std::size_t room = kFirstRoom; room <= UINT16_MAX; room = 2 * room + 1) {
        monitors.assign(room, {});
        const KaloStatus status =
            KaloGetAllMonitorInfo(kAxis, static_cast<std::uint16_t>(room), monitors.data());
        if (status == kNoMonitor) return {};
        Check("KaloGetAllMonitorInfo", status);
        if (unused(monitors.back())) break;
    }
    while (!monitors.empty() && unused(monitors.back()))
        monitors.pop_back();
    return monitors;
}

std::vector<KaloMonitorListElement> ReadListed(std::uint16_t category) {
    return ReadList<KaloMonitorListElement, std::uint32_t>(
        "KaloGetMonitorListNumWithCategory",
        [category](std::uint32_t* count) { return KaloGetMonitorListNumWithCategory(category, count); },
        "KaloGetMonitorListWithCategory",
        [category](std::uint32_t, KaloMonitorListElement* elements) {
            return KaloGetMonitorListWithCategory(category, elements);
        });
}

// What the database lists without any drive.
Table ListedMonitors(std::optional<std::uint16_t> wanted) {
    if (wanted) return TableOf(kListFields, ReadListed(*wanted));
    std::vector<KaloMonitorListElement> all;
    for (std::uint16_t category = 0; category <= kLastCategory; ++category) {
        const auto listed = ReadListed(category);
        all.insert(all.end(), listed.begin(), listed.end());
    }
    return TableOf(kListFields, all);
}

Table MeaningMonitors() {
    return TableOf(kMeaningFields,
                   ReadList<KaloMeaningMonitor, std::uint16_t>(
                       "KaloGetAllMeaningMonInfoNum",
                       [](std::uint16_t* count) { return KaloGetAllMeaningMonInfoNum(kAxis, count); },
                       "KaloGetAllMeaningMonInfo",
                       [](std::uint16_t, KaloMeaningMonitor* monitors) {
                           return KaloGetAllMeaningMonInfo(kAxis, monitors);
                       }));
}

Table FunctionGroup(std::int32_t group) {
    Table table{{{"func_id"}}, {}};
    for (const std::uint16_t id : ReadList<std::uint16_t, std::uint16_t>(
             "KaloGetMeaningMonGrpNum",
             [group](std::uint16_t* count) { return KaloGetMeaningMonGrpNum(kAxis, group, count); },
             "KaloGetMeaningMonGrp",
             [group](std::uint16_t, std::uint16_t* ids) { return KaloGetMeaningMonGrp(kAxis, group, ids); }))
        table.rows.push_back({id});
    return table;
}

Table Answer(const Options& options) {
    if (options.model->count() == 0) return ListedMonitors(options.category);
    BuildMonitors(options.combination, options.common.language);
    if (options.controlMask) Check("KaloMonUpdate", KaloMonUpdate(kAxis, *options.controlMask));
    if (options.id) return TableOf(kFields, std::vector<KaloMonitor>{ReadMonitor(*options.id)});
    if (options.category) return TableOf(kFields, ReadCategory(*options.category));
    if (!options.meaning && !options.group) return TableOf(kFields, ReadAll());
    // Functions are those of the axis's devices.
    Identify(options.combination);
    return options.group ? FunctionGroup(*options.group) : MeaningMonitors();
}

void Show(const Options& options) {
    const Session session(options.common);
    Print(Answer(options), options.common.format);
}

}  // namespace

void AddMonitorsCommand(CLI::App& app) {
    CLI::App* command = app.add_subcommand(
        "monitors",
        "Monitors of an amplifier, as its versions have them; without --model those of every drive");
    auto options = std::make_shared<Options>();
    AddCommon(*command, options->common);
    options->model = AddCombination(*command, options->combination);
    AddNumber(*command, "--category", options->category, "Only one category; with --model 1 to 4");
    const auto needsModel = [&](CLI::Option* option) { option->needs(options->model); };
    needsModel(AddNumber(*command, "--id", options->id, "Only one monitor"));
    needsModel(
        command->add_flag("--meaning", options->meaning, "Functions of the drive that monitors tell about"));
    needsModel(AddNumber(*command, "--group", options->group, "Ids of the functions in a group"));
    needsModel(AddNumber(*command, "--control-mask", options->controlMask,
                         "Only monitors of control modes that have a bit in the mask"));
    command->final_callback([options] { Show(*options); });
}

}  // namespace cli
