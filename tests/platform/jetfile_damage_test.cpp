// The reader over damaged and hostile files: an error in bounded time, never a crash or a hang.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <random>

#include "support/jet_image.h"
#include "support/jet_reading.h"

namespace {

using jetfile::Blob;
using jetfile::FileKind;
using support::Bytes16;
using support::Bytes32;
using support::ErrorOfReadingAll;
using support::ImageColumn;
using support::ImageSlot;
using support::JetImage;
using support::Joined;
using support::kSamplePassword;
using support::Patch;

// Far above what any case needs, also under a sanitizer; a file read again and again would take minutes.
constexpr std::chrono::seconds kTimeBound(10);

int BoundedErrorOf(const Blob& image, const std::string& password = "") {
    const auto start = std::chrono::steady_clock::now();
    const int error = ErrorOfReadingAll(image, password);
    EXPECT_LT(std::chrono::steady_clock::now() - start, kTimeBound);
    return error;
}

TEST(JetDamage, TruncatedFiles) {
    const Blob sample = support::SampleImage("IdeInfo.mdb");
    std::vector<std::size_t> sizes = {0, 1, 19, 151, 4095, 4097, sample.size() - 1};
    for (std::size_t pages = 1; pages < sample.size() / 4096; pages += 37)
        sizes.push_back(pages * 4096);
    for (const std::size_t size : sizes) {
        const Blob cut(sample.begin(), sample.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_THAT(BoundedErrorOf(cut, kSamplePassword), testing::AnyOf(3343, 3049)) << size;
    }
}

// Changes bytes near the heads of pages, where the structures are, and anywhere.
Blob Mutated(const Blob& image, std::size_t pageSize, std::mt19937& random) {
    Blob mutated = image;
    for (std::size_t n = 1 + random() % 8; n > 0; --n) {
        const std::size_t page = random() % (image.size() / pageSize);
        const std::size_t range = random() % 2 == 0 ? 64 : pageSize;
        const std::size_t at = page * pageSize + random() % range;
        if (at >= pageSize) mutated[at] = static_cast<std::uint8_t>(random() % 3 == 0 ? 0xFF : random());
    }
    return mutated;
}

TEST(JetDamage, MutatedSample) {
    const Blob sample = support::SampleImage("IdeInfo.mdb");
    std::mt19937 random(20240517);
    int failures = 0;
    for (int round = 0; round < 120; ++round) {
        const int error = BoundedErrorOf(Mutated(sample, 4096, random), kSamplePassword);
        EXPECT_THAT(error, testing::AnyOf(0, 3049)) << round;
        failures += error != 0;
    }
    // The generator does hit structures, and spares most texts and numbers.
    EXPECT_GT(failures, 20);
    EXPECT_LT(failures, 110);
}

Blob LongHead(std::size_t length, std::uint32_t pointer) {
    return Joined({Bytes32(length), Bytes32(pointer), Bytes32(0)});
}

class JetHostile : public testing::TestWithParam<FileKind> {
  protected:
    bool Jet3() const { return GetParam() == FileKind::Jet3; }
    // An offset within a table definition, given as Jet 3 has it.
    std::size_t At(std::size_t offset) const { return Jet3() ? offset : offset + 20; }
    std::size_t RowCountAt() const { return Jet3() ? 8 : 12; }

    // A table with a number and a memo; its definition, rows and usage map are on pages 3 to 5.
    std::uint32_t AddTable(const std::vector<ImageSlot>& slots) {
        return image_.AddTableOfSlots("t", columns_, slots, {{"key", {0}, 1, 1}});
    }
    ImageSlot RowWith(const Blob& memo) const { return {image_.EncodeRow(columns_, {Bytes32(1), memo})}; }

    const std::vector<ImageColumn> columns_ = {{.name = "id", .type = 4, .fixed = true, .length = 4},
                                               {.name = "memo", .type = 12}};
    JetImage image_{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Both, JetHostile, testing::Values(FileKind::Jet3, FileKind::Jet4),
                         [](const auto& test) { return test.param == FileKind::Jet3 ? "Jet3" : "Jet4"; });

TEST_P(JetHostile, StructuresThatContradictThemselves) {
    struct Case {
        const char* what;
        std::uint32_t page;
        std::size_t at;
        Blob bytes;
    };
    const std::size_t directory = RowCountAt() + 2;
    const std::size_t entries = Jet3() ? 43 + 8 : 63 + 12;
    for (const Case& c : std::vector<Case>{
             {"the definition continues on itself", 3, 4, Bytes32(3)},
             {"it continues beyond the end", 3, 4, Bytes32(0x7FFFFFFF)},
             {"it continues on a page of rows", 3, 4, Bytes32(4)},
             {"a page of another kind", 3, 0, {1}},
             {"too many columns", 3, At(25), Bytes16(0xFFFF)},
             {"too many indexes", 3, At(31), Bytes32(0xFFFFFFFF)},
             {"too many logical indexes", 3, At(27), Bytes32(0x10000)},
             {"usage map on a missing row", 3, At(35), Bytes32(5 << 8 | 9)},
             {"usage map beyond the end", 3, At(35), Bytes32(0xFFFFFF00)},
             {"usage map on a page of another kind", 3, At(35), Bytes32(3 << 8)},
             {"fixed field outside its row", 3, entries + (Jet3() ? 14u : 21u), Bytes16(0x7FFF)},
             {"columns of one number", 3, entries + (Jet3() ? 1u : 5u), Bytes16(1)},
             {"too many rows", 4, RowCountAt(), Bytes16(0xFFFF)},
             {"rows outside the page", 4, directory, Bytes16(0x1FFF)},
             {"rows in the directory", 4, directory, Bytes16(2)},
             {"a moved row that is its own pointer", 4, directory, Bytes16((Jet3() ? 2044 : 4092) | 0x4000)},
             {"the catalogue continues on itself", 2, 4, Bytes32(2)},
             {"a catalogue of other columns", 2, Jet3() ? 116u : 165u, {'X'}},
         }) {
        image_ = JetImage(GetParam());
        AddTable({RowWith(LongHead(0, 0))});
        Blob bytes = image_.Bytes();
        ASSERT_EQ(ErrorOfReadingAll(bytes), 0);
        Patch(bytes, c.page * (Jet3() ? 2048u : 4096u) + c.at, c.bytes);
        EXPECT_EQ(BoundedErrorOf(bytes), 3049) << c.what;
    }
}

TEST_P(JetHostile, UsageMapsThatLead) {
    for (const Blob& map :
         std::vector<Blob>{{7, 0, 0, 0, 0, 1},                 // an unknown kind
                           {},                                 // nothing at all
                           {0, 0, 0, 0, 0, 0, 0, 0, 0x80},     // a page beyond the end
                           {0, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF},  // from the last page number on
                           {1, 3, 0, 0, 0},                    // to a page of another kind
                           {1, 0xFF, 0xFF, 0xFF, 0xFF}}) {     // to a page beyond the end
        image_ = JetImage(GetParam());
        const std::uint32_t table = AddTable({});
        Patch(image_.Page(table), At(35), Bytes32(image_.AddRowPage(1, {{map}}) << 8));
        EXPECT_EQ(BoundedErrorOf(image_.Bytes()), 3049) << map.size();
    }
}

TEST_P(JetHostile, LongValuesThatLead) {
    const std::uint32_t table = image_.NextPage();
    const std::uint32_t chain = table + 3;
    struct Case {
        const char* what;
        Blob head;
    };
    for (const Case& c :
         std::vector<Case>{{"in a circle", LongHead(0x3FFFFFFF, chain << 8)},
                           {"to too little", LongHead(1000, chain << 8 | 1)},
                           {"to no pointer at all", LongHead(10, chain << 8 | 2)},
                           {"to the rows of a table", LongHead(10, (table + 1) << 8)},
                           {"beyond the end", LongHead(10, 0xFFFFFF00)},
                           {"single piece too short", LongHead(0x40000000 | 1000, chain << 8 | 1)},
                           {"inline too short", LongHead(0x80000000 | 1, 0)},
                           {"nowhere", LongHead(10, 0)},
                           {"half a head", {1, 0, 0, 0}}}) {
        image_ = JetImage(GetParam());
        ASSERT_EQ(AddTable({RowWith(c.head)}), table);
        const Blob circle = Joined({Bytes32(chain << 8), Blob(50, 'x')});
        const Blob end = Joined({Bytes32(0), Blob(50, 'x')});
        ASSERT_EQ(image_.AddRowPage(JetImage::kLongValues, {{circle}, {end}, {{1, 2}}}), chain);
        EXPECT_EQ(BoundedErrorOf(image_.Bytes()), 3049) << c.what;
    }
}

// Each pointer is sound, but together they name far more than the file holds.
TEST_P(JetHostile, ManyPointersToOneThing) {
    const std::uint32_t target = image_.NextPage();
    image_.AddRowPage(JetImage::kLongValues, {{Blob(1800, 'x')}});
    AddTable(std::vector<ImageSlot>(20000, RowWith(LongHead(0x40000000 | 1800, target << 8))));
    EXPECT_EQ(BoundedErrorOf(image_.Bytes()), 3049);

    JetImage moved(GetParam());
    const std::uint32_t rows = moved.NextPage() + 1;
    std::vector<ImageSlot> slots = {
        {moved.EncodeRow(columns_, {Bytes32(1), Joined({LongHead(0x80000000 | 200, 0), Blob(200, 0)})})}};
    slots.resize(20000, {Bytes32(rows << 8), 0x4000});
    moved.AddTableOfSlots("t", columns_, slots);
    EXPECT_EQ(BoundedErrorOf(moved.Bytes()), 3049);

    JetImage twice(GetParam());
    twice.AddObject("again", 1, twice.AddTable("t", columns_, {}), 0);
    EXPECT_EQ(BoundedErrorOf(twice.Bytes()), 3049);
    JetImage named(GetParam());
    named.AddTable("t", columns_, {});
    named.AddTable("T", columns_, {});
    EXPECT_EQ(BoundedErrorOf(named.Bytes()), 3049);
}

// Damage in the rows of stored queries must not keep anybody from the tables.
TEST_P(JetHostile, DamagedQueriesOnlyShowAsProblems) {
    AddTable({});
    image_.AddObject("q", 5, 0x80000001, 0);
    image_.AddObject("MSysQueries", 1, 0x00FFFFFF, 0x80000000);
    const jetfile::Reader reader = support::OpenImage(image_.Bytes());
    ASSERT_EQ(reader.Queries().size(), 1u);
    EXPECT_EQ(reader.Queries()[0].sql, "");
    EXPECT_NE(reader.Queries()[0].problem, "");
    EXPECT_EQ(reader.Tables().size(), 1u);
}

TEST_P(JetHostile, MutatedSmallFiles) {
    const std::uint32_t last =
        image_.AddRowPage(JetImage::kLongValues, {{Joined({Bytes32(0), Blob(100, 'b')})}});
    const std::uint32_t first =
        image_.AddRowPage(JetImage::kLongValues, {{Joined({Bytes32(last << 8), Blob(9, 'a')})}});
    AddTable(
        {RowWith(LongHead(100, first << 8)), RowWith(Joined({LongHead(0x80000000 | 4, 0), Blob(4, 'x')}))});
    const Blob sound = image_.Bytes();
    ASSERT_EQ(ErrorOfReadingAll(sound), 0);
    std::mt19937 random(1997);
    int failures = 0;
    for (int round = 0; round < 3000; ++round) {
        const int error = BoundedErrorOf(Mutated(sound, Jet3() ? 2048 : 4096, random));
        EXPECT_THAT(error, testing::AnyOf(0, 3049)) << round;
        failures += error != 0;
    }
    EXPECT_GT(failures, 500);
}

}  // namespace
