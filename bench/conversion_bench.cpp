#include <afxdao.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iostream>

#include "pair.h"
#include "stage.h"

namespace bench {
namespace {

// At least five times as fast.
constexpr double kBudget = 0.2;

namespace fs = std::filesystem;

double WallSeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// Every table by mdb-export, in one transaction of sqlite3.
void WriteExportScript(const fs::path& script) {
    std::ofstream(script) << "set -e\n"
                             "{ echo 'BEGIN;'\n"
                             "  mdb-schema \"$1\" sqlite\n"
                             "  mdb-tables -1 \"$1\" | while read -r table; do\n"
                             "    mdb-export -I sqlite \"$1\" \"$table\"\n"
                             "  done\n"
                             "  echo 'COMMIT;'; } | sqlite3 \"$2\"\n";
}

void Convert(const fs::path& file) {
    try {
        CDaoDatabase database;
        database.Open(file.c_str(), FALSE, FALSE, ";PWD=mivmiv");
        CDaoRecordset rows(&database);
        rows.Open(dbOpenDynaset, "SELECT * FROM [mdbname]", 0);
    } catch (CDaoException* exception) {
        std::cerr << "the conversion failed: " << exception->m_pErrorInfo->m_lErrorCode << '\n';
        std::exit(EXIT_FAILURE);
    }
}

// Both sides by the clock: the other one is several processes.
void Conversion(benchmark::State& state) {
    const Directory directory;
    const fs::path sample = fs::path(KALO_SAMPLE_DIR) / "IdeInfo.mdb";
    const fs::path script = directory.File("export.sh");
    WriteExportScript(script);
    const std::string exportCommand = "sh '" + script.string() + "' '" + sample.string() + "' '" +
                                      directory.File("export.db").string() + "'";
    double library = 0;
    double plain = 0;
    int turn = 0;
    for (auto _ : state) {
        const fs::path file = directory.File("converted.mdb");
        for (const char* leftover : {"converted.mdb", "converted.mdb.jet", "export.db"})
            fs::remove(directory.File(leftover));
        fs::copy_file(sample, file);
        fs::permissions(file, fs::perms::owner_write, fs::perm_options::add);
        const double start = WallSeconds();
        Convert(file);
        const double between = WallSeconds();
        if (std::system(exportCommand.c_str()) != 0)
            return state.SkipWithError("mdb-export | sqlite3 failed");
        const double end = WallSeconds();
        state.SetIterationTime(between - start);
        // The fastest turn of each is the least disturbed one.
        library = turn == 0 ? between - start : std::min(library, between - start);
        plain = turn++ == 0 ? end - between : std::min(plain, end - between);
    }
    Report(state, library, plain, library / plain, kBudget);
}

BENCHMARK(Conversion)->Name("conversion of IdeInfo.mdb")->Iterations(7)->UseManualTime();

}  // namespace
}  // namespace bench
