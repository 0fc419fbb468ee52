#include <fmt/format.h>
#include <kalodata/catalogue.h>
#include <kalodata/parameters.h>
#include <kalodata/session.h>

#include <memory>

#include "commands.h"
#include "dao_rows.h"
#include "models.h"
#include "options.h"
#include "progress.h"
#include "session.h"
#include "system.h"
#include "text.h"

namespace cli {
namespace {

// An answer of many small lists, as rows of a subject, an item and its value.
class Facts {
  public:
    void Add(const char* subject, Cell item, Cell value) {
        table_.rows.push_back({subject, std::move(item), std::move(value)});
    }
    const Table& Rows() const { return table_; }

  private:
    Table table_{{{"subject"}, {"item"}, {"value"}}, {}};
};

void AddFileFacts(CDaoDatabase& database, Facts& facts) {
    const Table file =
        Select(database, "SELECT [mdbname], [mdb_version], [mdb_status] FROM [mdbname] WHERE [id] = 1");
    if (file.rows.empty()) return;
    facts.Add("file", "name", file.rows[0][0]);
    facts.Add("file", "version", file.rows[0][1]);
    facts.Add("file", "status", file.rows[0][2]);
}

std::vector<std::string> TableNames(CDaoDatabase& database) {
    std::vector<std::string> names;
    const short count = database.GetTableDefCount();
    CDaoTableDefInfo table;
    for (short index = 0; index < count; ++index) {
        database.GetTableDefInfo(index, table);
        names.push_back(Utf8FromSystem(LPCTSTR(table.m_strName)));
    }
    return names;
}

void AddTableFacts(CDaoDatabase& database, Facts& facts) {
    for (const std::string& name : TableNames(database)) {
        const Table count = Select(database, fmt::format("SELECT COUNT(*) FROM [{}]", name));
        facts.Add("table rows", name, count.rows[0][0]);
    }
}

void AddLanguageFacts(CDaoDatabase& database, Facts& facts) {
    const Table languages =
        Select(database,
               "SELECT [country_id], COUNT(*) FROM [paraname] GROUP BY [country_id] ORDER BY [country_id]");
    for (const auto& row : languages.rows)
        facts.Add("language", row[0], fmt::format("{} parameter names", row[1].Text()));
}

std::string DeviceOf(const Cell& model, const Cell& option) {
    const bool optionUnit = option.Text() != std::to_string(KALO_NO_OPTION);
    return optionUnit ? fmt::format("model {} with option {}", model.Text(), option.Text())
                      : fmt::format("model {}", model.Text());
}

// The versions of one kind that the changes of the user parameters know, a row for every device.
void AddVersionFacts(CDaoDatabase& database, const char* subject, const char* statement, Facts& facts) {
    std::string device;
    std::string versions;
    for (const auto& row : Select(database, statement).rows) {
        const std::string next = DeviceOf(row[0], row[1]);
        if (next != device && !device.empty()) facts.Add(subject, device, versions);
        versions = next == device ? fmt::format("{}, {}", versions, row[2].Text()) : row[2].Text();
        device = next;
    }
    if (!device.empty()) facts.Add(subject, device, versions);
}

void AddDatabaseFacts(CDaoDatabase& database, Facts& facts) {
    AddFileFacts(database, facts);
    AddLanguageFacts(database, facts);
    AddVersionFacts(database, "changed by firmware",
                    "SELECT DISTINCT [model_id], [option_id], [firm_id] FROM [FirmUPara] ORDER BY 1, 2, 3",
                    facts);
    AddVersionFacts(database, "changed by custom spec",
                    "SELECT DISTINCT [model_id], [option_id], [cmod_id] FROM [CmodUPara] ORDER BY 1, 2, 3",
                    facts);
    AddTableFacts(database, facts);
}

void Show(const CommonOptions& options) {
    Facts facts;
    {
        const WorkingCopy copy(options.file);
        const Progress progress("converting " + options.file);
        OpenDatabase database(SystemFromPath(copy.Path()), "mivmiv");
        AddDatabaseFacts(*database, facts);
    }
    const Session session(options);
    for (const Model& model : ReadModels()) {
        const std::string unit = model.optionName.empty() ? "" : " with " + model.optionName;
        facts.Add("model", DeviceOf(model.id, model.option), model.name + unit);
    }
    Print(facts.Rows(), options.format);
}

}  // namespace

void AddInfoCommand(CLI::App& app) {
    CLI::App* command =
        app.add_subcommand("info", "Name, version, languages, models and tables of a database");
    auto options = std::make_shared<CommonOptions>();
    AddCommon(*command, *options);
    command->final_callback([options] { Show(*options); });
}

}  // namespace cli
