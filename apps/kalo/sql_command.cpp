#include <fmt/format.h>

#include <memory>

#include "commands.h"
#include "dao_rows.h"
#include "options.h"
#include "progress.h"
#include "system.h"
#include "text.h"
#include "working_copy.h"

namespace cli {
namespace {

struct Options {
    std::string file;
    std::vector<std::string> statements;
    std::string password = "mivmiv";  // the one that the library opens databases with
    Format format = Format::Table;
};

void PrintTouched(long rows, Format format) {
    if (format == Format::Table)
        PrintText(fmt::format("{} {}\n", rows, rows == 1 ? "row" : "rows"));
    else
        Print({{{"rows"}}, {{rows}}}, format);
}

void RunStatement(CDaoDatabase& database, const std::string& sql, const Options& options) {
    std::optional<long> touched;
    Table rows;
    {
        // The first statement converts the file.
        const Progress progress("converting " + options.file);
        touched = Execute(database, sql);
        if (!touched) rows = Select(database, sql);
    }
    if (touched)
        PrintTouched(*touched, options.format);
    else
        Print(rows, options.format);
}

void Run(const Options& options) {
    const WorkingCopy copy(options.file);
    OpenDatabase database(SystemFromPath(copy.Path()), options.password);
    bool first = true;
    for (const std::string& statement : options.statements) {
        if (!first && options.format == Format::Table) PrintText("\n");
        first = false;
        RunStatement(*database, Utf8FromSystem(statement), options);
    }
}

}  // namespace

void AddSqlCommand(CLI::App& app) {
    CLI::App* command =
        app.add_subcommand("sql", "Run Jet SQL statements, in order, on a copy of a database");
    auto options = std::make_shared<Options>();
    command->add_option("FILE", options->file, "Any .mdb file; it is never written to")->required();
    command->add_option("STATEMENT", options->statements, "Statements, one an argument")->required();
    command->add_option("--password", options->password, "Password of the database (default: the library's)");
    AddFormat(*command, options->format);
    command->final_callback([options] { Run(*options); });
}

}  // namespace cli
