// The reader over files of both formats that are built byte by byte.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>

#include "support/jet_image.h"
#include "support/jet_reading.h"

namespace {

using jetfile::Blob;
using jetfile::FileKind;
using jetfile::Row;
using jetfile::Value;
using support::Bytes16;
using support::Bytes32;
using support::Bytes64;
using support::BytesOf;
using support::ImageColumn;
using support::ImageRow;
using support::ImageSlot;
using support::JetImage;
using support::Joined;
using support::OpenImage;
using support::RowsOf;
using testing::ElementsAre;

constexpr std::uint32_t kInline = 0x80000000;
constexpr std::uint32_t kSinglePiece = 0x40000000;

Value Text(const std::string& text) {
    return text;
}

Value Number(std::int64_t number) {
    return number;
}

Blob LongHead(std::size_t length, std::uint32_t kind, std::uint32_t pointer) {
    return Joined({Bytes32(length | kind), Bytes32(pointer), Bytes32(0)});
}

const ImageColumn kId = {.name = "id", .type = 4, .fixed = true, .length = 4};

class JetFormat : public testing::TestWithParam<FileKind> {
  protected:
    bool Jet3() const { return GetParam() == FileKind::Jet3; }
    // Stored text without compression.
    Blob Stored(const std::u16string& text) const {
        return Jet3() ? Blob(text.begin(), text.end()) : support::Utf16(text);
    }
    // One row, read back.
    Row OnlyRow(const std::vector<ImageColumn>& columns, const ImageRow& fields) {
        image_.AddTable("t", columns, {fields});
        const std::vector<Row> rows = RowsOf(OpenImage(image_.Bytes()), "t");
        return rows.size() == 1 ? rows[0] : Row();
    }

    JetImage image_{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Both, JetFormat, testing::Values(FileKind::Jet3, FileKind::Jet4),
                         [](const auto& test) { return test.param == FileKind::Jet3 ? "Jet3" : "Jet4"; });

TEST_P(JetFormat, EveryTypeFixedAndVariable) {
    const Blob decimal = Joined({{0x80}, Bytes32(0), Bytes32(0), Bytes32(1), Bytes32(5)});
    const Blob guid = {0x33, 0x22, 0x11, 0x00, 0x55, 0x44, 0x77, 0x66, 8, 9, 10, 11, 12, 13, 14, 15};
    struct Case {
        std::uint8_t type;
        Blob stored;
        Value value;
    };
    const std::vector<Case> cases = {
        {2, {200}, Number(200)},
        {3, Bytes16(0xFFFE), Number(-2)},
        {4, Bytes32(0x80000000), Number(INT32_MIN)},
        {5, Bytes64(static_cast<std::uint64_t>(-12345)), Number(-12345)},
        {6, Bytes32(std::bit_cast<std::uint32_t>(0.1f)), Value(static_cast<double>(0.1f))},
        {7, Bytes64(std::bit_cast<std::uint64_t>(-2.5)), Value(-2.5)},
        {8, Bytes64(std::bit_cast<std::uint64_t>(-1.25)), Value(-1.25)},
        {9, {1, 0, 255}, Value(Blob{1, 0, 255})},
        {15, guid, Text("{00112233-4455-6677-0809-0A0B0C0D0E0F}")},
        {16, decimal, Text("-42949673.01")},
    };
    std::vector<ImageColumn> columns = {{.name = "yes", .type = 1, .fixed = true},
                                        {.name = "no", .type = 1, .fixed = true}};
    ImageRow fields = {Blob(), std::nullopt};
    ImageRow nulls = {std::nullopt, std::nullopt};
    Row expected = {Number(-1), Number(0)};
    Row expectedNulls = {Number(0), Number(0)};
    for (const bool fixed : {true, false}) {
        for (const Case& c : cases) {
            columns.push_back({.name = "c" + std::to_string(columns.size()),
                               .type = c.type,
                               .fixed = fixed,
                               .length = static_cast<std::uint16_t>(c.stored.size()),
                               .precision = static_cast<std::uint8_t>(c.type == 16 ? 18 : 0),
                               .scale = static_cast<std::uint8_t>(c.type == 16 ? 2 : 0)});
            fields.push_back(c.stored);
            nulls.push_back(std::nullopt);
            expected.push_back(c.value);
            expectedNulls.emplace_back();
        }
    }
    image_.AddTable("t", columns, {fields, nulls});
    EXPECT_THAT(RowsOf(OpenImage(image_.Bytes()), "t"), ElementsAre(expected, expectedNulls));
}

TEST_P(JetFormat, DecimalsKeepTheirScale) {
    const auto decimal = [](std::uint8_t sign, std::uint32_t high, std::uint32_t low) {
        return Joined({{sign}, Bytes32(0), Bytes32(high), Bytes32(0), Bytes32(low)});
    };
    std::vector<ImageColumn> columns;
    for (const int scale : {0, 4, 4, 4}) {
        columns.push_back({.name = "c" + std::to_string(columns.size()),
                           .type = 16,
                           .length = 17,
                           .precision = 28,
                           .scale = static_cast<std::uint8_t>(scale)});
    }
    EXPECT_THAT(
        OnlyRow(columns, {decimal(0, 1, 0), decimal(0x80, 0, 7), decimal(0x80, 0, 0), decimal(0, 0, 120000)}),
        ElementsAre(Text("18446744073709551616"), Text("-0.0007"), Text("0.0000"), Text("12.0000")));
}

TEST_P(JetFormat, LongValuesOfEveryKind) {
    const Blob stored = Stored(std::u16string(1600, u'x'));
    // A chain of two pieces, the cut inside a character of two bytes.
    const auto cut = stored.begin() + 801;
    const Blob end = Joined({Bytes32(0), Blob(cut, stored.end())});
    const std::uint32_t last = image_.AddRowPage(JetImage::kLongValues, {{{9, 9}}, {end}});
    const Blob start = Joined({Bytes32(last << 8 | 1), Blob(stored.begin(), cut)});
    const std::uint32_t first = image_.AddRowPage(JetImage::kLongValues, {{start}});
    const std::uint32_t single = image_.AddRowPage(JetImage::kLongValues, {{Stored(u"alone and more")}});
    const std::vector<ImageColumn> columns = {
        {.name = "chain", .type = 12}, {.name = "single", .type = 12}, {.name = "inline", .type = 12},
        {.name = "ole", .type = 11},   {.name = "empty", .type = 12},  {.name = "nothing", .type = 12}};
    const Blob inlined = Stored(u"here");
    const Row row =
        OnlyRow(columns, {LongHead(stored.size(), 0, first << 8),
                          LongHead(Stored(u"alone").size(), kSinglePiece, single << 8),
                          Joined({LongHead(inlined.size(), kInline, 0), inlined}),
                          Joined({LongHead(3, kInline, 0), {0, 1, 2}}), LongHead(0, 0, 0), std::nullopt});
    EXPECT_THAT(row, ElementsAre(Text(std::string(1600, 'x')), Text("alone"), Text("here"),
                                 Value(Blob{0, 1, 2}), Text(""), Value()));
}

TEST_P(JetFormat, DeletedMovedAndYoungerRows) {
    const std::vector<ImageColumn> columns = {kId,
                                              {.name = "text", .type = 10, .length = 100},
                                              {.name = "late", .type = 10, .length = 100},
                                              {.name = "flag", .type = 1, .fixed = true}};
    const auto row = [&](std::uint32_t id, const char16_t* text) {
        return image_.EncodeRow(columns, {Bytes32(id), Stored(text), Stored(u"!"), Blob()});
    };
    // Rows of a time when the table had only two columns.
    const Blob older = image_.EncodeRow({columns[0], columns[1]}, {Bytes32(1), Stored(u"older")});
    const std::uint32_t table = image_.NextPage();
    const std::uint32_t page = table + 1;
    EXPECT_EQ(image_.AddTableOfSlots("t", columns,
                                     {{older},
                                      {row(2, u"gone"), 0x8000},
                                      {Bytes32(page << 8 | 4), 0x4000},
                                      {row(4, u"last")},
                                      {row(3, u"moved"), 0x8000}}),
              table);
    EXPECT_THAT(RowsOf(OpenImage(image_.Bytes()), "t"),
                ElementsAre(Row{Number(1), Text("older"), Value(), Number(0)},
                            Row{Number(3), Text("moved"), Text("!"), Number(-1)},
                            Row{Number(4), Text("last"), Text("!"), Number(-1)}));
}

TEST_P(JetFormat, WideTablesAndTheirIndexes) {
    std::vector<ImageColumn> columns;
    ImageRow fields;
    for (std::uint8_t i = 0; i < 140; ++i) {
        columns.push_back(
            {.name = "a_rather_long_name_" + std::to_string(i), .type = 2, .fixed = i % 2 == 0, .length = 1});
        fields.push_back(Blob{i});
    }
    // So many columns need a definition of several pages, and more rows than one page takes.
    image_.AddTable("wide", columns, std::vector<ImageRow>(20, fields),
                    {{"PrimaryKey", {120, -1 - 3}, 9, 1}, {"relation", {0}, 0, 2}, {"plain", {7}, 2, 0}});
    const jetfile::Reader reader = OpenImage(image_.Bytes());
    const std::vector<Row> rows = RowsOf(reader, "wide");
    ASSERT_EQ(rows.size(), 20u);
    for (std::size_t i = 0; i < 140; ++i)
        EXPECT_EQ(rows[19][i], Number(static_cast<std::int64_t>(i)));

    const std::vector<jet::Index> indexes = support::TableOf(reader, "wide").indexes;
    ASSERT_EQ(indexes.size(), 2u);
    EXPECT_EQ(indexes[0].name, "PrimaryKey");
    EXPECT_TRUE(indexes[0].primary && indexes[0].unique && indexes[0].required && !indexes[0].ignoreNulls);
    ASSERT_EQ(indexes[0].columns.size(), 2u);
    EXPECT_EQ(indexes[0].columns[0].name, "a_rather_long_name_120");
    EXPECT_TRUE(!indexes[0].columns[0].descending && indexes[0].columns[1].descending);
    EXPECT_TRUE(indexes[1].ignoreNulls && !indexes[1].unique && !indexes[1].primary);
}

TEST_P(JetFormat, OnlyReadableColumnsAndUserTablesShow) {
    const std::vector<ImageColumn> columns = {{.name = "odd", .type = 17, .fixed = true, .length = 8}, kId};
    image_.AddTable("Mixed", columns, {{Bytes64(1), Bytes32(5)}});
    const std::uint32_t hidden = image_.AddTable("plain", {kId}, {});
    image_.AddObject("MSysOther", 1, hidden, 0x80000002);
    image_.AddObject("~TMPCLP1", 1, hidden, 0);
    image_.AddObject("linked", 6, hidden, 0);
    image_.AddObject("form", -32768, hidden, 0);
    const jetfile::Reader reader = OpenImage(image_.Bytes());
    ASSERT_EQ(reader.Tables().size(), 2u);
    ASSERT_EQ(reader.Tables()[0].columns.size(), 1u);
    EXPECT_THAT(RowsOf(reader, "mIXED"), ElementsAre(Row{Number(5)}));
}

TEST_P(JetFormat, LargeTablesMapTheirPagesOnPagesOfTheirOwn) {
    const std::uint32_t table = image_.AddTable("t", {kId}, {});
    const std::uint32_t rows = image_.AddRowPage(table, {{image_.EncodeRow({kId}, {Bytes32(8)})}});
    const std::uint32_t stranger = image_.AddRowPage(table + 1, {{{1}}});
    const std::uint32_t bitmap = image_.NewPage(5);
    for (const std::uint32_t page : {rows, stranger}) {
        image_.Page(bitmap)[4 + page / 8] |= static_cast<std::uint8_t>(1u << (page % 8));
    }
    // No rows yet: the map's pointer is in the definition, the first map page is followed by an empty range.
    const std::uint32_t map = image_.AddRowPage(1, {{Joined({{1}, Bytes32(bitmap), Bytes32(0)})}});
    support::Patch(image_.Page(table), Jet3() ? 35 : 55, Bytes32(map << 8));
    EXPECT_THAT(RowsOf(OpenImage(image_.Bytes()), "t"), ElementsAre(Row{Number(8)}));
}

TEST_P(JetFormat, PasswordsAndEncodedFiles) {
    image_.AddTable("t", {kId}, {});
    const Blob locked = image_.Bytes(Stored(u"s\u00e9same"));
    EXPECT_EQ(support::ErrorOfReadingAll(locked, "s\u00c3\u00a9same"), 3031);
    EXPECT_EQ(support::ErrorOfReadingAll(locked, "s\xc3\xa9same"), 0);
    EXPECT_EQ(support::ErrorOfReadingAll(locked, ""), 3031);

    JetImage other(GetParam());
    Blob open = other.Bytes();
    EXPECT_EQ(support::ErrorOfReadingAll(open, "any"), 0);
    open[0x3E] ^= 1;
    EXPECT_EQ(support::ErrorOfReadingAll(open), 3343);
    open[0x3E] ^= 1;
    open[0x14] = 2;
    EXPECT_EQ(support::ErrorOfReadingAll(open), 3343);
}

class JetText : public testing::Test {
  protected:
    static Value Read(FileKind kind, const Blob& stored, std::uint16_t codePage) {
        JetImage image(kind);
        image.AddTable("t", {{.name = "c", .type = 10, .length = 100, .codePage = codePage}}, {{stored}});
        return RowsOf(OpenImage(image.Bytes()), "t")[0][0];
    }
};

TEST_F(JetText, CodePagesOfJet3) {
    EXPECT_EQ(Read(FileKind::Jet3, BytesOf("a\xFC\x80\x81z"), 1252), Text("aü€\u0081z"));
    EXPECT_EQ(Read(FileKind::Jet3, BytesOf("\x83\x7C[\x83\x5C\xB1"), 932), Text("ポ[ソｱ"));
    EXPECT_EQ(Read(FileKind::Jet3, BytesOf("\xCC\xE8\xF0"), 1251), Text("Мир"));
    EXPECT_EQ(Read(FileKind::Jet3, BytesOf("ok\x83"), 932), Text("ok\uFFFD"));
    EXPECT_EQ(Read(FileKind::Jet3, BytesOf("\xE4"), 0), Text("ä"));
    const std::string large(250, '\xE4');
    std::string umlauts;
    for (int i = 0; i < 230; ++i)
        umlauts += "ä";
    EXPECT_EQ(Read(FileKind::Jet3, BytesOf(large.substr(0, 230)), 1252), Text(umlauts));
}

TEST_F(JetText, UnicodeOfJet4) {
    const auto read = [](const Blob& stored) { return Read(FileKind::Jet4, stored, 0); };
    EXPECT_EQ(read(support::Utf16(u"Ω⁻ 電\U0001F600")), Text("Ω⁻ 電😀"));
    EXPECT_EQ(read(Joined({{0xFF, 0xFE}, BytesOf("a\xE9")})), Text("aé"));
    // Compressed, two characters in pairs (one of them with a zero byte on its second place), compressed
    // again.
    EXPECT_EQ(read(Joined({{0xFF, 0xFE, 'a', 0}, support::Utf16(u"電b"), {0, 'c'}})), Text("a電bc"));
    EXPECT_EQ(read(Joined({{0xFF, 0xFE, 0}, support::Utf16(u"\U0001F601")})), Text("😁"));
    EXPECT_EQ(read({0xFF, 0xFE}), Text(""));
    EXPECT_EQ(read({}), Text(""));
    // What is no text: a lone surrogate, half a character.
    EXPECT_EQ(read(Joined({Bytes16(0xD800), Bytes16('x'), Bytes16(0xDC00)})), Text("\uFFFDx\uFFFD"));
    EXPECT_EQ(read({'a', 0, 'b'}), Text("a"));
    EXPECT_EQ(read(Joined({Bytes16('a'), Bytes16(0), Bytes16('b')})), Text(std::string("a\0b", 3)));
}

// Offsets of a long Jet 3 row need jumps: fields from number 1 on lie 256 bytes further, from 3 on 512.
TEST(JetRows, LongRowsOfJet3) {
    const std::vector<Blob> parts = {Blob(255, 'a'), Blob(150, 'b'), Blob(110, 'c'), Blob(20, 'd')};
    std::vector<ImageColumn> columns;
    for (const char* name : {"a", "b", "c", "d"})
        columns.push_back({.name = name, .type = 10, .length = 255});
    const auto offset = [](int at) { return static_cast<std::uint8_t>(at); };
    const Blob row = Joined({{4},
                             parts[0],
                             parts[1],
                             parts[2],
                             parts[3],
                             {offset(536), offset(516), offset(406), offset(256), offset(1)},
                             {3, 1},
                             {4},
                             {0x0F}});
    JetImage image(FileKind::Jet3);
    image.AddTableOfSlots("t", columns, {{row}});
    EXPECT_THAT(RowsOf(OpenImage(image.Bytes()), "t"),
                ElementsAre(Row{Text(std::string(255, 'a')), Text(std::string(150, 'b')),
                                Text(std::string(110, 'c')), Text(std::string(20, 'd'))}));
}

}  // namespace
