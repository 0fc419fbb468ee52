#include "plain_builders.h"

#include <algorithm>

namespace bench {

struct PlainBuilders::Family {
    struct Key {
        std::string work;
        std::string firmware;    // its name in the firmware's delta table
        std::string customSpec;  // and in that of the custom specification
    };

    std::string firmwareTable;
    std::string customSpecTable;
    std::vector<Key> keys;              // of a modify
    std::string deleteKey;              // of a delete
    std::vector<std::string> modified;  // columns
    std::vector<std::string>
        insertedFrom;  // further columns of an insert; the keys that are no data come first
};

namespace {

using Columns = std::vector<std::string>;

std::string Text(int number) {
    return std::to_string(number);
}

std::string Joined(const Columns& columns, const std::string& before = "") {
    std::string text;
    for (const std::string& column : columns)
        text += (text.empty() ? "" : ", ") + before + "[" + column + "]";
    return text;
}

std::string Assignments(const Columns& columns) {
    std::string text;
    for (const std::string& column : columns)
        text += (text.empty() ? "[" : ", [") + column + "] = x.[" + column + "]";
    return text;
}

const Columns kParameterColumns = {"user_constant",
                                   "category_name_id",
                                   "parameter_name_id",
                                   "nibble_data_id",
                                   "dec_data_id",
                                   "decdata_num",
                                   "nonvolatile_address",
                                   "volatile_address",
                                   "size",
                                   "max",
                                   "min",
                                   "max_check",
                                   "min_check",
                                   "initial_value",
                                   "unit_str_id",
                                   "edit_type",
                                   "disp_type",
                                   "user_level",
                                   "control_mode",
                                   "access_level",
                                   "sv_control_type",
                                   "effective_timing",
                                   "fixed_id",
                                   "parameter_help"};

const Columns kMonitorColumns = {"user_constant", "category_name_id", "monitor_name_id", "display_type",
                                 "on_content_id", "off_content_id",   "unit_str_id",     "size",
                                 "bit_position",  "address",          "access_level",    "sv_control_type",
                                 "fixed_id",      "parameter_help"};

const Columns kIoColumns = {"io_code",      "address",           "digit",          "value",
                            "logical_name", "physical_name",     "positive_logic", "reverse",
                            "mode_select",  "input_mode_select", "reverse_address"};

const Columns kAlarmColumns = {"alarm_display", "indexer_alarm_code", "alarm_level",   "alarm_meaning_id",
                               "alarm_type",    "alarm_category_id",  "alarm_name_id", "alo",
                               "fixed_id",      "help_path"};

const Columns kAnalogColumns = {
    "analog_id", "target_name",     "index",        "bitindex",        "display_flag", "unit_str_id",
    "unit",      "unit_multiplier", "unit_name",    "conversion_type", "limit",        "max_level",
    "min_level", "default_flag",    "spec_version", "order",           "access_level", "support"};

const Columns kIoTraceColumns = {"io_name",      "value",           "reverse",  "default_flag",
                                 "spec_version", "index",           "bitindex", "order",
                                 "access_level", "sv_control_type", "support"};

bool IsCustomSpec(int customSpec) {
    return customSpec != 0 && customSpec != 65535;
}

}  // namespace

// --- Steps ---

void PlainBuilders::Modify(const std::string& work, const std::string& delta, const Family& family,
                           const std::string& filter) const {
    const bool customSpec = delta == family.customSpecTable;
    std::string keys;
    std::string match;
    for (const Family::Key& key : family.keys) {
        const std::string& name = customSpec ? key.customSpec : key.firmware;
        const bool copied =
            std::find(family.modified.begin(), family.modified.end(), name) != family.modified.end();
        if (!copied) keys += "[" + name + "], ";
        match += " AND w.[" + key.work + "] = x.[" + name + "]";
    }
    std::string group;
    for (const Family::Key& key : family.keys)
        group += (group.empty() ? "[" : ", [") + (customSpec ? key.customSpec : key.firmware) + "]";
    database_.Run("UPDATE [" + work + "] AS w SET " + Assignments(family.modified) + " FROM (SELECT " + keys +
                  Joined(family.modified) + ", max(rowid) FROM " + delta + " WHERE change_type = 1 AND " +
                  filter + " GROUP BY " + group + ") AS x WHERE" + match.substr(4));
}

void PlainBuilders::Insert(const std::string& work, const std::string& delta, const Family& family,
                           const std::string& filter) const {
    const bool customSpec = delta == family.customSpecTable;
    Columns into;
    Columns from;
    for (const Family::Key& key : family.keys) {
        const bool copied =
            std::find(family.modified.begin(), family.modified.end(), key.work) != family.modified.end();
        if (copied) continue;
        into.push_back(key.work);
        from.push_back(customSpec ? key.customSpec : key.firmware);
    }
    for (const Columns* columns : {&family.insertedFrom, &family.modified}) {
        into.insert(into.end(), columns->begin(), columns->end());
        from.insert(from.end(), columns->begin(), columns->end());
    }
    database_.Run("INSERT INTO [" + work + "] (" + Joined(into) + ") SELECT " + Joined(from) + " FROM " +
                  delta + " WHERE change_type = 2 AND " + filter);
}

void PlainBuilders::Delete(const std::string& work, const std::string& delta, const Family& family,
                           const std::string& filter) const {
    const std::string key = "[" + family.deleteKey + "]";
    database_.Run("DELETE FROM [" + work + "] WHERE " + key + " IN (SELECT " + key + " FROM " + delta +
                  " WHERE change_type = 3 AND " + filter + ")");
}

void PlainBuilders::Apply(const std::string& work, const std::string& delta, const Family& family,
                          const std::string& filter, const std::string& insertFilter) const {
    Modify(work, delta, family, filter);
    Insert(work, delta, family, filter + insertFilter);
    Delete(work, delta, family, filter);
}

int PlainBuilders::Bound(const std::string& delta, const std::string& filter, int version) const {
    return static_cast<int>(std::min<std::int64_t>(
        version, database_.Number("SELECT max(firm_id) FROM " + delta + " WHERE " + filter)));
}

void PlainBuilders::Name(const std::string& work, const std::string& names, const std::string& workKey,
                         const std::string& nameKey, const std::vector<std::string>& columns,
                         const std::string& filter) const {
    std::string copied;
    std::string assignments;
    int number = 0;
    for (const std::string& column : columns) {
        const std::string alias = "v" + Text(number++);
        // "source>target" where the two differ.
        const auto at = column.find('>');
        const std::string target = at == std::string::npos ? column : column.substr(at + 1);
        copied += ", [" + column.substr(0, at) + "] AS " + alias;
        assignments += (assignments.empty() ? "[" : ", [") + target + "] = x." + alias;
    }
    database_.Run("UPDATE [" + work + "] AS w SET " + assignments + " FROM (SELECT [" + nameKey + "] AS k" +
                  copied + ", max(rowid) FROM " + names + (filter.empty() ? "" : " WHERE " + filter) +
                  " GROUP BY [" + nameKey + "]) AS x WHERE w.[" + workKey + "] = x.k");
}

// --- Models and the registry ---

PlainBuilders::Names PlainBuilders::Identify(Drive drive) const {
    Query variants = database_.Prepare(
        "SELECT ide_servo_id, modify_flag_bitmask, modify_flag, modify_threshold_bitmask, modify_threshold "
        "FROM "
        "model_subspecies WHERE servo_id = ?1 ORDER BY modify_threshold DESC");
    variants.Bind(1, drive.servo & 0xFF);
    while (variants.Step()) {
        const bool byFlag = ((drive.servo >> 8) & variants.Number(1)) == variants.Number(2);
        if (!byFlag && (drive.firmware & variants.Number(3)) < variants.Number(4)) continue;
        drive.servo = static_cast<int>(variants.Number(0));
        break;
    }
    const std::string id = Text(drive.servo) + (drive.HasOption() ? "_" + Text(drive.option) : "");
    Query name = database_.Prepare("SELECT model_name FROM tavrowinmodel WHERE model_id = '" + id + "'");
    Names names{drive, {}, {}, name.Step() ? std::string(name.Text(0)) : std::string()};
    names.withoutPower = names.model + "_" + Text(drive.firmware) + "_" + Text(drive.customSpec);
    names.withPower = names.withoutPower + "_" + Text(drive.powerRating);
    if (!drive.HasOption()) return names;
    const std::string option = "_" + Text(drive.optionFirmware) + "_" + Text(drive.optionCustomSpec);
    names.withoutPower += option;
    names.withPower += option;
    return names;
}

bool PlainBuilders::IsRegistered(const std::string& column, const std::string& table) const {
    return database_.Number("SELECT count(*) FROM tablemanager WHERE " + column + " = '" + table + "'") != 0;
}

void PlainBuilders::Register(int axis, const std::vector<std::string>& columns,
                             const std::vector<std::string>& tables) const {
    std::string values;
    std::string assignments;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        values += ", '" + tables[i] + "'";
        assignments += (i == 0 ? "" : ", ") + columns[i] + " = '" + tables[i] + "'";
    }
    const std::string row = " WHERE axis_num = " + Text(axis);
    if (database_.Number("SELECT count(*) FROM tablemanager" + row) == 0) {
        database_.Run("INSERT INTO tablemanager (axis_num, " + Joined(columns) + ") VALUES (" + Text(axis) +
                      values + ")");
    } else {
        database_.Number("SELECT " + columns.front() + " IS NULL FROM tablemanager" + row);
        database_.Run("UPDATE tablemanager SET " + assignments + row);
    }
}

void PlainBuilders::DeleteAxis(int axis) const {
    const std::string row = " FROM tablemanager WHERE axis_num = " + Text(axis);
    std::vector<std::string> tables;
    {
        Query names = database_.Prepare(
            "SELECT userparameter_table, nibble_table, dec_table, monitor_table, io_table, dispalarm_table, "
            "analogtrace_table, iotrace_table" +
            row);
        if (!names.Step()) return;
        for (int column = 0; column < 8; ++column) {
            if (!names.IsNull(column)) tables.emplace_back(names.Text(column));
        }
    }
    for (const std::string& table : tables)
        database_.Run("DROP TABLE [" + table + "]");
    database_.Run("DELETE" + row);
}

// --- User parameters ---

namespace {

// The build that follows an earlier, failed one finds its table.
std::string DropLeftover(const std::string& table) {
    return "DROP TABLE IF EXISTS [" + table + "]";
}

}  // namespace

void PlainBuilders::MergeParameters(const std::string& work, const Drive& drive) const {
    static const Family family = {"FirmUPara",
                                  "CmodUPara",
                                  {{"Parameter_id", "FirmUPara_id", "cmodUPara_id"},
                                   {"sv_control_type", "sv_control_type", "sv_control_type"}},
                                  "user_constant",
                                  kParameterColumns,
                                  {}};
    const std::string model = "model_id = " + Text(drive.servo);
    const std::string noOption = model + " AND option_id = 65533";
    const std::string withOption = model + " AND option_id = " + Text(drive.option);
    std::string notByCustomSpec =
        " AND NOT EXISTS (SELECT * FROM CmodUPara c WHERE c.cmodUPara_id = FirmUPara.FirmUPara_id AND "
        "c.change_type = 2 AND ((c.cmod_id = " +
        Text(drive.customSpec) + " AND c." + noOption + ")";
    if (drive.HasOption())
        notByCustomSpec += " OR (c.cmod_id = " + Text(drive.optionCustomSpec) + " AND c." + withOption + ")";
    notByCustomSpec += "))";
    const auto customSpec = [&](int id, int type) {
        return "cmod_id = " + Text(id) + " AND " + withOption + " AND model_type = " + Text(type);
    };

    const int bound = Bound("FirmUPara", noOption, drive.firmware);
    if (bound != 0)
        Apply(work, "FirmUPara", family, "firm_id <= " + Text(bound) + " AND " + noOption, notByCustomSpec);
    if (IsCustomSpec(drive.customSpec)) Apply(work, "CmodUPara", family, customSpec(drive.customSpec, 1));
    if (!drive.HasOption()) return;
    Modify(work, "FirmUPara", family, "firm_id = 0 AND " + withOption);
    const int optionBound = Bound("FirmUPara", withOption, drive.optionFirmware);
    if (optionBound != 0)
        Apply(work, "FirmUPara", family, "firm_id <= " + Text(optionBound) + " AND " + withOption,
              notByCustomSpec);
    if (IsCustomSpec(drive.optionCustomSpec))
        Apply(work, "CmodUPara", family, customSpec(drive.optionCustomSpec, 2));
}

void PlainBuilders::FinishParameters(const std::string& work, const Drive& drive) const {
    const std::string language = "country_id = " + Text(drive.country);
    Name(work, "paracategory", "category_name_id", "category_name_id", {"category_name"}, language);
    Name(work, "paraname", "parameter_name_id", "name_id", {"parameter_name"}, language);
    Name(work, "unit", "unit_str_id", "unit_str_id", {"unit", "unit_multiplier", "unit_name"},
         language + " OR country_id = 100");
    if (drive.powerRating != 0)
        Name(work, "powerrating", "user_constant", "user_constant",
             {"max", "min", "initial_value", "max_check", "min_check"},
             "powerrating_id = " + Text(drive.powerRating) + " AND model_id = " + Text(drive.servo));
    database_.Run("ALTER TABLE [" + work + "] ADD COLUMN category_id INTEGER");
    Name(work, "paracategory", "category_name_id", "category_name_id", {"category_id"}, "");
    for (const char* column : {"category_name_id", "parameter_name_id", "unit_str_id"})
        database_.Run("ALTER TABLE [" + work + "] DROP COLUMN " + column);
}

void PlainBuilders::UserParameters(const Drive& asked, int axis) const {
    const Names names = Identify(asked);
    const Drive& drive = names.drive;
    const std::string table = names.withPower + "_Upara";
    std::string digits = names.withPower + "_nibble";
    std::string decimals = names.withPower + "_dec";
    if (!IsRegistered("userparameter_table", table)) {
        const std::string work = names.withPower + "_TempUpara";
        database_.Run(DropLeftover(work));
        database_.Run("CREATE TABLE [" + work + "] AS SELECT * FROM [" + names.model + "_Upara]");
        MergeParameters(work, drive);
        database_.Run(DropLeftover(digits));
        database_.Run("CREATE TABLE [" + digits +
                      "] AS SELECT * FROM nibble_ex WHERE nibble_data_id IN (SELECT "
                      "nibble_data_id FROM [" +
                      work + "])");
        database_.Run(DropLeftover(decimals));
        database_.Run("CREATE TABLE [" + decimals +
                      "] AS SELECT * FROM decdata WHERE dec_data_id IN (SELECT "
                      "dec_data_id FROM [" +
                      work + "]) AND country_id = " + Text(drive.country));
        FinishParameters(work, drive);
        database_.Run(DropLeftover(table));
        database_.Run("CREATE TABLE [" + table + "] AS SELECT * FROM [" + work + "] ORDER BY Parameter_id");
        database_.Run("DROP TABLE [" + work + "]");
    }
    Register(axis, {"userparameter_table", "nibble_table", "dec_table"}, {table, digits, decimals});
}

// --- Monitors, I/O and alarms ---

void PlainBuilders::ApplyModel(const std::string& work, const Family& family, int model, int firmware,
                               int customSpec) const {
    const std::string ofModel = "model_id = " + Text(model);
    const int bound = Bound(family.firmwareTable, ofModel, firmware);
    if (bound != 0)
        Apply(work, family.firmwareTable, family, "firm_id <= " + Text(bound) + " AND " + ofModel);
    if (IsCustomSpec(customSpec))
        Apply(work, family.customSpecTable, family, "cmod_id = " + Text(customSpec) + " AND " + ofModel);
}

void PlainBuilders::Monitors(const Drive& asked, int axis) const {
    static const Family monitors = {
        "FirmMon",    "CmodMon",       {{"monitor_id", "monitor_id", "monitor_id"}},
        "monitor_id", kMonitorColumns, {}};
    static const Family io = {"FirmIo",       "CmodIo",   {{"Parameter_id", "Parameter_id", "Parameter_id"}},
                              "Parameter_id", kIoColumns, {}};
    const Names names = Identify(asked);
    const Drive& drive = names.drive;
    const std::string table = names.withPower + "_Mon";
    const std::string ioTable = names.withPower + "_Io";
    const bool monitorsExist = IsRegistered("monitor_table", table);
    const bool ioExists = IsRegistered("io_table", ioTable);
    const auto build = [&](const std::string& work, const std::string& base, const Family& family) {
        database_.Run("CREATE TABLE [" + work + "] AS SELECT * FROM [" + base + "]");
        ApplyModel(work, family, drive.servo, drive.firmware, drive.customSpec);
        if (drive.HasOption())
            ApplyModel(work, family, drive.option, drive.optionFirmware, drive.optionCustomSpec);
    };
    if (!monitorsExist) {
        const std::string language = "country_id = " + Text(drive.country);
        build(table, names.model + "_Mon", monitors);
        Name(table, "moncategory", "category_name_id", "category_name_id", {"category_name"}, language);
        Name(table, "monname", "monitor_name_id", "mon_name_id", {"monitor_name"}, language);
        Name(table, "monbit", "on_content_id", "onoff_content_id", {"onoff_content>on_content"}, language);
        Name(table, "monbit", "off_content_id", "onoff_content_id", {"onoff_content>off_content"}, language);
        Name(table, "unit", "unit_str_id", "unit_str_id", {"unit", "unit_multiplier", "unit_name"},
             language + " OR country_id = 100");
    }
    if (!ioExists) build(ioTable, names.model + "_Io", io);
    Register(axis, {"monitor_table", "io_table"}, {table, ioTable});
}

void PlainBuilders::Alarms(const Drive& asked, int axis) const {
    static const Family alarms = {
        "FirmDispAlarm", "CmodDispAlarm", {{"alarm_code", "alarm_code", "alarm_code"}},
        "alarm_code",    kAlarmColumns,   {}};
    const Names names = Identify(asked);
    const Drive& drive = names.drive;
    const std::string table = names.withPower + "_DispAl";
    if (!IsRegistered("dispalarm_table", table)) {
        const std::string work = names.withPower + "_TempDispAl";
        database_.Run("CREATE TABLE [" + work + "] AS SELECT * FROM [" + names.model + "_DispAl]");
        ApplyModel(work, alarms, drive.servo, drive.firmware, drive.customSpec);
        if (drive.HasOption()) {
            Modify(work, "FirmDispAlarm", alarms, "firm_id = 0 AND model_id = " + Text(drive.optionFirmware));
            ApplyModel(work, alarms, drive.option, drive.optionFirmware, drive.optionCustomSpec);
        }
        Name(work, "alarmname", "alarm_name_id", "alarm_name_id", {"alarm_name"},
             "country_id = " + Text(drive.country));
        database_.Run("CREATE TABLE [" + table + "] AS SELECT * FROM [" + work + "] ORDER BY alarm_display");
        database_.Run("DROP TABLE [" + work + "]");
    }
    Register(axis, {"dispalarm_table"}, {table});
}

// --- Traces ---

void PlainBuilders::MergeTrace(const std::string& work, const Family& family, const Drive& drive) const {
    const std::string servo = "servo_id = " + Text(drive.servo);
    const std::string noOption = servo + " AND option_id = 65533";
    const std::string withOption = servo + " AND option_id = " + Text(drive.option);
    const auto firmware = [&](int version, const std::string& rows) {
        return "firm_id <= " + Text(version) + " AND " + rows;
    };
    const auto customSpec = [&](int id, const std::string& rows) {
        return "cmod_id = " + Text(id) + " AND " + rows;
    };
    if (drive.firmware != 0) Apply(work, family.firmwareTable, family, firmware(drive.firmware, noOption));
    if (IsCustomSpec(drive.customSpec))
        Apply(work, family.customSpecTable, family, customSpec(drive.customSpec, noOption));
    if (!drive.HasOption()) return;
    if (drive.optionFirmware != 0) {
        Modify(work, family.firmwareTable, family, firmware(0, withOption));
        Apply(work, family.firmwareTable, family, firmware(drive.optionFirmware, withOption));
    }
    if (IsCustomSpec(drive.optionCustomSpec))
        Apply(work, family.customSpecTable, family, customSpec(drive.optionCustomSpec, withOption));
}

void PlainBuilders::AnalogTrace(const Drive& asked, int axis, int specVersion) const {
    static const Family family = {"firmanalogtrace",
                                  "cmodanalogtrace",
                                  {{"servo_id", "servo_id", "servo_id"},
                                   {"target_name_id", "target_name_id", "target_name_id"},
                                   {"target", "target", "target"},
                                   {"sv_control_type", "sv_control_type", "sv_control_type"}},
                                  "target_name_id",
                                  kAnalogColumns,
                                  {"option_id"}};
    const Names names = Identify(asked);
    const Drive& drive = names.drive;
    const std::string table = names.withoutPower + "_analogtrace";
    if (!IsRegistered("analogtrace_table", table)) {
        const std::string work = names.withoutPower + "_anatemp";
        const std::int64_t version = database_.Number(
            "SELECT max(spec_version) FROM analogtrace WHERE spec_version <= " + Text(specVersion));
        database_.Run(DropLeftover(work));
        database_.Run(DropLeftover(table));
        database_.Run("CREATE TABLE [" + work +
                      "] AS SELECT * FROM analogtrace WHERE spec_version = " + std::to_string(version) +
                      " AND sv_control_type = 0 AND servo_id = " + Text(drive.servo) +
                      " AND option_id = " + Text(drive.option));
        MergeTrace(work, family, drive);
        const std::string language = "country_id = " + Text(drive.country);
        Name(work, "analogtracename", "target_name_id", "target_name_id", {"target_name"}, language);
        Name(work, "unit", "unit_str_id", "unit_str_id", {"unit", "unit_multiplier", "unit_name"},
             language + " OR country_id = 100");
        database_.Run("CREATE TABLE [" + table + "] AS SELECT * FROM [" + work + "] ORDER BY analog_id");
        database_.Run("DROP TABLE [" + work + "]");
    }
    Register(axis, {"analogtrace_table"}, {table});
}

void PlainBuilders::IoTrace(const Drive& asked, int axis, int specVersion, int controlType) const {
    static const Family family = {
        "firmiotrace",
        "cmodiotrace",
        {{"servo_id", "servo_id", "servo_id"}, {"io_id", "io_id", "io_id"}, {"target", "target", "target"}},
        "io_id",
        kIoTraceColumns,
        {"option_id"}};
    const Names names = Identify(asked);
    const Drive& drive = names.drive;
    const std::string table = names.withoutPower + "_iotrace";
    if (!IsRegistered("iotrace_table", table)) {
        const std::string work = names.withoutPower + "_iotemp";
        const std::int64_t version = database_.Number(
            "SELECT max(spec_version) FROM iotrace WHERE spec_version <= " + Text(specVersion));
        database_.Run(DropLeftover(work));
        database_.Run(DropLeftover(table));
        database_.Run("CREATE TABLE [" + work +
                      "] AS SELECT * FROM iotrace WHERE spec_version = " + std::to_string(version) +
                      " AND (sv_control_type = 0 OR sv_control_type = " + Text(controlType) +
                      ") AND servo_id = " + Text(drive.servo) + " AND option_id = " + Text(drive.option));
        MergeTrace(work, family, drive);
        database_.Run("CREATE TABLE [" + table + "] AS SELECT * FROM [" + work + "] ORDER BY io_id");
        database_.Run("DROP TABLE [" + work + "]");
    }
    Register(axis, {"iotrace_table"}, {table});
}

}  // namespace bench
