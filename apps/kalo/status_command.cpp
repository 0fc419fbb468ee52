#include <fmt/format.h>

#include <memory>

#include "commands.h"
#include "failure.h"
#include "options.h"
#include "status_words.h"

namespace cli {
namespace {

struct Options {
    KaloStatus code = 0;
    Format format = Format::Table;
};

Table MeaningsTable(KaloStatus code) {
    Table table{{{"code", Shown::Hex}, {"function"}, {"case"}, {"dao_error"}, {"dao_words"}}, {}};
    for (const auto& [entry, daoError] : MeaningsOf(code)) {
        const bool bare = entry->withDao && daoError == 0;
        const std::string words =
            bare ? fmt::format("{} (with a DAO error number added)", entry->words) : entry->words;
        table.rows.push_back({code, entry->functions, words, daoError == 0 ? Cell() : Cell(daoError),
                              daoError == 0 ? Cell() : Cell(DaoWords(daoError))});
    }
    return table;
}

void Show(const Options& options) {
    if (options.code == 0) {
        Print({{{"code", Shown::Hex}, {"function"}, {"case"}}, {{0, "every function", "success"}}},
              options.format);
        return;
    }
    const Table table = MeaningsTable(options.code);
    if (table.rows.empty())
        throw Failure(fmt::format("no function returns the status 0x{:08X}", options.code));
    Print(table, options.format);
}

}  // namespace

void AddStatusCommand(CLI::App& app) {
    CLI::App* command = app.add_subcommand("status", "Say in words what a status code of the library means");
    auto options = std::make_shared<Options>();
    AddNumber(*command, "CODE", options->code, "Status code, as 0x2B010BD7")->required();
    AddFormat(*command, options->format);
    command->final_callback([options] { Show(*options); });
}

}  // namespace cli
