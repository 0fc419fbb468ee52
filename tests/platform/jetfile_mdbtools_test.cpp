// The reader against an independent one: every field of every table as mdb-export prints it. Beside the
// samples, the files of the folder that KALO_MDB_CORPUS names are compared.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <optional>

#include "jetfile/reader.h"
#include "support/jet_image.h"
#include "support/jet_reading.h"
#include "support/temporary_directory.h"

namespace {

using jetfile::Blob;
using jetfile::Reader;
using jetfile::Row;
using jetfile::Value;
namespace fs = std::filesystem;

// What mdb-export printed for a field; nothing for Null.
using PrintedField = std::optional<std::string>;
using PrintedRow = std::vector<PrintedField>;

constexpr char kFieldEnd = '\x1F';
constexpr char kRowEnd = '\x1E';
constexpr char kNull = '\x01';

std::string Quoted(const std::string& argument) {
    std::string quoted = "'";
    for (const char c : argument)
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

bool Installed() {
    const support::TemporaryDirectory directory;
    const std::string output = directory.File("version");
    return std::system(("mdb-export --version > \"" + output + "\" 2>&1").c_str()) == 0;
}

// Texts come between quotes, with quotes inside doubled, everything else bare.
PrintedField Unquoted(std::string_view field) {
    if (field == std::string_view(&kNull, 1)) return std::nullopt;
    if (field.size() < 2 || field.front() != '"') return std::string(field);
    std::string text;
    for (std::size_t i = 1; i + 1 < field.size(); ++i) {
        text += field[i];
        if (field[i] == '"') ++i;
    }
    return text;
}

std::vector<PrintedRow> ParsedRows(const std::string& output) {
    std::vector<PrintedRow> rows;
    PrintedRow row;
    bool quoted = false;
    std::size_t start = 0;
    for (std::size_t at = 0; at < output.size(); ++at) {
        if (output[at] == '"') quoted = !quoted;
        if (quoted || (output[at] != kFieldEnd && output[at] != kRowEnd)) continue;
        row.push_back(Unquoted(std::string_view(output).substr(start, at - start)));
        start = at + 1;
        if (output[at] == kRowEnd) rows.push_back(std::exchange(row, {}));
    }
    return rows;
}

std::vector<PrintedRow> Export(const fs::path& file, const std::string& table,
                               const support::TemporaryDirectory& directory) {
    const std::string output = directory.File("export");
    const std::string command = "timeout 60 mdb-export -H -b hex -T '%Y-%m-%d %H:%M:%S' -d '" +
                                std::string(1, kFieldEnd) + "' -R '" + kRowEnd + "' -0 '" + kNull + "' " +
                                Quoted(file.string()) + " " + Quoted(table) + " > " + Quoted(output);
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    return ParsedRows(support::ReadFile(output));
}

std::string Hex(const Blob& bytes) {
    std::string hex;
    for (const std::uint8_t byte : bytes) {
        hex += "0123456789ABCDEF"[byte >> 4];
        hex += "0123456789ABCDEF"[byte & 15];
    }
    return hex;
}

std::string DateText(double date) {
    const double day = std::floor(date);
    const auto seconds = static_cast<int>(std::lround((date - day) * 86400));
    const std::chrono::year_month_day ymd{std::chrono::sys_days{std::chrono::year{1899} / 12 / 30} +
                                          std::chrono::days{static_cast<int>(day)}};
    char text[64];
    std::snprintf(text, sizeof(text), "%04d-%02u-%02u %02d:%02d:%02d", static_cast<int>(ymd.year()),
                  static_cast<unsigned>(ymd.month()), static_cast<unsigned>(ymd.day()), seconds / 3600,
                  seconds / 60 % 60, seconds % 60);
    return text;
}

bool SameNumber(double number, const std::string& printed, double precision) {
    char* end = nullptr;
    const double other = std::strtod(printed.c_str(), &end);
    return end != printed.c_str() && std::abs(number - other) <= precision * std::abs(number);
}

// mdb-export knows no day before 1899-12-30: its conversion leaves the fields of its calendar at zero.
bool SameDate(double date, const std::string& printed) {
    return printed == (date < 0 ? "1900-01-00 00:00:00" : DateText(date));
}

// Five bytes have no character in code page 1252. mdb-export prints a question mark for them; Windows, and so
// this reader, takes the control character of the same number.
bool SameText(const std::string& text, const std::string& printed) {
    std::string expected = text;
    for (const char* unassigned : {"\xC2\x81", "\xC2\x8D", "\xC2\x8F", "\xC2\x90", "\xC2\x9D"}) {
        const std::size_t at = expected.find(unassigned);
        if (at != std::string::npos) expected.replace(at, 2, "?");
    }
    return printed == text || printed == expected;
}

// mdb-export leaves out the last hyphen of a GUID, whose last two groups are plain bytes in the file; and the
// option that prints bytes as hexadecimal digits goes for its letters, too.
bool SameGuid(std::string guid, const std::string& printed) {
    guid.erase(guid.rfind('-'), 1);
    return printed == Hex(support::BytesOf(guid));
}

// Where the two readers may differ.
struct Differences {
    // mdb-export prints Null for a text of length zero, though the row's null mask says that it is there.
    int emptyTexts = 0;
    // mdb-export prints a moved row where it lies, not where the pointer to it lies.
    int displacedRows = 0;
};

bool Same(const jet::Column& column, const Value& value, const PrintedField& printed) {
    if (!printed) return std::holds_alternative<std::monostate>(value) || value == Value(std::string());
    if (std::holds_alternative<std::monostate>(value)) return false;
    switch (column.type) {
        case jet::Type::Boolean:
            return *printed == (std::get<std::int64_t>(value) != 0 ? "1" : "0");
        case jet::Type::Byte:
        case jet::Type::Integer:
        case jet::Type::Long:
            return *printed == std::to_string(std::get<std::int64_t>(value));
        case jet::Type::Currency:
            return SameNumber(static_cast<double>(std::get<std::int64_t>(value)) / 10000, *printed, 1e-14);
        case jet::Type::Single:
            return SameNumber(std::get<double>(value), *printed, 1e-7);
        case jet::Type::Double:
            return SameNumber(std::get<double>(value), *printed, 1e-14);
        case jet::Type::DateTime:
            return SameDate(std::get<double>(value), *printed);
        case jet::Type::Binary:
        case jet::Type::LongBinary:
            return *printed == Hex(std::get<Blob>(value));
        case jet::Type::Guid:
            return SameGuid(std::get<std::string>(value), *printed);
        default:
            return SameText(std::get<std::string>(value), *printed);
    }
}

bool Same(const jet::Table& table, const Row& row, const PrintedRow& printed) {
    if (row.size() != printed.size()) return false;
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (!Same(table.columns[i], row[i], printed[i])) return false;
    }
    return true;
}

int EmptyTexts(const Row& row, const PrintedRow& printed) {
    int count = 0;
    for (std::size_t i = 0; i < row.size(); ++i)
        count += !printed[i] && row[i] == Value(std::string());
    return count;
}

void Compare(const Reader& reader, const jet::Table& table, std::vector<PrintedRow> printed,
             Differences& differences) {
    const std::vector<Row> rows = support::RowsOf(reader, table.name);
    ASSERT_EQ(rows.size(), printed.size()) << table.name;
    auto next = printed.begin();
    for (const Row& row : rows) {
        const auto found = std::find_if(next, printed.end(),
                                        [&](const PrintedRow& other) { return Same(table, row, other); });
        if (found == printed.end()) {
            ADD_FAILURE() << table.name << ": not printed: " << testing::PrintToString(row) << "; next is "
                          << testing::PrintToString(*next);
            return;
        }
        differences.displacedRows += found != next;
        differences.emptyTexts += EmptyTexts(row, *found);
        std::rotate(next, found, found + 1);
        ++next;
    }
}

// Returns the number of files, after comparing every table of them.
int CompareFolder(const fs::path& folder, const std::string& password, Differences& differences) {
    const support::TemporaryDirectory directory;
    int files = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        if (entry.path().extension() != ".mdb") continue;
        SCOPED_TRACE(entry.path().filename().string());
        const Reader reader(entry.path().string(), password);
        for (const jet::Table& table : reader.Tables()) {
            Compare(reader, table, Export(entry.path(), table.name, directory), differences);
        }
        ++files;
    }
    return files;
}

TEST(JetAgainstMdbtools, Samples) {
    if (!Installed()) GTEST_SKIP() << "mdb-export is not installed";
    Differences differences;
    EXPECT_EQ(CompareFolder(KALO_SAMPLE_DIR, support::kSamplePassword, differences), 2);
    EXPECT_EQ(differences.displacedRows, 0);
    // The unit "-" has a name of length zero: the last row bytes are 0C 00 0C 00 … 1F, an empty field that
    // the null mask 1F marks as present.
    EXPECT_EQ(differences.emptyTexts, 2);
}

TEST(JetAgainstMdbtools, Corpus) {
    const char* folder = std::getenv("KALO_MDB_CORPUS");
    if (folder == nullptr) GTEST_SKIP() << "KALO_MDB_CORPUS is not set";
    if (!Installed()) GTEST_SKIP() << "mdb-export is not installed";
    Differences differences;
    EXPECT_GT(CompareFolder(folder, "", differences), 0);
    EXPECT_LE(differences.displacedRows, 4);
    EXPECT_EQ(differences.emptyTexts, 0);
}

}  // namespace
