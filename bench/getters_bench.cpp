#include <cstring>
#include <vector>

#include "pair.h"
#include "plain_getters.h"
#include "stage.h"

namespace bench {
namespace {

constexpr int kAxis = 1;
constexpr double kRecordBudget = 1.0;
constexpr double kBulkBudget = 1.3;
constexpr int kShuffled = 3'000;  // the one size whose rows are stored far from the order of their keys
constexpr int kSizes[] = {2'000, kShuffled, 20'000, 200'000};

std::string ColumnList(const PlainDatabase& file, const std::string& table, const std::string& key) {
    std::string list;
    Query columns = file.Prepare("PRAGMA table_info([" + table + "])");
    while (columns.Step()) {
        const std::string name(columns.Text(1));
        list += (list.empty() ? "" : ", ") + (name == key ? "n.i" : "b.[" + name + "]");
    }
    return list;
}

// A table as a builder leaves it, with as many rows as asked for: those of a built table again and again,
// under keys from 1.
std::string MakeLarge(const PlainDatabase& file, const std::string& built, const std::string& key, int rows) {
    const std::string table = "Large_" + key + "_" + std::to_string(rows);
    Query definition = file.Prepare("SELECT sql FROM sqlite_schema WHERE name = '" + built + "'");
    definition.Step();
    std::string sql(definition.Text(0));
    sql.replace(sql.find(built), built.size(), table);
    definition = {};
    file.Run(sql);
    file.Run("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
             std::to_string(rows) + ") INSERT INTO [" + table + "] SELECT " + ColumnList(file, built, key) +
             " FROM n JOIN (SELECT row_number() OVER () - 1 AS place, * FROM [" + built +
             "]) AS b ON b.place = n.i % (SELECT count(*) FROM [" + built + "]) ORDER BY " +
             (rows == kShuffled ? "n.i * 7919 % " + std::to_string(rows) : "n.i"));
    return table;
}

std::string TableOf(const PlainDatabase& file, const char* column) {
    Query row = file.Prepare(std::string("SELECT ") + column + " FROM tablemanager WHERE axis_num = 1");
    row.Step();
    return std::string(row.Text(0));
}

constexpr struct {
    const char* column;
    const char* key;
} kKinds[] = {{"userparameter_table", "Parameter_id"},
              {"monitor_table", "monitor_id"},
              {"dispalarm_table", "alarm_code"}};

void MakeLargeTables(const PlainDatabase& file) {
    BuildParameters(kDrive, kAxis);
    BuildMonitors(kDrive, kAxis);
    BuildAlarms(kDrive, kAxis);
    file.Run("BEGIN");
    for (const int rows : kSizes) {
        std::string columns;
        std::string values;
        for (const auto& kind : kKinds) {
            columns += std::string(", ") + kind.column;
            values += ", '" + MakeLarge(file, TableOf(file, kind.column), kind.key, rows) + "'";
        }
        file.Run("INSERT INTO tablemanager (axis_num" + columns + ") VALUES (" + std::to_string(rows / 1000) +
                 values + ")");
    }
    file.Run("COMMIT");
}

void IndexKeys(const PlainDatabase& plain) {
    Query names = plain.Prepare("SELECT name FROM sqlite_schema WHERE name LIKE 'Large%'");
    std::vector<std::string> tables;
    while (names.Step())
        tables.emplace_back(names.Text(0));
    names = {};
    for (const std::string& table : tables) {
        const std::string key = table.substr(6, table.rfind('_') - 6);
        plain.Run("CREATE INDEX [" + table + "_key] ON [" + table + "] ([" + key + "])");
    }
    for (const auto& kind : kKinds) {
        const std::string table = TableOf(plain, kind.column);
        plain.Run("CREATE INDEX [" + table + "_key] ON [" + table + "] ([" + kind.key + "])");
    }
}

// One stage for all getters: making the large tables takes longer than measuring them.
const Stage& LargeStage() {
    static Stage* stage = nullptr;
    if (stage == nullptr) {
        stage = new Stage(MakeLargeTables);
        IndexKeys(stage->Plain());
    }
    return *stage;
}

const PlainDatabase& LargeTables() {
    return LargeStage().Plain();
}

// A host asks for one key after another; neighbours are far apart so that nothing at hand helps.
class Keys {
  public:
    explicit Keys(int rows) : rows_(rows) {}
    int Next() { return last_ = (last_ + 7919) % rows_ + 1; }

  private:
    int rows_;
    int last_ = 0;
};

// Both sides must give one record, to the byte.
template <class Record, class Library, class Plain>
bool Agree(int rows, Library library, Plain plain) {
    Keys keys(rows);
    for (int i = 0; i < 200; ++i) {
        const int key = keys.Next();
        Record a{};
        Record b{};
        library(key, a);
        plain(key, b);
        if (std::memcmp(&a, &b, sizeof(Record)) != 0) return false;
    }
    return true;
}

template <class Record, class Library, class Plain>
void OneRecord(benchmark::State& state, int rows, Library library, Plain plain) {
    if (!Agree<Record>(rows, library, plain)) {
        state.SkipWithError("the two sides give different records");
        return;
    }
    Keys libraryKeys(rows);
    Keys plainKeys(rows);
    Record record{};
    Measure(state, {[&] { library(libraryKeys.Next(), record); }, [&] { plain(plainKeys.Next(), record); },
                    kRecordBudget, 200});
}

void UserParameter(benchmark::State& state, int rows) {
    PlainGetters getters(LargeTables());
    const auto axis = static_cast<std::int16_t>(rows / 1000);
    OneRecord<KaloUserParameter>(
        state, rows,
        [&](int id, auto& record) { Check(KaloGetUParaInfo(axis, id, &record), "KaloGetUParaInfo"); },
        [&](int id, auto& record) { getters.UserParameter(axis, id, record); });
}

void Monitor(benchmark::State& state, int rows) {
    PlainGetters getters(LargeTables());
    const auto axis = static_cast<std::int16_t>(rows / 1000);
    OneRecord<KaloMonitor>(
        state, rows,
        [&](int id, auto& record) { Check(KaloGetMonitorInfo(axis, id, &record), "KaloGetMonitorInfo"); },
        [&](int id, auto& record) { getters.Monitor(axis, id, record); });
}

void Alarm(benchmark::State& state, int rows) {
    PlainGetters getters(LargeTables());
    const auto axis = static_cast<std::int16_t>(rows / 1000);
    OneRecord<KaloAlarm>(
        state, rows,
        [&](int id, auto& record) { Check(KaloGetAlarmInfo(axis, id, &record), "KaloGetAlarmInfo"); },
        [&](int id, auto& record) { getters.Alarm(axis, id, record); });
}

template <class Record, class Library, class Plain>
void Bulk(benchmark::State& state, int count, Library library, Plain plain,
          const std::function<void()>& before = {}) {
    const auto size = static_cast<std::size_t>(count);
    std::vector<Record> a(size);
    std::vector<Record> b(size);
    library(a.data());
    plain(b.data());
    if (std::memcmp(a.data(), b.data(), size * sizeof(Record)) != 0) {
        state.SkipWithError("the two sides give different records");
        return;
    }
    Measure(state, {[&] { library(a.data()); }, [&] { plain(b.data()); }, kBulkBudget, 1, before, {}});
}

void UserParameters(benchmark::State& state, int axis, int count, const std::function<void()>& before = {}) {
    PlainGetters getters(LargeTables());
    const auto number = static_cast<std::int16_t>(axis);
    Bulk<KaloUserParameter>(
        state, count,
        [&](auto* records) {
            Check(KaloGetAllUParaInfo(number, static_cast<std::int16_t>(count), records),
                  "KaloGetAllUParaInfo");
        },
        [&](auto* records) { getters.UserParameters(axis, count, records); }, before);
}

// What the library has kept of earlier calls does not hold.
void UserParametersAnew(benchmark::State& state, int axis, int count) {
    UserParameters(state, axis, count, [] { LargeStage().ChangeByOthers(); });
}

void Monitors(benchmark::State& state, int axis, int count) {
    PlainGetters getters(LargeTables());
    const auto number = static_cast<std::int16_t>(axis);
    Bulk<KaloMonitor>(
        state, count,
        [&](auto* records) {
            Check(KaloGetAllMonitorInfo(number, static_cast<std::uint16_t>(count), records),
                  "KaloGetAllMonitorInfo");
        },
        [&](auto* records) { getters.Monitors(axis, count, records); });
}

void Diagnosis(benchmark::State& state) {
    constexpr int kAlarm = 0xA30A;
    constexpr int kAllTypes = 0xFFFF;
    PlainGetters getters(LargeTables());
    std::vector<KaloAlarmDiagnosis> records(16);
    std::vector<KaloAlarmDiagnosis> plainRecords(16);
    Measure(state,
            {[&] {
                 Check(KaloGetAlarmDiagData(kAxis, kAlarm, kAllTypes, records.data()),
                       "KaloGetAlarmDiagData");
             },
             [&] { getters.Diagnoses(kAxis, kAlarm, kAllTypes, plainRecords.data()); }, kBulkBudget, 4});
    if (records[0].condition_count != plainRecords[0].condition_count ||
        std::strcmp(records[0].factor, plainRecords[0].factor) != 0)
        state.SkipWithError("the two sides give different records");
}

constexpr int kTurns = 60;
constexpr int kLongTurns = 15;

BENCHMARK_CAPTURE(UserParameter, 2000_rows, 2'000)
    ->Name("KaloGetUParaInfo, 2,000 rows")
    ->Iterations(kTurns)
    ->UseManualTime();
BENCHMARK_CAPTURE(UserParameter, 20000_rows, 20'000)
    ->Name("KaloGetUParaInfo, 20,000 rows")
    ->Iterations(kTurns)
    ->UseManualTime();
BENCHMARK_CAPTURE(UserParameter, 200000_rows, 200'000)
    ->Name("KaloGetUParaInfo, 200,000 rows")
    ->Iterations(kTurns)
    ->UseManualTime();
BENCHMARK_CAPTURE(Monitor, 2000_rows, 2'000)
    ->Name("KaloGetMonitorInfo, 2,000 rows")
    ->Iterations(kTurns)
    ->UseManualTime();
BENCHMARK_CAPTURE(Monitor, 20000_rows, 20'000)
    ->Name("KaloGetMonitorInfo, 20,000 rows")
    ->Iterations(kTurns)
    ->UseManualTime();
BENCHMARK_CAPTURE(Monitor, 200000_rows, 200'000)
    ->Name("KaloGetMonitorInfo, 200,000 rows")
    ->Iterations(kTurns)
    ->UseManualTime();
BENCHMARK_CAPTURE(Alarm, 2000_rows, 2'000)
    ->Name("KaloGetAlarmInfo, 2,000 rows")
    ->Iterations(kTurns)
    ->UseManualTime();
BENCHMARK_CAPTURE(Alarm, 20000_rows, 20'000)
    ->Name("KaloGetAlarmInfo, 20,000 rows")
    ->Iterations(kTurns)
    ->UseManualTime();
BENCHMARK_CAPTURE(Alarm, 200000_rows, 200'000)
    ->Name("KaloGetAlarmInfo, 200,000 rows")
    ->Iterations(kTurns)
    ->UseManualTime();
BENCHMARK_CAPTURE(UserParameters, sample, kAxis, 485)
    ->Name("KaloGetAllUParaInfo, sample")
    ->Iterations(kTurns)
    ->UseManualTime();
BENCHMARK_CAPTURE(UserParameters, 2000_rows, 2, 2'000)
    ->Name("KaloGetAllUParaInfo, 2,000 rows")
    ->Iterations(kTurns)
    ->UseManualTime();
BENCHMARK_CAPTURE(UserParameters, 20000_rows, 20, 20'000)
    ->Name("KaloGetAllUParaInfo, 20,000 rows")
    ->Iterations(kLongTurns)
    ->UseManualTime();
BENCHMARK_CAPTURE(UserParameters, shuffled, kShuffled / 1000, kShuffled)
    ->Name("KaloGetAllUParaInfo, 3,000 rows, shuffled")
    ->Iterations(kTurns)
    ->UseManualTime();
BENCHMARK_CAPTURE(UserParametersAnew, sample, kAxis, 485)
    ->Name("KaloGetAllUParaInfo, sample, file just changed")
    ->Iterations(kTurns)
    ->UseManualTime();
BENCHMARK_CAPTURE(UserParametersAnew, 20000_rows, 20, 20'000)
    ->Name("KaloGetAllUParaInfo, 20,000, file just changed")
    ->Iterations(kLongTurns)
    ->UseManualTime();
BENCHMARK_CAPTURE(Monitors, sample, kAxis, 160)
    ->Name("KaloGetAllMonitorInfo, sample")
    ->Iterations(kTurns)
    ->UseManualTime();
BENCHMARK_CAPTURE(Monitors, 2000_rows, 2, 2'000)
    ->Name("KaloGetAllMonitorInfo, 2,000 rows")
    ->Iterations(kTurns)
    ->UseManualTime();
BENCHMARK_CAPTURE(Monitors, 20000_rows, 20, 20'000)
    ->Name("KaloGetAllMonitorInfo, 20,000 rows")
    ->Iterations(kLongTurns)
    ->UseManualTime();
BENCHMARK(Diagnosis)->Name("KaloGetAlarmDiagData, ten conditions")->Iterations(kTurns)->UseManualTime();

}  // namespace
}  // namespace bench
