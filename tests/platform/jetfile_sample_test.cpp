// The reader over real files: the sample databases as they are shipped.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "jet/error.h"
#include "jetfile/reader.h"
#include "support/jet_reading.h"
#include "support/temporary_directory.h"

namespace {

using jetfile::FileKind;
using jetfile::Reader;
using jetfile::Row;
using jetfile::Value;
using support::kSamplePassword;
using support::RowsOf;

std::string SamplePath(const std::string& sample) {
    return (std::filesystem::path(KALO_SAMPLE_DIR) / sample).string();
}

Value Text(const char* text) {
    return std::string(text);
}

Value Number(std::int64_t number) {
    return number;
}

int OpenError(const std::string& path, const std::string& password) {
    try {
        Reader reader(path, password);
        return 0;
    } catch (const jet::Error& error) {
        return error.Number();
    }
}

class JetSample : public testing::TestWithParam<const char*> {
  protected:
    const Reader reader_{SamplePath(GetParam()), kSamplePassword};
};

INSTANTIATE_TEST_SUITE_P(Both, JetSample, testing::Values("IdeInfo.mdb", "IdeInfoJ.mdb"));

TEST_P(JetSample, HoldsEveryTableAndRow) {
    std::size_t rows = 0;
    for (const jet::Table& table : reader_.Tables()) {
        reader_.ReadRows(table.name, [&](Row&& row) {
            EXPECT_EQ(row.size(), table.columns.size());
            ++rows;
            return true;
        });
    }
    EXPECT_EQ(reader_.Tables().size(), 109u);
    EXPECT_EQ(rows, 16092u);
    EXPECT_EQ(reader_.Kind(), FileKind::Jet4);
    EXPECT_EQ(jetfile::ProbeFile(SamplePath(GetParam())), FileKind::Jet4);
}

TEST_P(JetSample, RebuildsStoredQueries) {
    const std::string country = GetParam() == std::string("IdeInfo.mdb") ? "0" : "1";
    ASSERT_EQ(reader_.Queries().size(), 2u);
    EXPECT_EQ(reader_.Queries()[0].name, "nibble_ex_content_query");
    EXPECT_EQ(reader_.Queries()[0].sql,
              "SELECT nibble_ex_content.content_id, nibble_ex_content.content_value, "
              "nibble_ex_content.access_level, nibble_ex_content.message_type, "
              "nibble_ex_content.content_name_id, nibble_ex_name.name_str, nibble_ex_content.message_id "
              "FROM [nibble_ex_content] INNER JOIN [nibble_ex_name] "
              "ON nibble_ex_content.content_name_id = nibble_ex_name.name_id "
              "WHERE nibble_ex_name.country_id = " +
                  country + ";");
    EXPECT_THAT(
        reader_.Queries()[1].sql,
        testing::HasSubstr("FROM ([AnalogTraceInfo] INNER JOIN [analogtracename] ON "
                           "AnalogTraceInfo.target_name_id = analogtracename.target_name_id) "
                           "INNER JOIN [unit] ON AnalogTraceInfo.unit_str_id = unit.unit_str_id WHERE "));
    EXPECT_EQ(reader_.Queries()[0].problem + reader_.Queries()[1].problem, "");
}

TEST(JetSampleContent, ValuesOfEveryKind) {
    const Reader reader(SamplePath("IdeInfo.mdb"), kSamplePassword);
    const std::vector<Row> name = RowsOf(reader, "MDBNAME");
    ASSERT_EQ(name.size(), 1u);
    // 2024-05-17 09:30:00.
    EXPECT_THAT(Row(name[0].begin(), name[0].begin() + 6),
                testing::ElementsAre(Number(1), Text("IdeInfo.mdb"), Text("1.4.0"), Text("Close"),
                                     Value(45429 + 9.5 / 24), Number(-1)));
    // A memo over several pages, whole.
    const auto& note = std::get<std::string>(name[0][6]);
    EXPECT_EQ(note.size(), 5312u);
    EXPECT_TRUE(note.ends_with("  removed: PD.17 Send object 8")) << note.substr(5200);

    const std::vector<Row> units = RowsOf(reader, "unit");
    EXPECT_THAT(units, testing::Contains(
                           testing::ElementsAre(Number(1), Number(100), Text("-"), Value(1.0), Text(""))));
    EXPECT_THAT(units,
                testing::Contains(testing::ElementsAre(Number(4), Number(100), Text("0.01 Hz"),
                                                       Value(static_cast<double>(0.01f)), Text("Hz"))));
    EXPECT_THAT(units, testing::Contains(testing::Contains(Text("10⁻⁴ kg·m²"))));
    EXPECT_THAT(RowsOf(reader, "tavrowinhelp"),
                testing::Contains(testing::ElementsAre(Number(65535), Number(4), Number(99), Value())));

    const Reader japanese(SamplePath("IdeInfoJ.mdb"), kSamplePassword);
    EXPECT_THAT(RowsOf(japanese, "FunctionStrings")[1],
                testing::ElementsAre(Number(5002), Text("電源または主回路直流部の異常です。")));
}

TEST(JetSampleContent, ColumnsAndIndexes) {
    const Reader reader(SamplePath("IdeInfo.mdb"), kSamplePassword);
    const jet::Table units = support::TableOf(reader, "unit");
    ASSERT_EQ(units.columns.size(), 5u);
    EXPECT_EQ(units.columns[0].type, jet::Type::Integer);
    EXPECT_EQ(units.columns[2].type, jet::Type::Text);
    EXPECT_EQ(units.columns[2].size, 49);
    EXPECT_EQ(units.columns[3].type, jet::Type::Single);
    ASSERT_EQ(units.indexes.size(), 1u);
    EXPECT_TRUE(units.indexes[0].primary && units.indexes[0].unique && units.indexes[0].required);
    ASSERT_EQ(units.indexes[0].columns.size(), 2u);
    EXPECT_EQ(units.indexes[0].columns[1].name, "country_id");
}

TEST(JetSampleContent, ReadingStopsWhenAskedAndKnowsItsTables) {
    const Reader reader(SamplePath("IdeInfo.mdb"), kSamplePassword);
    int visited = 0;
    reader.ReadRows("paraname", [&](Row&&) { return ++visited < 7; });
    EXPECT_EQ(visited, 7);
    for (const char* missing : {"no_such_table", "MSysObjects", ""}) {
        try {
            RowsOf(reader, missing);
            ADD_FAILURE() << missing;
        } catch (const jet::Error& error) {
            EXPECT_EQ(error.Number(), 3078);
        }
    }
}

TEST(JetSampleContent, OpeningReportsWhatIsWrong) {
    const support::TemporaryDirectory directory;
    const std::string text = directory.File("text.mdb");
    support::WriteFile(text, "Standard Jet DB, but only a text");
    const std::string empty = directory.File("empty.mdb");
    support::WriteFile(empty, "");
    struct Case {
        std::string path;
        std::string password;
        int error;
    };
    const std::string sample = SamplePath("IdeInfo.mdb");
    for (const Case& c : std::vector<Case>{{sample, kSamplePassword, 0},
                                           {sample, "", 3031},
                                           {sample, "MIVMIV", 3031},
                                           {sample, "mivmiv ", 3031},
                                           {directory.File("missing.mdb"), "", 3024},
                                           {directory.File("missing/too.mdb"), "", 3024},
                                           {directory.Path().string(), "", 3051},
                                           {text, "", 3343},
                                           {empty, "", 3343}}) {
        EXPECT_EQ(OpenError(c.path, c.password), c.error) << c.path << " " << c.password;
    }
    EXPECT_EQ(jetfile::ProbeFile(text), FileKind::Other);
    EXPECT_THROW(jetfile::ProbeFile(directory.File("missing.mdb")), jet::Error);
}

}  // namespace
