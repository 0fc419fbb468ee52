#include <gmock/gmock.h>

#include "library/monitor_tables.h"
#include "support/library_fixture.h"

namespace {

using namespace support;
using namespace monitor_tables;
using testing::ElementsAre;

// Axis 1 (option unit 3) has the digit table D and the user parameters U, axis 2 has neither.
class DigitsTest : public LibraryTest {
  protected:
    DigitsTest() {
        UseDatabase(kRegistry);
        Execute(
            {"ALTER TABLE [tablemanager] ADD COLUMN [nibble_table] TEXT(64)",
             "CREATE TABLE [D] ([nibble_data_id] LONG, [pos] BYTE, [size] BYTE, [access_level] BYTE, "
             "[initial_value] SHORT, [nibble_name_id] LONG, [content_id] LONG)",
             "INSERT INTO [D] VALUES (5,1,1,3,9,12,502)", "INSERT INTO [D] VALUES (5,0,1,2,1,11,501)",
             "INSERT INTO [D] VALUES (4,0,2,1,7,13,501)",
             "CREATE TABLE [nibble_ex_content] ([content_id] LONG)",
             "INSERT INTO [nibble_ex_content] VALUES (501)", "INSERT INTO [nibble_ex_content] VALUES (501)",
             "CREATE TABLE [nibble_ex_content_query] ([content_id] LONG, [content_value] SHORT, "
             "[access_level] BYTE, "
             "[message_type] BYTE, [content_name_id] LONG, [name_str] TEXT(255), [message_id] LONG)",
             "INSERT INTO [nibble_ex_content_query] VALUES (501,15,3,1,22,'query15',8)",
             "INSERT INTO [nibble_ex_content_query] VALUES (501,0,2,0,21,'query0',7)",
             "CREATE TABLE [nibble_ex_name] ([name_id] LONG, [country_id] SHORT, [fixed_id] LONG, [name_str] "
             "TEXT(255))",
             "INSERT INTO [nibble_ex_name] VALUES (11,1,0,'eleven')",
             "INSERT INTO [nibble_ex_name] VALUES (12,1,0,NULL)",
             "INSERT INTO [nibble_ex_name] VALUES (22,1,0,'twenty-two')",
             "INSERT INTO [nibble_ex_name] VALUES (99,1,77,'by fixed id')"});
        MakeGroups();
        Execute(
            {"INSERT INTO [tablemanager] ([axis_num],[servo_id],[option_id],[sFirm_version],[sCmod_version],"
             "[oFirm_version],[oCmod_version],[nibble_table],[userparameter_table]) VALUES "
             "(1,7,3,2,100,2,5,' D ','U')",
             "INSERT INTO [tablemanager] ([axis_num],[servo_id],[option_id],[sFirm_version],[sCmod_version]) "
             "VALUES (2,7,65533,0,0)"});
    }

    void MakeKind(const std::string& base, const std::string& columns) {
        Execute({Create(base, "[servo_id] LONG, [option_id] LONG, " + columns),
                 Create("firm" + base, "[servo_id] LONG, [option_id] LONG, " + columns +
                                           ", [change_type] BYTE, [firm_id] LONG"),
                 Create("cmod" + base, "[servo_id] LONG, [option_id] LONG, " + columns +
                                           ", [change_type] BYTE, [cmod_id] LONG")});
    }

    void MakeGroups() {
        Execute(
            {"CREATE TABLE [U] ([Parameter_id] LONG, [category_id] LONG, [category_name] TEXT(255), "
             "[fixed_id] LONG)",
             "INSERT INTO [U] VALUES (256,2,'two',51)", "INSERT INTO [U] VALUES (0,1,'one',52)",
             "INSERT INTO [U] VALUES (257,2,'two',53)",
             "CREATE TABLE [paracategory] ([category_id] LONG, [category_name] TEXT(255))",
             "INSERT INTO [paracategory] VALUES (40002,'second')",
             "INSERT INTO [paracategory] VALUES (40000,'none')",
             "INSERT INTO [paracategory] VALUES (40001,'first')"});
        MakeKind("NibbleSwitchInfo", "[func_id] SHORT, [fixed_id] LONG, [digit] BYTE, [value] SHORT");
        MakeKind("paracategorylist", "[category_id] LONG, [order] SHORT, [fixed_id] LONG");
        Execute({"INSERT INTO [NibbleSwitchInfo] VALUES (7,3,1,51,0,2)",
                 "INSERT INTO [firmNibbleSwitchInfo] VALUES (7,65533,1,52,2,4,1,2)",
                 "INSERT INTO [cmodNibbleSwitchInfo] VALUES (7,3,6,59,1,1,2,5)",
                 "INSERT INTO [paracategorylist] VALUES (7,3,40001,30,51)",
                 "INSERT INTO [paracategorylist] VALUES (7,3,40001,10,52)",
                 "INSERT INTO [firmparacategorylist] VALUES (7,3,40001,20,58,2,2)",
                 "INSERT INTO [cmodparacategorylist] VALUES (7,65533,40001,0,51,3,100)"});
    }

    void ExpectNothingLeft() {
        EXPECT_FALSE(TableExists("tempnibbleswitchinfo"));
        EXPECT_FALSE(TableExists("tempparacategorylist"));
    }
};

TEST_F(DigitsTest, DescribesDigitsByPosition) {
    std::uint16_t count = 9;
    EXPECT_EQ(KaloGetNibbleInfoNum(1, 5, &count), 0u);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(KaloGetNibbleInfoNum(1, 6, &count), 0u);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(KaloGetAllNibbleInfoNum(1, &count), 0u);
    EXPECT_EQ(count, 3);
    Guarded<KaloDigit[3]> guarded;
    const KaloDigit* const digits = guarded.record;
    ASSERT_EQ(KaloGetNibbleInfoBase(1, 5, 9, 1, guarded.record), 0u);
    EXPECT_EQ(digits[0].pos, 0);
    EXPECT_STREQ(digits[0].name, "eleven");
    EXPECT_EQ(digits[0].value_count, 2);
    EXPECT_EQ(digits[0].reserved[3], 0xEE) << "never written";
    EXPECT_THAT(
        (std::vector<int>{digits[1].nibble_data_id, digits[1].pos, digits[1].size, digits[1].access_level,
                          digits[1].initial_value, digits[1].content_id, digits[1].value_count}),
        ElementsAre(5, 1, 1, 3, 9, 502, 0));
    EXPECT_STREQ(digits[1].name, "");
    ASSERT_EQ(KaloGetAllNibbleInfoBase(1, 3, 1, guarded.record), 0u);
    EXPECT_EQ(digits[0].nibble_data_id, 4);
    EXPECT_STREQ(digits[0].name, "") << "no name in this language";
    EXPECT_EQ(digits[2].pos, 1);
    EXPECT_TRUE(guarded.GuardsIntact());
    Guarded<KaloDigit[2]> two;
    ASSERT_EQ(KaloGetAllNibbleInfoBase(1, 1, 1, two.record), 0u);
    EXPECT_EQ(two.record[1].pos, 0xEEEE) << "no more than asked for";
}

TEST_F(DigitsTest, ListsTheValuesOfDigits) {
    Guarded<KaloDigitValue[3]> guarded;
    const KaloDigitValue* const values = guarded.record;
    ASSERT_EQ(KaloGetNibbleInfo(1, 5, 3, 1, guarded.record), 0u);
    EXPECT_THAT((std::vector<int>{values[0].access_level, values[0].content_value, values[0].message_type,
                                  values[0].content_name_id, values[0].message_id}),
                ElementsAre(2, 0, 0, 21, 7));
    EXPECT_STREQ(values[0].name, "query0") << "the query's name where the language has none";
    EXPECT_STREQ(values[1].name, "twenty-two");
    EXPECT_EQ(values[2].content_value, 0xEEEE);
    Guarded<KaloDigitValue[3]> element;
    ASSERT_EQ(KaloGetNibbleInfoElem(1, 501, 1, 1, element.record), 0u);
    EXPECT_EQ(std::memcmp(element.record, values, sizeof(KaloDigitValue)), 0);
    EXPECT_EQ(element.record[1].content_value, 0xEEEE);
    EXPECT_EQ(KaloGetNibbleInfoElem(1, 502, 1, 1, element.record), 0x2BFF11EFu);
    EXPECT_EQ(KaloGetNibbleInfo(1, 6, 3, 1, guarded.record), 0x2BFF11DFu);

    std::uint8_t name[256] = {};
    EXPECT_EQ(KaloGetNibbleParamName(77, 1, name), 0u);
    EXPECT_STREQ(reinterpret_cast<char*>(name), "by fixed id");
    EXPECT_EQ(KaloGetNibbleParamName(77, 2, name), 0x2BFF1200u);
}

TEST_F(DigitsTest, FindsTheDigitThatSwitchesAFunction) {
    KaloDigitSwitch found = {};
    ASSERT_EQ(KaloGetNibbleSwitchInfo(1, 1, &found), 0u);
    EXPECT_THAT(
        (std::vector<int>{static_cast<int>(found.fixed_id), found.digit, found.value, found.parameter_id}),
        ElementsAre(52, 2, 4, 0))
        << "as the firmware changed it";
    Guarded<KaloDigitSwitch> untouched;
    EXPECT_EQ(KaloGetNibbleSwitchInfo(1, 6, &untouched.record), 0x2BFF148Eu) << "no such parameter";
    EXPECT_EQ(KaloGetNibbleSwitchInfo(1, 2, &untouched.record), 0x2BFF148Fu);
    EXPECT_EQ(KaloGetNibbleSwitchInfo(9, 1, &untouched.record), 0x2BFF1458u);
    Execute({"UPDATE [NibbleSwitchInfo] SET [option_id] = 65533"});
    EXPECT_EQ(KaloGetNibbleSwitchInfo(2, 1, &untouched.record), 0x2BFF148Au) << "no user parameters";
    EXPECT_TRUE(untouched.Untouched());
    ExpectNothingLeft();
}

TEST_F(DigitsTest, GroupsAreCategoriesThenAdditionalOnes) {
    std::uint16_t count = 0;
    ASSERT_EQ(KaloGetAllGroupNum(1, &count), 0u);
    ASSERT_EQ(count, 4);
    Guarded<KaloGroup[4]> guarded;
    ASSERT_EQ(KaloGetAllGroupInfo(1, 9, guarded.record), 0u);
    const char* const names[] = {"one", "two", "first", "second"};
    for (int i = 0; i < 4; ++i)
        EXPECT_STREQ(guarded.record[i].category_name, names[i]);
    EXPECT_EQ(guarded.record[2].category_id, 40001);
    Execute({"UPDATE [U] SET [category_name] = 'other' WHERE [Parameter_id] = 257"});
    ASSERT_EQ(KaloGetAllGroupInfo(1, 9, guarded.record), 0u);
    EXPECT_TRUE(guarded.GuardsIntact()) << "a category with two names, and no more entries than counted";
    ASSERT_EQ(KaloGetAllGroupInfo(1, 1, guarded.record), 0u);

    ASSERT_EQ(KaloGetAddGroupPrmNum(1, 40001, &count), 0u);
    ASSERT_EQ(count, 2);
    Guarded<std::int32_t[3]> ids;
    ASSERT_EQ(KaloGetAddGroupPrmList(1, 40001, ids.record), 0u);
    EXPECT_EQ(ids.record[0], 0);
    EXPECT_EQ(ids.record[1], -1) << "no such parameter";
    EXPECT_EQ(static_cast<std::uint32_t>(ids.record[2]), 0xEEEEEEEE);
    EXPECT_EQ(KaloGetAddGroupPrmNum(1, 40002, &count), 0u);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(KaloGetAddGroupPrmList(1, 40002, ids.record), 0x2BFF165Fu);
    ExpectNothingLeft();
}

TEST_F(DigitsTest, EveryGetterHasItsCodes) {
    std::uint16_t count = 0;
    KaloDigit digits[5];
    KaloDigitValue values[5];
    KaloDigitSwitch found;
    KaloGroup groups[5];
    std::int32_t ids[4];
    const Memory output = {BytesOf(count), BytesOf(found)};
    const Memory behind = {BytesOf(digits[4]), BytesOf(values[4]), BytesOf(groups[4]), BytesOf(ids[3])};
    const auto build = [](KaloStatus base) {
        std::vector<FaultRegion> regions;
        for (const KaloStatus offset : {9, 0, 1, 2, 3, 4, 5, 6, 1, 1, 2, 3, 4, 5, 6}) {
            regions.push_back(Leaving(Code(base + offset)));
        }
        return regions;
    };
    std::vector<FaultRegion> switchRegions = build(0x2BFF1450);
    for (const KaloStatus code : {0x2BFF148C, 0x2BFF1489, 0x2BFF148D})
        switchRegions.push_back(Code(code));
    switchRegions.push_back(Leaving(Code(0x2BFF1487)));
    std::vector<FaultRegion> memberCount = build(0x2BFF1640);
    memberCount.push_back(Code(0x2BFF164C));
    memberCount.push_back(Filling(Leaving(Code(0x2BFF1647))));
    std::vector<FaultRegion> members = build(0x2BFF1650);
    for (const KaloStatus code : {0x2BFF165C, 0x2BFF165D, 0x2BFF165E, 0x2BFF165E})
        members.push_back(Code(code));
    members.push_back(Leaving(Code(0x2BFF1657)));

    const struct {
        KaloStatus notOpen, noAxis, noTable;
        std::vector<FaultRegion> regions;
        std::function<KaloStatus(std::int16_t axis)> call;
    } getters[] = {
        {0x2BFF119B,
         0x2BFF1198,
         0x2BFF119A,
         {Code(0x2BFF1199), Code(0x2BFF119C)},
         [&](auto axis) { return KaloGetNibbleInfoNum(axis, 5, &count); }},
        {0x2BFF11AB,
         0x2BFF11A8,
         0x2BFF11AA,
         {Code(0x2BFF11A9), Code(0x2BFF11AC)},
         [&](auto axis) { return KaloGetAllNibbleInfoNum(axis, &count); }},
        {0x2BFF11BB,
         0x2BFF11B8,
         0x2BFF11BA,
         {Code(0x2BFF11B9), Code(0x2BFF11BC), Code(0x2BFF11BD), Code(0x2BFF11BD), Code(0x2BFF11BE),
          Code(0x2BFF11BE)},
         [&](auto axis) { return KaloGetNibbleInfoBase(axis, 5, 4, 1, digits); }},
        {0x2BFF11CB,
         0x2BFF11C8,
         0x2BFF11CA,
         {Code(0x2BFF11C9), Code(0x2BFF11CC), Code(0x2BFF11CD), Code(0x2BFF11CE)},
         [&](auto axis) { return KaloGetAllNibbleInfoBase(static_cast<std::uint32_t>(axis), 1, 1, digits); }},
        {0x2BFF11DB,
         0x2BFF11D8,
         0x2BFF11DA,
         {Code(0x2BFF11D9), Code(0x2BFF11DC), Code(0x2BFF11DD), Code(0x2BFF11DE), Code(0x2BFF11DE),
          Code(0x2BFF11DD)},
         [&](auto axis) { return KaloGetNibbleInfo(axis, 5, 4, 1, values); }},
        {0x2BFF162B,
         0x2BFF1628,
         0x2BFF162A,
         {Code(0x2BFF1629), Code(0x2BFF162C), Code(0x2BFF162D)},
         [&](auto axis) { return KaloGetAllGroupNum(axis, &count); }},
        {0x2BFF163B,
         0x2BFF1638,
         0x2BFF163A,
         {Code(0x2BFF1639), Code(0x2BFF163E), Code(0x2BFF163E), Code(0x2BFF163C), Code(0x2BFF163D)},
         [&](auto axis) { return KaloGetAllGroupInfo(axis, 4, groups); }},
        {0x2BFF145B, 0x2BFF1458, 0x2BFF148F, switchRegions,
         [&](auto axis) { return KaloGetNibbleSwitchInfo(axis, 1, &found); }},
        {0x2BFF164A, 0x2BFF164B, 0, memberCount,
         [&](auto axis) { return KaloGetAddGroupPrmNum(axis, 40001, &count); }},
        {0x2BFF165B, 0x2BFF1658, 0x2BFF165F, members,
         [&](auto axis) { return KaloGetAddGroupPrmList(axis, 40001, ids); }},
    };
    const auto clean = [] {
        for (const char* table : {"tempnibbleswitchinfo", "tempparacategorylist"}) {
            if (TableExists(table)) Execute({"DROP TABLE [" + std::string(table) + "]"});
        }
    };
    for (const auto& getter : getters) {
        SCOPED_TRACE(getter.notOpen);
        EXPECT_EQ(getter.call(9), getter.noAxis);
        EXPECT_EQ(getter.call(2), getter.noTable);
        ExpectFaults({.call = [&] { return getter.call(1); },
                      .regions = getter.regions,
                      .prepare = clean,
                      .output = output,
                      .behind = behind});
    }
    ExpectFaults({.call = [&] { return KaloGetNibbleInfoElem(1, 501, 4, 1, values); },
                  .regions = {Code(0x2BFF11ED), Code(0x2BFF11EE), Code(0x2BFF11EE)},
                  .output = output,
                  .behind = behind});
    std::uint8_t name[256];
    ExpectFaults({.call = [&] { return KaloGetNibbleParamName(77, 1, name); },
                  .regions = {Code(0x2BFF11F1)},
                  .output = {BytesOf(name)}});
    ExpectNothingLeft();
    UseClosedDatabase();
    for (const auto& getter : getters)
        EXPECT_EQ(getter.call(1), getter.notOpen);
    EXPECT_EQ(KaloGetNibbleInfoElem(1, 501, 4, 1, values), 0x2BFF11EBu);
    EXPECT_EQ(KaloGetNibbleParamName(77, 1, name), 0x2BFF11F0u);
}

// The sample's own digits and groups, in every language.
class DigitsSampleTest : public LibraryTest {};

TEST_F(DigitsSampleTest, EveryDigitHasNamedValuesAndGroupsHoldTheirMembers) {
    for (const std::uint16_t country : {std::uint16_t{0}, std::uint16_t{1}, std::uint16_t{2}}) {
        OpenSession(country);
        ASSERT_EQ(KaloUparaCreate(static_cast<std::int16_t>(country), 18, 5, 202, 4, 3, 3, 202, 1), 0u);
        ASSERT_EQ(KaloModelInfoCreate(18, 5, 202, 4, 3, 3, 202, 302, 4, 3, 1), 0u);
        std::uint16_t count = 0;
        ASSERT_EQ(KaloGetAllNibbleInfoNum(1, &count), 0u);
        ASSERT_GT(count, 50);
        std::vector<KaloDigit> digits(count);
        ASSERT_EQ(KaloGetAllNibbleInfoBase(1, count, country, digits.data()), 0u);
        for (const KaloDigit& digit : digits) {
            EXPECT_STRNE(digit.name, "") << digit.nibble_data_id << ' ' << digit.pos;
            if (digit.value_count == 0) continue;
            std::vector<KaloDigitValue> values(digit.value_count);
            ASSERT_EQ(KaloGetNibbleInfoElem(1, digit.content_id, digit.value_count, country, values.data()),
                      0u);
            EXPECT_STRNE(values.back().name, "");
        }
        std::uint16_t members = 0;
        ASSERT_EQ(KaloGetAddGroupPrmNum(1, 40010, &members), 0u);
        ASSERT_GT(members, 0);
        std::vector<std::int32_t> ids(members);
        ASSERT_EQ(KaloGetAddGroupPrmList(1, 40010, ids.data()), 0u);
        EXPECT_EQ(std::count(ids.begin(), ids.end(), -1), 0);
        ASSERT_EQ(KaloClose(), 0u);
    }
}

}  // namespace
