#include <gmock/gmock.h>

#include "library/monitor_tables.h"
#include "support/library_fixture.h"

namespace {

using namespace support;
using namespace monitor_tables;
using testing::ElementsAre;

// Axis 1 has the analog table A and the I/O table I, axis 2 neither. In display order: a row of every kind,
// one whose bit stands past the word, one past the bitmap, one that is hidden, one of kind 3 and 32 only, one
// without kinds.
class TraceTest : public LibraryTest {
  protected:
    TraceTest() {
        UseDatabase(kRegistry);
        Execute({"ALTER TABLE [tablemanager] ADD COLUMN [analogtrace_table] TEXT(64)",
                 "ALTER TABLE [tablemanager] ADD COLUMN [iotrace_table] TEXT(64)"});
        Execute(
            {"CREATE TABLE [A] ([analog_id] LONG, [target_name_id] LONG, [target_name] TEXT(80), [index] "
             "LONG, "
             "[bitindex] LONG, [display_flag] SHORT, [unit] TEXT(50), [unit_multiplier] SINGLE, [unit_name] "
             "TEXT(50), [conversion_type] SHORT, [limit] LONG, [max_level] LONG, [min_level] LONG, "
             "[default_flag] SHORT, [target] LONG, [order] SHORT, [support] SHORT)",
             "CREATE TABLE [I] ([io_name] TEXT(60), [value] LONG, [reverse] SHORT, [default_flag] SHORT, "
             "[io_id] "
             "LONG, [index] LONG, [bitindex] LONG, [target] LONG, [order] SHORT, [support] SHORT)"});
        const struct {
            const char *index, *bit, *flag, *target;
        } rows[] = {{"0", "15", "1", "-1"}, {"0", "16", "1", "-1"},         {"2", "0", "1", "-1"},
                    {"1", "0", "0", "1"},   {"1", "1", "1", "-2147483644"}, {"0", "15", "1", "NULL"}};
        int number = 0;
        for (const auto& row : rows) {
            ++number;
            const std::string n = std::to_string(number);
            const std::string place = std::string(row.index) + "," + row.bit + ",";
            Execute({"INSERT INTO [A] VALUES (10" + n + "," + n + ",'name" + n + "'," + place + row.flag +
                         ",'V',0.5,'volt',2,3,4,-5,1," + row.target + "," + n + "0,7)",
                     "INSERT INTO [I] VALUES ('io" + n + "',2" + n + ",1,1,30" + n + "," + place +
                         row.target + "," + n + "0,8)"});
        }
        Execute(
            {"INSERT INTO [tablemanager] ([axis_num],[analogtrace_table],[iotrace_table]) VALUES (1,' A ','I "
             "')",
             "INSERT INTO [tablemanager] ([axis_num]) VALUES (2)"});
    }

    void MakeConversionTables() {
        Execute(
            {"CREATE TABLE [AnalogTraceInfo] ([target_name_id] LONG, [group_id] LONG, [tavroiii_name_id] "
             "LONG)",
             "INSERT INTO [AnalogTraceInfo] VALUES (51,7,1)",
             "INSERT INTO [AnalogTraceInfo] VALUES (52,7,99)",
             "INSERT INTO [AnalogTraceInfo] VALUES (53,8,2)",
             "CREATE TABLE [IOTraceInfo] ([io_id] LONG, [io_name] TEXT(20), [value] LONG, [reverse] SHORT, "
             "[group_id] LONG, [tavroiii_io_id] LONG)",
             "SELECT * INTO [Other] FROM [IOTraceInfo]",
             "INSERT INTO [IOTraceInfo] VALUES (61,'a',5,1,3,301)",
             "INSERT INTO [IOTraceInfo] VALUES (62,'b',6,0,4,399)",
             "INSERT INTO [Other] VALUES (61,'c',9,0,4,302)",
             "CREATE TABLE [Tavro2Model] ([servo_id] LONG, [table_name] TEXT(30))",
             "INSERT INTO [Tavro2Model] VALUES (34,'Other')", "INSERT INTO [Tavro2Model] VALUES (35,NULL)"});
    }

    static constexpr std::uint16_t kBitmap[2] = {0x8000, 0x0003};
};

TEST_F(TraceTest, OffersWhatTheKindHasAndTheDriveSupports) {
    const struct {
        std::uint32_t kind;
        std::uint16_t words, shown, hidden;
        std::vector<std::uint32_t> shownIds, offeredIds;
    } cases[] = {{1, 2, 1, 1, {1}, {1, 2, 3, 4}},
                 {3, 2, 2, 0, {1, 5}, {1, 2, 3, 5}},
                 {32, 2, 2, 0, {1, 5}, {1, 2, 3, 5}},
                 {3, 1, 1, 0, {1}, {1, 2, 3, 5}},
                 {3, 0, 0, 0, {}, {1, 2, 3, 5}},
                 {0, 2, 0, 0, {}, {}},
                 {33, 2, 0, 0, {}, {}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.kind);
        std::uint16_t counts[2] = {9, 9};
        ASSERT_EQ(KaloGetAnalogtraceNum(1, c.kind, c.words, kBitmap, counts), 0u);
        EXPECT_EQ(counts[0], c.shown);
        EXPECT_EQ(counts[1], c.hidden);
        Guarded<std::uint32_t[8]> ids;
        ASSERT_EQ(KaloGetAnalogtraceIDList(1, c.kind, c.words, kBitmap, ids.record), 0u);
        EXPECT_EQ(std::vector(ids.record, ids.record + counts[0]), c.shownIds);
        EXPECT_EQ(ids.record[counts[0]], 0xEEEEEEEE);

        std::uint16_t io = 9;
        ASSERT_EQ(KaloGetIotraceNum(1, c.kind, c.words, kBitmap, &io), 0u);
        EXPECT_EQ(io, c.shown + c.hidden);
        ASSERT_EQ(KaloGetIotraceIDList(1, c.kind, c.words, kBitmap, ids.record), 0u);
        EXPECT_EQ(ids.record[io], 0xEEEEEEEE);

        std::uint16_t analogMap = 5;
        std::uint16_t ioMap = 5;
        ASSERT_EQ(KaloGetAnalogtraceMapNum(1, c.kind, &analogMap), 0u);
        ASSERT_EQ(KaloGetIOtraceMapNum(1, c.kind, &ioMap), 0u);
        EXPECT_EQ(analogMap, 5 + c.offeredIds.size()) << "added to what the caller had";
        ASSERT_EQ(ioMap, c.offeredIds.size());
        Guarded<KaloTraceMap[8]> map;
        ASSERT_EQ(KaloGetAnalogtraceMap(1, c.kind, map.record), 0u);
        for (std::size_t i = 0; i < c.offeredIds.size(); ++i)
            EXPECT_EQ(map.record[i].id, c.offeredIds[i]);
        EXPECT_EQ(map.record[ioMap].id, 0xEEEEEEEE);
        ASSERT_EQ(KaloGetIOtraceMap(1, c.kind, map.record), 0u);
        for (std::size_t i = 0; i < c.offeredIds.size(); ++i)
            EXPECT_EQ(map.record[i].id, 300 + c.offeredIds[i]);
    }
}

TEST_F(TraceTest, MapElementsSayWhereTheBitStands) {
    Execute({"UPDATE [A] SET [bitindex] = 259 WHERE [target_name_id] = 1",
             "UPDATE [I] SET [bitindex] = 259 WHERE [io_id] = 301"});
    KaloTraceMap map[4];
    ASSERT_EQ(KaloGetAnalogtraceMap(1, 1, map), 0u);
    EXPECT_EQ(map[2].index, 2u);
    EXPECT_EQ(map[2].support, 7);
    EXPECT_EQ(map[0].bitindex, 3) << "the low 8 bits";
    ASSERT_EQ(KaloGetIOtraceMap(1, 1, map), 0u);
    EXPECT_EQ(map[0].bitindex, 259);
    EXPECT_EQ(map[0].support, 8);
}

TEST_F(TraceTest, APositionNamesTheIdOrLeavesTheOutput) {
    const struct {
        std::uint32_t kind;
        std::uint16_t position, flag;
        std::uint32_t analog, io;
    } cases[] = {{1, 0, 1, 1, 301}, {1, 2, 1, 3, 303}, {1, 0, 0, 4, 301}, {1, 3, 1, 77, 304},
                 {3, 3, 1, 5, 305}, {3, 4, 1, 77, 77}, {0, 0, 1, 77, 77}};
    for (const auto& c : cases) {
        std::uint32_t analog = 77;
        std::uint32_t io = 77;
        EXPECT_EQ(KaloGetAnalogtraceInfoId(1, c.kind, c.position, c.flag, &analog), 0u);
        EXPECT_EQ(KaloGetIotraceInfoId(1, c.kind, c.position, &io), 0u);
        EXPECT_EQ(analog, c.analog) << c.kind << ' ' << c.position;
        EXPECT_EQ(io, c.io) << c.kind << ' ' << c.position;
    }
    Execute({"UPDATE [A] SET [target_name_id] = NULL WHERE [order] = 10"});
    std::uint32_t analog = 77;
    EXPECT_EQ(KaloGetAnalogtraceInfoId(1, 1, 0, 1, &analog), 0u);
    EXPECT_EQ(analog, 0u);
}

TEST_F(TraceTest, RecordsCarryTheirFieldsOrTheIdAlone) {
    Guarded<KaloAnalogTrace> analog;
    ASSERT_EQ(KaloGetAnalogtraceInfo(1, 3, &analog.record), 0u);
    const KaloAnalogTrace& a = analog.record;
    EXPECT_EQ(a.analog_id, 103u);
    EXPECT_EQ(a.target_name_id, 3u);
    EXPECT_STREQ(a.target_name, "name3");
    EXPECT_EQ(a.unit_multiplier, 0x3F000000u) << "the bytes of 0.5";
    EXPECT_THAT((std::vector<std::uint32_t>{a.display_flag, a.conversion_type, a.limit, a.max_level,
                                            a.min_level, a.default_flag}),
                ElementsAre(1u, 2u, 3u, 4u, 0xFFFFFFFBu, 1u));
    KaloAnalogTrace empty = {};
    empty.target_name_id = 99;
    EXPECT_EQ(KaloGetAnalogtraceInfo(1, 99, &analog.record), 0x2BFE0000u);
    EXPECT_EQ(std::memcmp(&analog.record, &empty, sizeof empty), 0);

    Guarded<KaloIoTrace> io;
    ASSERT_EQ(KaloGetIotraceInfo(1, 302, &io.record), 0u);
    EXPECT_STREQ(io.record.io_name, "io2");
    EXPECT_EQ(io.record.value, 22u);
    EXPECT_EQ(io.record.reverse + io.record.default_flag, 2);
    KaloIoTrace emptyIo = {};
    emptyIo.io_id = 99;
    EXPECT_EQ(KaloGetIotraceInfo(1, 99, &io.record), 0x2BFE0000u);
    EXPECT_EQ(std::memcmp(&io.record, &emptyIo, sizeof emptyIo), 0);

    const std::string tooLong(50, 'x');
    Execute({"UPDATE [I] SET [io_name] = '" + tooLong + "'",
             "UPDATE [A] SET [target_name] = '" + tooLong + "xxxxxxxxxx', [unit_name] = '" + tooLong + "'"});
    EXPECT_EQ(KaloGetIotraceInfo(1, 302, &io.record), 0u);
    EXPECT_EQ(KaloGetAnalogtraceInfo(1, 3, &analog.record), 0u);
    EXPECT_TRUE(io.GuardsIntact());
    EXPECT_TRUE(analog.GuardsIntact());
    EXPECT_EQ(analog.record.min_level, 0xFFFFFFFBu) << "numbers behind a long text are written after it";
}

TEST_F(TraceTest, NoSettingIsTheLastRowRepeated) {
    Guarded<KaloNoAnalogTrace[3]> analog;
    Guarded<KaloNoIoTrace[3]> io;
    ASSERT_EQ(KaloGetTraceNoSettingValue(1, 3, analog.record, io.record), 0u);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(analog.record[i].analog_id, 106u);
        EXPECT_EQ(analog.record[i].target_name_id, 6);
        EXPECT_EQ(io.record[i].value, 26u);
        EXPECT_EQ(io.record[i].io_id, 306);
    }
    Guarded<KaloNoAnalogTrace> none;
    ASSERT_EQ(KaloGetTraceNoSettingValue(1, 0, &none.record, io.record), 0u);
    EXPECT_TRUE(none.Untouched());
    MakeConversionTables();
    ASSERT_EQ(KaloGetTraceOfflineNoSettingValue(0, 2, analog.record, io.record), 0u);
    EXPECT_EQ(analog.record[1].target_name_id, 53);
    EXPECT_EQ(analog.record[1].analog_id, 0u);
    EXPECT_EQ(io.record[1].io_id, 62);
    EXPECT_EQ(io.record[1].value, 6u);
    Execute({"DELETE * FROM [I]", "DELETE * FROM [IOTraceInfo]"});
    EXPECT_EQ(KaloGetTraceNoSettingValue(1, 3, analog.record, io.record), 0x2BFF169Fu);
    EXPECT_EQ(KaloGetTraceOfflineNoSettingValue(0, 2, analog.record, io.record), 0x2BFF16AFu);
}

TEST_F(TraceTest, IdsOfOneGroupAreTheSameAndConvert) {
    MakeConversionTables();
    const struct {
        std::uint16_t kind;
        std::uint32_t a1, a3, b1, b3;
        std::uint16_t different;
    } checks[] = {{1, 51, 0, 52, 0, 0},        {1, 51, 0, 53, 0, 1},   {1, 51, 0, 59, 0, 1},
                  {1, 0x10033, 0, 52, 0, 0},   {2, 34, 61, 17, 62, 0}, {2, 17, 61, 34, 61, 1},
                  {2, 17, 0x1003D, 17, 61, 0}, {2, 35, 61, 17, 61, 1}};
    for (const auto& c : checks) {
        std::uint16_t different = 9;
        EXPECT_EQ(KaloCheckTraceID(c.kind, c.a1, 0, c.a3, c.b1, 0, c.b3, &different), 0u);
        EXPECT_EQ(different, c.different) << c.kind << ' ' << c.a1 << ' ' << c.b1;
    }
    const struct {
        std::uint16_t kind;
        std::uint32_t x2;
        std::uint16_t x4;
        KaloStatus status;
        std::uint32_t converted;
    } conversions[] = {{1, 51, 0, 0, 1},           {1, 52, 0, 0x2BFE0000, 77}, {1, 59, 0, 0x2BFF16CB, 77},
                       {2, 17, 61, 0, 301},        {2, 34, 61, 0, 302},        {2, 17, 62, 0x2BFE0000, 77},
                       {2, 17, 9, 0x2BFF16DF, 77}, {2, 35, 61, 0x2BFF16DE, 77}};
    for (const auto& c : conversions) {
        std::uint32_t converted = 77;
        EXPECT_EQ(KaloConvertTraceID(1, c.kind, c.x2, 0, c.x4, &converted), c.status)
            << c.kind << ' ' << c.x2;
        EXPECT_EQ(converted, c.converted);
    }
    KaloIoTrace io;
    EXPECT_EQ(KaloGetIotraceOfflineInfo(34, 61, &io, 0, 0), 0u);
    EXPECT_STREQ(io.io_name, "c");
    EXPECT_EQ(KaloGetIotraceOfflineInfo(35, 61, &io, 0, 0), 0u) << "no name: the general table";
    EXPECT_STREQ(io.io_name, "a");
    EXPECT_EQ(KaloGetIotraceOfflineInfo(17, 63, &io, 0, 0), 0x2BFF1413u);
    EXPECT_EQ(io.io_id, 63u);
}

struct Getter {
    KaloStatus notOpen, noAxis, noTable, empty;
    std::vector<FaultRegion> regions;
    std::function<KaloStatus(std::int16_t axis)> call;
};

TEST_F(TraceTest, EveryGetterHasItsCodes) {
    std::uint16_t words[8] = {};
    std::uint32_t id;
    std::uint32_t ids[8];
    KaloTraceMap map[8];
    KaloAnalogTrace analog;
    KaloIoTrace io;
    KaloNoAnalogTrace noAnalog[2];
    KaloNoIoTrace noIo[2];
    const Memory output = {BytesOf(words), BytesOf(id), BytesOf(analog), BytesOf(io)};
    const Memory behind = {BytesOf(ids[7]), BytesOf(map[7]), BytesOf(noAnalog[1]), BytesOf(noIo[1])};
    const Getter getters[] = {
        {0x2BFF0018,
         0x2BFF0019,
         0x2BFF001A,
         0,
         {Code(0x2BFF001B), Code(0x2BFF001C)},
         [&](auto axis) { return KaloGetAnalogtraceNum(axis, 1, 2, kBitmap, words); }},
        {0x2BFF122B,
         0x2BFF1228,
         0x2BFF122A,
         0x2BFF122F,
         {Code(0x2BFF1229), Code(0x2BFF122C)},
         [&](auto axis) { return KaloGetAnalogtraceIDList(axis, 1, 2, kBitmap, ids); }},
        {0x2BFF001D,
         0x2BFF001E,
         0x2BFF001F,
         0,
         {Code(0x2BFF0020), Base(0x2BF90000)},
         [&](auto axis) { return KaloGetAnalogtraceInfoId(axis, 1, 0, 1, &id); }},
        {0x2BFF0022,
         0x2BFF06F2,
         0x2BFF06F2,
         0x2BFE0000,
         {Code(0x2BFF0021), Filling(Code(0x2BFF06F5))},
         [&](auto axis) { return KaloGetAnalogtraceInfo(axis, 1, &analog); }},
        {0x2BFF153B,
         0x2BFF1538,
         0x2BFF153A,
         0x2BFF153F,
         {Code(0x2BFF1539), Code(0x2BFF153C)},
         [&](auto axis) { return KaloGetAnalogtraceMapNum(axis, 1, words); }},
        {0x2BFF154B,
         0x2BFF1548,
         0x2BFF154A,
         0x2BFF154F,
         {Code(0x2BFF1549), Code(0x2BFF154C)},
         [&](auto axis) { return KaloGetAnalogtraceMap(axis, 1, map); }},
        {0x2BFF169B,
         0x2BFF1698,
         0x2BFF169A,
         0x2BFF169F,
         {Code(0x2BFF1699), Code(0x2BFF169C), Code(0x2BFF1699), Code(0x2BFF169C)},
         [&](auto axis) { return KaloGetTraceNoSettingValue(axis, 1, noAnalog, noIo); }},
        {0x2BF00000,
         0x2BF10000,
         0x2BF20000,
         0,
         {Code(0x2BFF0776), Code(0x2BFF0777)},
         [&](auto axis) { return KaloGetIotraceNum(axis, 1, 2, kBitmap, words); }},
        {0x2BFF1228,
         0x2BFF123A,
         0x2BFF1238,
         0x2BFF123F,
         {Code(0x2BFF1239), Code(0x2BFF123C)},
         [&](auto axis) { return KaloGetIotraceIDList(axis, 1, 2, kBitmap, ids); }},
        {0x2BF50000,
         0x2BF60000,
         0x2BF70000,
         0x2BF90000,
         {Code(0x2BFF0778), Base(0x2BF90000)},
         [&](auto axis) { return KaloGetIotraceInfoId(axis, 1, 0, &id); }},
        {0x2BFB0000,
         0x2BFF077A,
         0x2BFF077B,
         0x2BFE0000,
         {Code(0x2BFF077C), Filling(Code(0x2BFF077D))},
         [&](auto axis) { return KaloGetIotraceInfo(axis, 301, &io); }},
        {0x2BFF155B,
         0x2BFF1558,
         0x2BFF155A,
         0x2BFF155F,
         {Code(0x2BFF1559), Code(0x2BFF155C)},
         [&](auto axis) { return KaloGetIOtraceMapNum(axis, 1, words); }},
        {0x2BFF156B,
         0x2BFF1568,
         0x2BFF156A,
         0x2BFF156F,
         {Code(0x2BFF1569), Code(0x2BFF156C)},
         [&](auto axis) { return KaloGetIOtraceMap(axis, 1, map); }},
    };
    for (const Getter& getter : getters) {
        SCOPED_TRACE(getter.notOpen);
        EXPECT_EQ(getter.call(9), getter.noAxis);
        EXPECT_EQ(getter.call(2), getter.noTable);
        ExpectFaults({.call = [&] { return getter.call(1); },
                      .regions = getter.regions,
                      .output = output,
                      .behind = behind});
    }
    MakeConversionTables();
    Execute({"SELECT * INTO [AnalogTraceInfoQuery] FROM [A]"});
    ExpectFaults({.call = [&] { return KaloGetAnalogtraceOfflineInfo(0, 1, &analog); },
                  .regions = {Filling(Code(0x2BFF1401))},
                  .output = output,
                  .behind = behind});
    ExpectFaults({.call = [&] { return KaloGetIotraceOfflineInfo(34, 61, &io, 0, 0); },
                  .regions = {Code(0x2BFF1411), Filling(Code(0x2BFF1412))},
                  .output = output,
                  .behind = behind});
    ExpectFaults({.call = [&] { return KaloGetTraceOfflineNoSettingValue(0, 1, noAnalog, noIo); },
                  .regions = {Code(0x2BFF16AC), Code(0x2BFF16AC)},
                  .output = output,
                  .behind = behind});
    ExpectFaults({.call = [&] { return KaloConvertTraceID(1, 1, 51, 0, 0, &id); },
                  .regions = {Code(0x2BFF16CC), Code(0x2BFF0021), Code(0x2BFF06F5)},
                  .output = output,
                  .behind = behind});
    ExpectFaults({.call = [&] { return KaloConvertTraceID(1, 2, 34, 0, 61, &id); },
                  .regions = {Code(0x2BFF16DC), Code(0x2BFF16DD), Code(0x2BFF077C), Code(0x2BFF077D)},
                  .output = output,
                  .behind = behind});
    Execute({"DELETE * FROM [A]", "DELETE * FROM [I]"});
    for (const Getter& getter : getters)
        EXPECT_EQ(getter.call(1), getter.empty) << getter.notOpen;
    EXPECT_EQ(KaloGetAnalogtraceOfflineInfo(0, 99, &analog), 0x2BFF1413u);

    UseClosedDatabase();
    for (const Getter& getter : getters)
        EXPECT_EQ(getter.call(1), getter.notOpen);
    EXPECT_EQ(KaloGetAnalogtraceOfflineInfo(0, 1, &analog), 0x2BFF1400u);
    EXPECT_EQ(KaloGetIotraceOfflineInfo(34, 61, &io, 0, 0), 0x2BFF1410u);
    EXPECT_EQ(KaloGetTraceOfflineNoSettingValue(0, 1, noAnalog, noIo), 0x2BFF16ABu);
    EXPECT_EQ(KaloConvertTraceID(1, 1, 51, 0, 0, &id), 0x2BFF16C8u);
    EXPECT_EQ(KaloConvertTraceID(1, 2, 34, 0, 61, &id), 0x2BFF16DBu);
    EXPECT_EQ(KaloCheckTraceID(1, 51, 0, 0, 51, 0, 0, words), 0u);
    EXPECT_EQ(words[0], 1);
    EXPECT_EQ(KaloAnalogtraceCreate(0, 17, 0, 0, 65533, 0, 0, 1, 2, 0), 0x2A000009u);
    EXPECT_EQ(KaloIotraceCreate(17, 0, 0, 65533, 0, 0, 1, 2, 1), 0x2A000009u);
}

}  // namespace
