#pragma once

#include <CLI/CLI.hpp>

// Each adds one command, which runs when the command line names it.
namespace cli {

void AddInfoCommand(CLI::App& app);
void AddParamsCommand(CLI::App& app);
void AddAxisCommand(CLI::App& app);
void AddSqlCommand(CLI::App& app);
void AddMonitorsCommand(CLI::App& app);
void AddAlarmsCommand(CLI::App& app);
void AddIoCommand(CLI::App& app);
void AddTracesCommand(CLI::App& app);
void AddModelsCommand(CLI::App& app);
void AddMotorsCommand(CLI::App& app);
void AddEncodersCommand(CLI::App& app);
void AddHelpCommand(CLI::App& app);
void AddStatusCommand(CLI::App& app);

}  // namespace cli
