#include <fmt/format.h>
#include <kalodata/catalogue.h>
#include <kalodata/help.h>

#include <algorithm>
#include <memory>
#include <optional>

#include "axis.h"
#include "commands.h"
#include "failure.h"
#include "pulse_lists.h"
#include "session.h"
#include "table.h"
#include "text.h"

namespace cli {
namespace {

// Without --item, items up to this one are looked for.
constexpr std::int32_t kLastItem = 127;

struct Options {
    CommonOptions common;
    Combination combination;
    Motor motor;
    std::string screen;
    std::optional<std::int32_t> item;
    std::uint32_t kind = 20;
    bool pulses = false;
    CLI::Option* model = nullptr;
};

// A page of a screen: the getter's name, whether it takes an item, its code for a missing page, and the call.
struct Screen {
    const char* name;
    const char* function;
    bool hasItems;
    KaloStatus noPage;
    KaloStatus (*read)(const Options& options, std::int32_t item, char* help);
};

constexpr Screen kScreens[] = {
    {"autotuning", "KaloGetAutotuningHelp", false, 0x2BFF071A,
     [](const Options&, std::int32_t, char* help) { return KaloGetAutotuningHelp(kAxis, help); }},
    {"inertia", "KaloGetInertiaHelp", true, 0x2BFF071C,
     [](const Options&, std::int32_t item, char* help) { return KaloGetInertiaHelp(kAxis, item, help); }},
    {"nct", "KaloGetNctHelp", false, 0x2BFF071E,
     [](const Options&, std::int32_t, char* help) { return KaloGetNctHelp(kAxis, help); }},
    {"common", "KaloGetCommonHelp", true, 0x2BFF0721,
     [](const Options&, std::int32_t item, char* help) { return KaloGetCommonHelp(kAxis, item, help); }},
    {"mechanics", "KaloGetMechanaHelp", false, 0x2BFF0724,
     [](const Options&, std::int32_t, char* help) { return KaloGetMechanaHelp(kAxis, help); }},
    {"gaintuning", "KaloGetGaintuningHelp", true, 0x2BFF0148,
     [](const Options&, std::int32_t item, char* help) {
         return KaloGetGaintuningHelp(kAxis, static_cast<std::uint16_t>(item), help);
     }},
    {"guideline", "KaloGetGuidelineHelp", true, 0x2BFF180F,
     [](const Options& options, std::int32_t item, char* help) {
         return KaloGetGuidelineHelp(kAxis, options.kind, item, help);
     }},
    {"wizard", "KaloGetWizHelp", true, 0x2BFF0322,
     [](const Options&, std::int32_t item, char* help) {
         return KaloGetWizHelp(0, static_cast<std::uint32_t>(item), help);
     }},
};

void AddPage(const Screen& screen, const Options& options, std::int32_t item, Table& table) {
    char help[KALO_HELP_SIZE] = {};
    const KaloStatus status = screen.read(options, item, help);
    if (status == screen.noPage) return;
    Check(screen.function, status);
    table.rows.push_back({screen.name, screen.hasItems ? Cell(item) : Cell(), FieldText(help)});
}

void AddScreen(const Screen& screen, const Options& options, Table& table) {
    if (!screen.hasItems) return AddPage(screen, options, 0, table);
    const std::int32_t first = options.item.value_or(0);
    for (std::int32_t item = first; item <= options.item.value_or(kLastItem); ++item)
        AddPage(screen, options, item, table);
}

// The motor's page goes by the axis's motor.
void AddMotorPage(Table& table) {
    KaloMotorInfo info{};
    Check("KaloGetMotorInfo", KaloGetMotorInfo(kAxis, &info));
    table.rows.push_back({"motor", {}, FieldText(info.motor_help)});
}

Table PageTable(const Options& options) {
    Table table{{{"screen"}, {"item"}, {"page"}}, {}};
    for (const Screen& screen : kScreens)
        if (options.screen.empty() || options.screen == screen.name) AddScreen(screen, options, table);
    if (options.motor.id != 0 && options.screen.empty()) AddMotorPage(table);
    if (table.rows.empty()) throw Failure("there is no such page");
    return table;
}

void Show(const Options& options) {
    const Session session(options.common);
    if (options.pulses) return Print(PulseTable(options.common.language), options.common.format);
    if (options.model->count() == 0) throw CLI::RequiredError("--model");
    BuildAlarms(options.combination, options.common.language);
    Identify(options.combination, options.motor);
    Print(PageTable(options), options.common.format);
}

std::vector<std::string> ScreenNames() {
    std::vector<std::string> names;
    for (const Screen& screen : kScreens)
        names.emplace_back(screen.name);
    return names;
}

}  // namespace

void AddHelpCommand(CLI::App& app) {
    CLI::App* command = app.add_subcommand("help", "Help references of an amplifier's screens");
    auto options = std::make_shared<Options>();
    AddCommon(*command, options->common);
    options->model = AddCombination(*command, options->combination);
    command->add_option("--screen", options->screen, "Only one screen")
        ->check(CLI::IsMember(ScreenNames()))
        ->type_name("SCREEN");
    AddNumber(*command, "--item", options->item, "Only one item of a screen that has several");
    AddNumber(*command, "--kind", options->kind, "Kind of guideline (default 20)");
    AddNumber(*command, "--motor", options->motor.id, "Also the page of a motor");
    command->add_flag("--pulses", options->pulses,
                      "Texts of the reference pulse choices instead; needs no model");
    command->final_callback([options] { Show(*options); });
}

}  // namespace cli
