// kalo: asks knowledge databases on the command line. Exit codes: 0, 1 the question failed, 2 wrong usage.

#include <cstdio>

#include "commands.h"
#include "failure.h"
#include "system.h"
#include "text.h"

namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

void AddCommands(CLI::App& app) {
    cli::AddInfoCommand(app);
    cli::AddModelsCommand(app);
    cli::AddParamsCommand(app);
    cli::AddMonitorsCommand(app);
    cli::AddAlarmsCommand(app);
    cli::AddIoCommand(app);
    cli::AddTracesCommand(app);
    cli::AddMotorsCommand(app);
    cli::AddEncodersCommand(app);
    cli::AddHelpCommand(app);
    cli::AddAxisCommand(app);
    cli::AddSqlCommand(app);
    cli::AddStatusCommand(app);
}

int Run(CLI::App& app, int count, char** arguments) {
    try {
        app.parse(count, arguments);
        if (app.get_subcommands().empty()) throw CLI::RequiredError("a command");
        return 0;
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : kWrongUsage;
    } catch (const cli::EngineFailure& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "kalo: %s\n", failure.what());
    }
    return kFailed;
}

}  // namespace

int main(int count, char** arguments) {
    cli::PrepareStreams();
    CLI::App app(
        "Asks a knowledge database of servo amplifiers: what a drive's parameters, monitors, alarms, signals "
        "and traces are for its versions, and which devices there are.",
        "kalo");
    // The same command lines everywhere: on Windows /x is no option either.
    app.allow_windows_style_options(false);
    AddCommands(app);
    return Run(app, count, arguments);
}
