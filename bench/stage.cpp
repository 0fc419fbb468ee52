#include "stage.h"

#include <cstdlib>
#include <iostream>

namespace bench {

namespace fs = std::filesystem;

void Check(KaloStatus status, const char* what) {
    if (status == 0) return;
    std::cerr << what << " failed: 0x" << std::hex << status << '\n';
    std::exit(EXIT_FAILURE);
}

Directory::Directory() {
    std::string name = (fs::temp_directory_path() / "kalo_bench.XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) std::exit(EXIT_FAILURE);
    path_ = name;
}

Directory::~Directory() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

Stage::Stage(const Prepare& prepare) {
    fs::copy_file(fs::path(KALO_SAMPLE_DIR) / "IdeInfo.mdb", WorkingFile());
    fs::permissions(WorkingFile(), fs::perms::owner_write, fs::perm_options::add);
    KaloSetFileName("kalo_bench", WorkingFile().c_str());
    Check(KaloOpen(0), "KaloOpen");
    if (prepare) prepare(PlainDatabase(WorkingFile()));
    MakePlainCopy(WorkingFile(), PlainFile());
    plain_.emplace(PlainFile());
}

Stage::~Stage() {
    KaloClose();
}

void Stage::Reopen() {
    Check(KaloClose(), "KaloClose");
    Check(KaloOpen(0), "KaloOpen");
    plain_.emplace(PlainFile());
}

void Stage::ChangeByOthers() const {
    for (const fs::path& file : {WorkingFile(), PlainFile()})
        PlainDatabase(file).Run("UPDATE tablemanager SET axis_num = axis_num WHERE axis_num = 1");
}

std::string Stage::Differences(int axis) const {
    const PlainDatabase database(PlainFile());
    database.Run("ATTACH '" + WorkingFile().string() + "' AS library");
    std::string differences;
    Query names = database.Prepare(
        "SELECT userparameter_table, nibble_table, dec_table, monitor_table, io_table, dispalarm_table, "
        "analogtrace_table, iotrace_table FROM library.tablemanager WHERE axis_num = " +
        std::to_string(axis));
    if (!names.Step()) return "no axis";
    for (int column = 0; column < 8; ++column) {
        if (names.IsNull(column)) continue;
        const std::string table = "[" + std::string(names.Text(column)) + "]";
        const std::string here = "SELECT * FROM main." + table;
        const std::string there = "SELECT * FROM library." + table;
        const auto rows = database.Number("SELECT count(*) FROM (" + here + " EXCEPT " + there + ")") +
                          database.Number("SELECT count(*) FROM (" + there + " EXCEPT " + here + ")");
        const auto more = database.Number("SELECT count(*) FROM main." + table) -
                          database.Number("SELECT count(*) FROM library." + table);
        if (rows != 0 || more != 0) differences += table + " differs in " + std::to_string(rows) + " rows; ";
    }
    return differences;
}

std::int64_t Stage::DesignVersion() const {
    return PlainDatabase(WorkingFile()).Number("PRAGMA schema_version");
}

void BuildParameters(const Drive& drive, int axis) {
    Check(KaloUparaCreate(static_cast<std::int16_t>(drive.country), drive.servo, drive.firmware,
                          drive.customSpec, drive.powerRating, drive.option, drive.optionFirmware,
                          drive.optionCustomSpec, static_cast<std::int16_t>(axis)),
          "KaloUparaCreate");
}

void BuildMonitors(const Drive& drive, int axis) {
    Check(KaloMonCreate(drive.country, drive.servo, drive.firmware, drive.customSpec, drive.powerRating,
                        drive.option, drive.optionFirmware, drive.optionCustomSpec,
                        static_cast<std::int16_t>(axis)),
          "KaloMonCreate");
}

void BuildAlarms(const Drive& drive, int axis) {
    Check(KaloAlarmCreate(static_cast<std::uint16_t>(drive.country), drive.servo, drive.firmware,
                          drive.customSpec, drive.powerRating, drive.option, drive.optionFirmware,
                          drive.optionCustomSpec, static_cast<std::int16_t>(axis)),
          "KaloAlarmCreate");
}

void BuildAnalogTrace(const Drive& drive, int axis) {
    Check(KaloAnalogtraceCreate(drive.country, drive.servo, drive.firmware, drive.customSpec, drive.option,
                                drive.optionFirmware, drive.optionCustomSpec, static_cast<std::int16_t>(axis),
                                kSpecVersion, 0),
          "KaloAnalogtraceCreate");
}

void BuildIoTrace(const Drive& drive, int axis) {
    Check(KaloIotraceCreate(drive.servo, drive.firmware, drive.customSpec, drive.option, drive.optionFirmware,
                            drive.optionCustomSpec, static_cast<std::int16_t>(axis), kSpecVersion,
                            kControlType),
          "KaloIotraceCreate");
}

}  // namespace bench
