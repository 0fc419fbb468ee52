#include "plain_getters.h"

#include <algorithm>
#include <cstring>

namespace bench {
namespace {

const std::string kParameterFields =
    "Parameter_id, user_constant, category_id, category_name, parameter_name, nibble_data_id, dec_data_id, "
    "decdata_num, volatile_address, nonvolatile_address, size, unit, unit_multiplier, unit_name, max, min, "
    "max_check, min_check, initial_value, edit_type, disp_type, user_level, access_level, sv_control_type, "
    "control_mode, effective_timing, fixed_id, parameter_help";

const std::string kMonitorFields =
    "monitor_id, category_name_id, category_name, monitor_name, display_type, on_content, off_content, size, "
    "unit, unit_multiplier, unit_name, bit_position, address, access_level, sv_control_type, fixed_id, "
    "parameter_help";

template <std::size_t Size>
void Copy(std::string_view text, char (&field)[Size]) {
    const std::size_t length = std::min(text.size(), Size - 1);
    std::memcpy(field, text.data(), length);
    field[length] = '\0';
}

// Reads the columns of a row one after another into a zeroed record.
class Row {
  public:
    explicit Row(const Query& query) : query_(query) {}

    template <class Number>
    void operator>>(Number& field) {
        field = static_cast<Number>(query_.Number(column_++));
    }
    void operator>>(float& field) { field = static_cast<float>(query_.Real(column_++)); }
    template <std::size_t Size>
    void operator>>(char (&field)[Size]) {
        Copy(query_.Text(column_++), field);
    }

  private:
    const Query& query_;
    int column_ = 0;
};

void Fill(const Query& query, KaloUserParameter& record) {
    record = {};
    Row row(query);
    row >> record.parameter_id;
    row >> record.user_constant;
    row >> record.category_id;
    row >> record.category_name;
    row >> record.parameter_name;
    row >> record.nibble_data_id;
    row >> record.dec_data_id;
    row >> record.decdata_num;
    row >> record.volatile_address;
    row >> record.nonvolatile_address;
    row >> record.size;
    row >> record.unit;
    row >> record.unit_multiplier;
    row >> record.unit_name;
    row >> record.max;
    row >> record.min;
    row >> record.max_check;
    row >> record.min_check;
    row >> record.initial_value;
    row >> record.edit_type;
    row >> record.disp_type;
    row >> record.user_level;
    row >> record.access_level;
    row >> record.sv_control_type;
    row >> record.control_mode;
    row >> record.effective_timing;
    row >> record.fixed_id;
    row >> record.parameter_help;
}

void Fill(const Query& query, KaloMonitor& record) {
    record = {};
    Row row(query);
    row >> record.monitor_id;
    row >> record.category_name_id;
    row >> record.category_name;
    row >> record.monitor_name;
    row >> record.display_type;
    row >> record.on_text;
    row >> record.off_text;
    row >> record.size;
    row >> record.unit;
    row >> record.unit_multiplier;
    row >> record.unit_name;
    row >> record.bit_position;
    row >> record.address;
    row >> record.access_level;
    row >> record.control_type_mask;
    row >> record.fixed_id;
    row >> record.help_reference;
}

void Fill(const Query& query, KaloAlarm& record) {
    record = {};
    Row row(query);
    row >> record.alarm_code;
    row >> record.alarm_name;
    row >> record.alo;
    row >> record.help_reference;
}

constexpr int kConditions = 10;

std::string DiagnosisStatement(const std::string& monitors) {
    std::string fields;
    std::string joins;
    for (int i = 1; i <= kConditions; ++i) {
        const std::string number = std::to_string(i);
        fields += ", m" + number + ".monitor_id, d.condition_" + number + ", d.value_" + number;
        joins += " LEFT JOIN [" + monitors + "] m" + number + " ON d.fixed_id_" + number + " = m" + number +
                 ".fixed_id";
    }
    return "SELECT d.type, c.string, f.string, p.string" + fields +
           " FROM alarm_diag d LEFT JOIN FunctionStrings c ON d.confirm = c.string_id"
           " LEFT JOIN FunctionStrings f ON d.factor = f.string_id"
           " LEFT JOIN FunctionStrings p ON d.plan = p.string_id" +
           joins + " WHERE d.alarm_code = ?1 ORDER BY d.priority";
}

void Fill(const Query& row, KaloAlarmDiagnosis& record) {
    record.condition_count = 0;
    Copy(row.Text(1), record.confirm);
    Copy(row.Text(2), record.factor);
    Copy(row.Text(3), record.plan);
    std::fill(std::begin(record.conditions), std::end(record.conditions),
              KaloAlarmCondition{KALO_NONE, KALO_NONE, 0});
    for (int i = 0; i < kConditions; ++i) {
        const int column = 4 + 3 * i;
        KaloAlarmCondition& entry = record.conditions[i];
        if (!row.IsNull(column + 1)) entry.condition = static_cast<std::uint16_t>(row.Number(column + 1));
        if (entry.condition == KALO_NONE) break;
        if (!row.IsNull(column)) entry.monitor_id = static_cast<std::uint32_t>(row.Number(column));
        entry.value = static_cast<std::uint32_t>(row.Number(column + 2));
        ++record.condition_count;
    }
}

bool Includes(std::int64_t type, int types) {
    return type == 0 || (type & types) != 0;
}

template <class Record>
bool ReadOne(Query* query, int key, Record& record) {
    if (query == nullptr) return false;
    query->Bind(1, key);
    const bool found = query->Step();
    if (found) Fill(*query, record);
    query->Reset();
    return found;
}

template <class Record>
int ReadAll(Query* query, int count, Record* records) {
    if (query == nullptr) return 0;
    int read = 0;
    while (read < count && query->Step())
        Fill(*query, records[read++]);
    query->Reset();
    return read;
}

}  // namespace

PlainGetters::PlainGetters(const PlainDatabase& database)
    : database_(database),
      parameter_(MakeQuery("userparameter_table", kParameterFields, " WHERE Parameter_id = ?1")),
      parameters_(MakeQuery("userparameter_table", kParameterFields, " ORDER BY Parameter_id")),
      monitor_(MakeQuery("monitor_table", kMonitorFields, " WHERE monitor_id = ?1")),
      monitors_(MakeQuery("monitor_table", kMonitorFields, " ORDER BY monitor_id")),
      alarm_(
          MakeQuery("dispalarm_table", "alarm_code, alarm_name, alo, help_path", " WHERE alarm_code = ?1")),
      identity_(database.Prepare("SELECT servo_id, option_id, sFirm_version, sCmod_version, oFirm_version, "
                                 "oCmod_version FROM tablemanager WHERE axis_num = ?1")),
      monitorTable_(database.Prepare("SELECT monitor_table FROM tablemanager WHERE axis_num = ?1")) {}

PlainGetters::OnTable PlainGetters::MakeQuery(const std::string& column, const std::string& fields,
                                              const std::string& tail) const {
    OnTable query;
    query.axisRow = database_.Prepare("SELECT " + column + " FROM tablemanager WHERE axis_num = ?1");
    query.head = "SELECT " + fields + " FROM [";
    query.tail = "]" + tail;
    return query;
}

Query* PlainGetters::For(OnTable& query, int axis) const {
    query.axisRow.Bind(1, axis);
    if (!query.axisRow.Step()) return nullptr;
    const std::string table(query.axisRow.Text(0));
    query.axisRow.Reset();
    Query& onTable = query.byTable[table];
    if (!onTable) onTable = database_.Prepare(query.head + table + query.tail);
    return &onTable;
}

bool PlainGetters::UserParameter(int axis, int id, KaloUserParameter& record) {
    return ReadOne(For(parameter_, axis), id, record);
}

int PlainGetters::UserParameters(int axis, int count, KaloUserParameter* records) {
    return ReadAll(For(parameters_, axis), count, records);
}

bool PlainGetters::Monitor(int axis, int id, KaloMonitor& record) {
    return ReadOne(For(monitor_, axis), id, record);
}

int PlainGetters::Monitors(int axis, int count, KaloMonitor* records) {
    return ReadAll(For(monitors_, axis), count, records);
}

bool PlainGetters::Alarm(int axis, int code, KaloAlarm& record) {
    return ReadOne(For(alarm_, axis), code, record);
}

int PlainGetters::Diagnoses(int axis, int code, int types, KaloAlarmDiagnosis* records) {
    identity_.Bind(1, axis);
    identity_.Step();
    identity_.Reset();
    database_.Run("CREATE TABLE tempAlarm_diag AS SELECT * FROM alarm_diag");
    monitorTable_.Bind(1, axis);
    monitorTable_.Step();
    const std::string monitors(monitorTable_.Text(0));
    monitorTable_.Reset();
    int count = 0;
    Query counting =
        database_.Prepare("SELECT type FROM tempAlarm_diag WHERE alarm_code = " + std::to_string(code));
    while (counting.Step())
        count += Includes(counting.Number(0), types) ? 1 : 0;
    counting = {};
    // A copied table makes every prepared statement stale: this one is as well prepared anew.
    Query query = database_.Prepare(DiagnosisStatement(monitors));
    query.Bind(1, code);
    int read = 0;
    while (read < count && query.Step()) {
        if (Includes(query.Number(0), types)) Fill(query, records[read++]);
    }
    query = {};
    database_.Run("DROP TABLE tempAlarm_diag");
    return read;
}

}  // namespace bench
