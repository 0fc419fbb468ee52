#include <fmt/format.h>
#include <kalodata/catalogue.h>
#include <kalodata/session.h>

#include <memory>

#include "commands.h"
#include "dao_rows.h"
#include "facts.h"
#include "models.h"
#include "options.h"
#include "progress.h"
#include "session.h"
#include "status_words.h"
#include "system.h"
#include "text.h"

namespace cli {
namespace {

// Answers of KaloGetMdbName for a file that does not say what it was copied from.
constexpr KaloStatus kNoDescription = 0x2BFF0125;
constexpr KaloStatus kNoName = 0x2BFF0126;

struct ModelCount {
    std::uint16_t kind;
    std::uint16_t subKind;
    const char* words;
};

constexpr ModelCount kModelCounts[] = {
    {1, 0, "amplifier types known off-line"}, {1, 1, "models without a type known off-line"},
    {2, 0, "types of rotary amplifiers"},     {2, 1, "types of linear amplifiers"},
    {3, 0, "option units known off-line"},    {3, 1, "option units"},
};

void AddFileFacts(CDaoDatabase& database, Facts& facts) {
    const Table file = Select(database, "SELECT [mdb_version], [mdb_status] FROM [mdbname] WHERE [id] = 1");
    if (file.rows.empty()) return;
    facts.Add("file", "version", file.rows[0][0]);
    facts.Add("file", "status", file.rows[0][1]);
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

Facts ReadDatabaseFacts(const CommonOptions& options) {
    Facts facts;
    const WorkingCopy copy(options.file);
    const Progress progress("converting " + options.file);
    OpenDatabase database(SystemFromPath(copy.Path()), "mivmiv");
    AddDatabaseFacts(*database, facts);
    return facts;
}

void AddShippedName(Facts& facts) {
    char name[KALO_MDB_NAME_SIZE] = {};
    const KaloStatus status = KaloGetMdbName(name);
    if (status == kNoDescription || status == kNoName) return;
    Check("KaloGetMdbName", status);
    facts.Add("file", "name", FieldText(name));
}

void AddModelFacts(Facts& facts) {
    for (const ModelCount& wanted : kModelCounts) {
        std::uint16_t count = 0;
        Check("KaloGetModelNumber", KaloGetModelNumber(wanted.kind, wanted.subKind, &count));
        facts.Add("number of", wanted.words, count);
    }
    for (const Model& model : ReadModels()) {
        const std::string unit = model.optionName.empty() ? "" : " with " + model.optionName;
        facts.Add("model", DeviceOf(model.id, model.option), model.name + unit);
    }
}

void Show(const CommonOptions& options) {
    // A file that is no database fails here, with the engine's words.
    const Facts database = ReadDatabaseFacts(options);
    const Session session(options);
    Facts facts;
    AddShippedName(facts);
    facts.Append(database);
    AddModelFacts(facts);
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
