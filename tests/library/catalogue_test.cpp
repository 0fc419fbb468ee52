#include <gmock/gmock.h>
#include <kalodata/catalogue.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "library/catalogue_database.h"
#include "support/library_fixture.h"

namespace {

using support::Base;
using support::BytesOf;
using support::Code;
using support::Filling;
using testing::ElementsAre;
using Pairs = std::vector<std::pair<std::uint32_t, std::string>>;

constexpr std::uint32_t kNoOption = KALO_NO_OPTION;
constexpr std::uint16_t kEveryType = 65535;

// Kinds of the lists that know two.
constexpr std::uint16_t kFirst = 1;
constexpr std::uint16_t kSecond = 2;

class CatalogueTest : public support::LibraryTest {
  protected:
    void SetUp() override { UseDatabase(kCatalogueDatabase); }
};

// A function as the tests that go over all of them see it.
struct Function {
    KaloStatus notOpen;
    std::vector<support::FaultRegion> regions;
    KaloStatus (*call)();
    bool swallowsSome = false;
};

char text[KALO_HELP_SIZE];
std::uint16_t number;
std::uint32_t id;
std::uint32_t secondId;
template <class Record>
std::array<Record, 8> records;

const Function kFunctions[] = {
    {0x2A00001A, {Base(0x2B530000)}, [] { return KaloGetModelOffName(1, 17, kNoOption, text); }},
    {0x2A00001A, {Base(0x2B530000)}, [] { return KaloGetModelOnName(1, 17, kNoOption, text); }},
    {0x2A00001E, {Base(0x2B560000)}, [] { return KaloGetModelNumber(1, 0, &number); }},
    {0x2A000057, {Filling(Base(0x2B760000))}, [] { return KaloGetAmpUnitId(1, 0, 0, &id, &secondId); }},
    {0x2BFF06C0, {Code(0x2BFF06C0)}, [] { return KaloGetOptionUnitNum(17, &number); }},
    {0x2BFF06C0, {Code(0x2BFF06C2)}, [] { return KaloGetOptionUnitId(17, 0, &id); }},
    {0x2BFF0599, {Code(0x2BFF059A)}, [] { return KaloGetWizardServoNum(&number); }},
    {0x2BFF059C, {Code(0x2BFF059D)}, [] { return KaloGetWizardServoId(records<std::uint32_t>.data()); }},
    {0x2BFF0320, {Code(0x2BFF0323)}, [] { return KaloGetWizHelp(0, 1, text); }},
    {0x2A000030, {Base(0x2B5E0000)}, [] { return KaloGetMotorNumber(0, &number); }},
    {0x2A000031, {Base(0x2B5F0000)}, [] { return KaloGetMotorId(0, 0, &id); }},
    {0x2A00003F, {Filling(Base(0x2B670000))}, [] { return KaloGetMotorName(301, text, &number); }},
    {0x2A00003E,
     {Base(0x2B650000), Base(0x2B660000)},
     [] { return KaloGetMotorInfo(1, records<KaloMotorInfo>.data()); }},
    {0x2A00003B, {Base(0x2B640000)}, [] { return KaloGetMotorVoltage(1, text); }},
    {0x2A000040, {Base(0x2B680000)}, [] { return KaloGetMotorPower(401, 4, text); }},
    {0x2BFF0227, {Code(0x2BFF0232)}, [] { return KaloGetMotorCapacityNum(401, &number); }},
    {0x2BFF0239,
     {Code(0x2BFF0242)},
     [] { return KaloGetMotorCapacityInfo(401, 8, records<KaloMotorCapacity>.data()); }},
    {0x2BFF0211, {Code(0x2BFF0216)}, [] { return KaloGetMotorPowerVoltageNum(401, 1, 4, &number); }},
    {0x2BFF0223,
     {Code(0x2BFF0226)},
     [] { return KaloGetMotorPowerVoltageInfo(401, 1, 4, 8, records<KaloMotorVoltage>.data()); }},
    {0x2BFF1C6B, {Code(0x2BFF1C6C)}, [] { return KaloGetMotorLinearInfoNum(401, 1, 0, &number); }},
    {0x2BFF1C7B,
     {Code(0x2BFF1C7C)},
     [] { return KaloGetMotorLinearInfo(401, 1, 0, 8, records<KaloMotorPart>.data()); }},
    {0x2BFF1CDB, {Code(0x2BFF1CDC)}, [] { return KaloGetMotorDDInfoNum(401, 1, 0, &number); }},
    {0x2BFF1CEB,
     {Code(0x2BFF1CEC)},
     [] { return KaloGetMotorDDInfo(401, 1, 0, 8, records<KaloMotorPart>.data()); }},
    {0x2BFF0269, {Code(0x2BFF0270)}, [] { return KaloGetOptionInfoNum(301, &number); }},
    {0x2BFF0275,
     {Code(0x2BFF0278)},
     [] { return KaloGetOptionInfo(301, 8, records<KaloOptionInfo>.data()); }},
    {0x2BFF0256, {Code(0x2BFF0257)}, [] { return KaloGetPGInfoNum(301, &number); }},
    {0x2BFF0262, {Code(0x2BFF0265)}, [] { return KaloGetPGInfo(301, 8, records<KaloPGInfo>.data()); }},
    {0x2BFF0243, {Code(0x2BFF0244), Code(0x2BFF0245)}, [] { return KaloMotorSpecStringCreate(1); }},
    {0x2BFF170E,
     {Code(0x2BFF170F)},
     [] { return KaloGetMotorScaleInfo(1, records<KaloMotorScaleInfo>.data()); }},
    {0x2A00004D, {Base(0x2B720000)}, [] { return KaloGetServoPowerNum(17, kNoOption, &number); }},
    {0x2A00004F, {Base(0x2B730000)}, [] { return KaloGetServoPowerId(17, kNoOption, 0, &id); }},
    {0x2A00005B, {Base(0x2B770000)}, [] { return KaloGetServoPower(1, text); }},
    {0x2BFF0197, {Code(0x2BFF0198)}, [] { return KaloGetServovoltageNum(17, kNoOption, 6, &number); }},
    {0x2BFF0203,
     {Code(0x2BFF0206)},
     [] { return KaloGetServovoltageInfo(17, kNoOption, 6, 8, records<KaloServoVoltage>.data()); }},
    {0x2A00005D, {Base(0x2B780000)}, [] { return KaloGetServoVoltage(1, text); }},
    {0x2BFF1CFB,
     {Filling(Code(0x2BFF1CFC))},
     [] { return KaloGetServoCurrentInfo(17, kNoOption, 6, 2, &id, &secondId); }},
    {0x2BFF0279, {Code(0x2BFF0280)}, [] { return KaloGetEncoderNum(&number); }},
    {0x2BFF0281, {Code(0x2BFF0284)}, [] { return KaloGetEncoderId(0, 0, &id); }},
    {0x2BFF0128, {Code(0x2BFF012B)}, [] { return KaloGetEncoderString(0, 2, text); }},
    {0x2BFF1C8B, {Filling(Code(0x2BFF1C8C))}, [] { return KaloGetConvertID(1, 2, &id, &secondId); }},
    {0x2A000074,
     {Base(0x2B900000), Base(0x2B910000), Base(0x2B920000), Base(0x2B930000), Base(0x2B940000),
      Base(0x2B950000)},
     [] { return KaloGetEncodor(301, 2, 3, records<KaloEncodor>.data()); },
     true},
    {0x2A000074,
     {Base(0x2B960000)},
     [] { return KaloGetEncodor(301, 2, KALO_NONE, records<KaloEncodor>.data()); }},
};

// What a failing call leaves alone: a text and an id, but for those before a second output that cannot be
// read; every other single output, and of the arrays what lies behind their rows.
const support::Memory kOutput = {BytesOf(text), BytesOf(id)};
const support::Memory kNeverFilled = {BytesOf(number),
                                      BytesOf(secondId),
                                      BytesOf(records<KaloMotorInfo>),
                                      BytesOf(records<KaloMotorScaleInfo>),
                                      BytesOf(records<KaloEncodor>),
                                      BytesOf(records<std::uint32_t>.back()),
                                      BytesOf(records<KaloMotorCapacity>.back()),
                                      BytesOf(records<KaloMotorVoltage>.back()),
                                      BytesOf(records<KaloMotorPart>.back()),
                                      BytesOf(records<KaloOptionInfo>.back()),
                                      BytesOf(records<KaloPGInfo>.back()),
                                      BytesOf(records<KaloServoVoltage>.back())};

TEST_F(CatalogueTest, AnswersWhereverTheEngineFails) {
    for (const Function& function : kFunctions) {
        SCOPED_TRACE(testing::Message() << "not open: " << std::hex << function.notOpen);
        ExpectFaults({.call = function.call,
                      .regions = function.regions,
                      .swallowsSome = function.swallowsSome,
                      .output = kOutput,
                      .behind = kNeverFilled});
    }
    UseClosedDatabase();
    for (const Function& function : kFunctions)
        EXPECT_EQ(function.call(), function.notOpen);
}

// What a function that fills a name leaves in it, when it was full of '#' before.
template <class Call>
std::string NameAfter(Call&& call, KaloStatus expected = 0) {
    std::string name(KALO_NAME_SIZE, '#');
    EXPECT_EQ(call(name.data()), expected);
    return name;
}

// A text and the zeros that fill its array.
std::string Padded(std::string value) {
    value.resize(KALO_NAME_SIZE);
    return value;
}

const std::string kUntouched(KALO_NAME_SIZE, '#');

TEST_F(CatalogueTest, NamesModelsForTheListsAndForConnectedDrives) {
    const auto off = [](std::uint16_t selector, std::uint32_t model, std::uint32_t option,
                        KaloStatus status = 0) {
        return NameAfter([&](char* name) { return KaloGetModelOffName(selector, model, option, name); },
                         status);
    };
    const auto on = [](std::uint16_t selector, std::uint32_t model, std::uint32_t option) {
        return NameAfter([&](char* name) { return KaloGetModelOnName(selector, model, option, name); });
    };
    EXPECT_EQ(off(1, 17, 5), Padded("Off 17"));
    EXPECT_EQ(off(2, 17, 5), Padded("Off option 5"));
    EXPECT_EQ(on(1, 17, 5), Padded("On 17"));
    EXPECT_EQ(on(2, 17, 3), Padded("On option 3"));
    EXPECT_EQ(off(2, 17, 3), Padded("UNKNOWN(xxxxH)")) << "not known off-line";
    EXPECT_EQ(on(1, 4711, kNoOption), Padded("UNKNOWN(xxxxH)"));
    EXPECT_EQ(off(2, 17, kNoOption), kUntouched) << "NULL";
    EXPECT_EQ(off(1, 19, kNoOption), Padded("A name of more than thirty by"));
    EXPECT_EQ(on(1, 19, kNoOption), Padded("1234567890123456789012345678")) << "no half character";
    EXPECT_EQ(off(3, 17, 5, 0x2A00001B), Padded(""));
    EXPECT_EQ(off(0, 17, 5, 0x2A00001B), Padded(""));
}

TEST_F(CatalogueTest, CountsAndListsModelsByKind) {
    const struct {
        std::uint16_t kind, subKind, count;
    } counts[] = {{1, 0, 2}, {1, 1, 2}, {2, 0, 2}, {2, 1, 1}, {3, 0, 1}, {3, 1, 2}};
    for (const auto& list : counts) {
        EXPECT_EQ(KaloGetModelNumber(list.kind, list.subKind, &number), 0u);
        EXPECT_EQ(number, list.count) << list.kind << ", " << list.subKind;
    }
    EXPECT_EQ(KaloGetModelNumber(2, 2, &number), 0x2A00001Fu);

    using Units = std::vector<std::pair<std::uint32_t, std::uint32_t>>;
    const struct {
        std::uint16_t kind, subKind;
        Units units;
    } lists[] = {
        {1, 0, {{34, kNoOption}, {17, kNoOption}}},
        {2, 0, {{17, kNoOption}, {19, kNoOption}}},
        {2, 1, {{34, kNoOption}}},
        {3, 0, {{17, 5}}},
        {3, 1, {{17, 5}, {17, 3}}},
    };
    for (const auto& list : lists) {
        Units units;
        for (std::uint16_t i = 0; KaloGetAmpUnitId(list.kind, list.subKind, i, &id, &secondId) == 0; ++i) {
            units.emplace_back(id, secondId);
        }
        EXPECT_EQ(units, list.units) << list.kind << ", " << list.subKind;
    }
    EXPECT_EQ(KaloGetAmpUnitId(0, 0, 4, &id, &secondId), 0u);
    EXPECT_EQ(id, 19u);
    EXPECT_EQ(KaloGetAmpUnitId(0, 0, 5, &id, &secondId), 0x2A00005Au) << "NULL";
    EXPECT_EQ(KaloGetAmpUnitId(0, 1, 0, &id, &secondId), 0x2A000058u);
}

TEST_F(CatalogueTest, OffersModelsInTheWizard) {
    EXPECT_EQ(KaloGetWizardServoNum(&number), 0u);
    EXPECT_EQ(number, 2);
    std::array<std::uint32_t, 3> ids = {1, 1, 1};
    EXPECT_EQ(KaloGetWizardServoId(ids.data()), 0u);
    EXPECT_THAT(ids, ElementsAre(17, 34, 1));
    char help[KALO_HELP_SIZE] = "before";
    EXPECT_EQ(KaloGetWizHelp(4711, 1, help), 0u);
    EXPECT_STREQ(help, "wizard.htm#1");
}

template <class Getter, class... Arguments>
int Counted(Getter getter, Arguments... arguments) {
    std::uint16_t count = 999;
    EXPECT_EQ(getter(arguments..., &count), 0u);
    return count;
}

// The records that a list getter wrote into an array of `capacity` records; nothing behind them was touched.
template <class Record, class Getter, class... Arguments>
std::vector<Record> Listed(std::uint16_t capacity, KaloStatus expected, Getter getter,
                           Arguments... arguments) {
    std::array<Record, 8> array;
    Record untouched;
    std::memset(&untouched, 0xEE, sizeof untouched);
    array.fill(untouched);
    EXPECT_EQ(getter(arguments..., capacity, array.data()), expected);
    const auto isUntouched = [&](const Record& record) {
        return std::memcmp(&record, &untouched, sizeof record) == 0;
    };
    const auto end = std::find_if(array.begin(), array.end(), isUntouched);
    EXPECT_TRUE(std::all_of(end, array.end(), isUntouched));
    return {array.begin(), end};
}

// The first two fields of each record.
template <class Record>
Pairs IdsAndTexts(const std::vector<Record>& records) {
    Pairs pairs;
    for (const Record& record : records) {
        KaloMotorPart part;
        std::memcpy(&part, &record, sizeof part);
        pairs.emplace_back(part.id, part.name);
    }
    return pairs;
}

template <class Getter, class... Arguments>
Pairs Parts(Getter getter, Arguments... arguments) {
    return IdsAndTexts(Listed<KaloMotorPart>(8, 0, getter, arguments...));
}

TEST_F(CatalogueTest, ListsMotors) {
    EXPECT_EQ(Counted(KaloGetMotorNumber, std::uint16_t{0}), 2);
    EXPECT_EQ(Counted(KaloGetMotorNumber, kEveryType), 4);
    EXPECT_EQ(KaloGetMotorId(0, 1, &id), 0u);
    EXPECT_EQ(id, 302u);
    EXPECT_EQ(KaloGetMotorId(kEveryType, 3, &id), 0u);
    EXPECT_EQ(id, 401u);

    EXPECT_EQ(NameAfter([](char* name) { return KaloGetMotorName(302, name, &number); }),
              Padded("Motor 302"));
    EXPECT_EQ(number, 2);
    EXPECT_EQ(NameAfter([](char* name) { return KaloGetMotorVoltage(2, name); }), Padded("M"));
    EXPECT_EQ(NameAfter([](char* name) { return KaloGetMotorPower(401, 4, name); }), Padded("400 W"));

    KaloMotorScaleInfo scale;
    EXPECT_EQ(KaloGetMotorScaleInfo(2, &scale), 0u);
    EXPECT_EQ(scale.start_adr, 65535);
    EXPECT_EQ(scale.model_size, 8);
}

TEST_F(CatalogueTest, DescribesTheMotorOfAnAxis) {
    KaloMotorInfo info;
    EXPECT_EQ(KaloGetMotorInfo(1, &info), 0u);
    EXPECT_STREQ(info.motor_name, "Motor 301");
    EXPECT_STREQ(info.motor_help, "motor.htm#17");
    EXPECT_EQ(info.encodor_ability, 22u);
    EXPECT_STREQ(info.encodor_type, "ABS22");
    EXPECT_EQ(info.eFirm_id, 3u);
    EXPECT_EQ(KaloGetMotorInfo(2, &info), 0u);
    EXPECT_STREQ(info.motor_name, "Motor 302");
    EXPECT_STREQ(info.motor_help, "") << "model 34 has none";
}

TEST_F(CatalogueTest, ListsWhatAMotorCanHave) {
    EXPECT_EQ(Counted(KaloGetMotorCapacityNum, 401u), 2);
    EXPECT_EQ(IdsAndTexts(Listed<KaloMotorCapacity>(8, 0, KaloGetMotorCapacityInfo, 401u)),
              (Pairs{{3, "200 W"}, {4, "400 W"}}));
    EXPECT_EQ(Listed<KaloMotorCapacity>(1, 0, KaloGetMotorCapacityInfo, 401u).size(), 1u);
    EXPECT_EQ(Counted(KaloGetMotorCapacityNum, 4711u), 0);

    const auto voltages = [](std::uint16_t kind, std::uint32_t of) {
        return IdsAndTexts(Listed<KaloMotorVoltage>(8, 0, KaloGetMotorPowerVoltageInfo, 401u, kind, of));
    };
    EXPECT_EQ(Counted(KaloGetMotorPowerVoltageNum, 401u, kFirst, 4u), 3) << "rows";
    EXPECT_EQ(voltages(1, 4), (Pairs{{2, "200 V"}, {9, ""}}));
    EXPECT_EQ(Counted(KaloGetMotorPowerVoltageNum, 401u, kSecond, 1u), 2);
    EXPECT_EQ(voltages(2, 1), (Pairs{{1, "100 V"}, {9, ""}}));

    EXPECT_EQ(Counted(KaloGetMotorLinearInfoNum, 401u, kFirst, 0u), 2);
    EXPECT_EQ(Parts(KaloGetMotorLinearInfo, 401u, kFirst, 0u), (Pairs{{1, "M1"}, {2, "M2"}}));
    EXPECT_EQ(Counted(KaloGetMotorLinearInfoNum, 401u, kSecond, 2u), 2);
    EXPECT_EQ(Parts(KaloGetMotorLinearInfo, 401u, kSecond, 2u), (Pairs{{1, "C1"}, {3, "C3"}}));
    EXPECT_EQ(Counted(KaloGetMotorDDInfoNum, 401u, kFirst, 0u), 2);
    EXPECT_EQ(Parts(KaloGetMotorDDInfo, 401u, kFirst, 0u), (Pairs{{7, "T7"}, {8, "T8"}}));
    EXPECT_EQ(Counted(KaloGetMotorDDInfoNum, 401u, kSecond, 8u), 2);
    EXPECT_EQ(Parts(KaloGetMotorDDInfo, 401u, kSecond, 8u), (Pairs{{5, "S5"}, {6, "S6"}}));
}

// Two names of one part, two texts of one id: the list would have more rows than its count.
TEST_F(CatalogueTest, ListsNoMoreThanItCounts) {
    constexpr std::uint32_t kMotor = 402;
    EXPECT_EQ(Counted(KaloGetMotorCapacityNum, kMotor), 1);
    EXPECT_EQ(Listed<KaloMotorCapacity>(8, 0, KaloGetMotorCapacityInfo, kMotor).size(), 1u);
    EXPECT_EQ(Counted(KaloGetMotorPowerVoltageNum, kMotor, kSecond, 1u), 1);
    EXPECT_EQ(Listed<KaloMotorVoltage>(8, 0, KaloGetMotorPowerVoltageInfo, kMotor, kSecond, 1u).size(), 1u);
    EXPECT_EQ(Counted(KaloGetMotorLinearInfoNum, kMotor, kFirst, 0u), 1);
    EXPECT_EQ(Parts(KaloGetMotorLinearInfo, kMotor, kFirst, 0u).size(), 1u);
    EXPECT_EQ(Counted(KaloGetMotorDDInfoNum, kMotor, kFirst, 0u), 1);
    EXPECT_EQ(Parts(KaloGetMotorDDInfo, kMotor, kFirst, 0u).size(), 1u);
    EXPECT_EQ(Counted(KaloGetOptionInfoNum, kMotor), 1);
    EXPECT_EQ(Listed<KaloOptionInfo>(8, 0, KaloGetOptionInfo, kMotor).size(), 1u);
    EXPECT_EQ(Counted(KaloGetPGInfoNum, kMotor), 1);
    EXPECT_EQ(Listed<KaloPGInfo>(8, 0, KaloGetPGInfo, kMotor).size(), 1u);
}

TEST_F(CatalogueTest, ListsOptionsAndEncodersWithTheirTexts) {
    EXPECT_EQ(Counted(KaloGetOptionInfoNum, 301u), 3);
    const auto options = Listed<KaloOptionInfo>(8, 0, KaloGetOptionInfo, 301u);
    EXPECT_EQ(IdsAndTexts(options), (Pairs{{1, "Rated power"}, {2, "Brake"}})) << "the third has no text";
    EXPECT_EQ(options[1].brake, 1);
    EXPECT_EQ(options[1].oilseal, 0);

    EXPECT_EQ(Counted(KaloGetPGInfoNum, 301u), 2);
    const auto encoders = Listed<KaloPGInfo>(8, 0, KaloGetPGInfo, 301u);
    EXPECT_EQ(IdsAndTexts(encoders), (Pairs{{1, "Rated power"}, {2, "Brake"}}));
    EXPECT_EQ(encoders[1].resolution, 70000u);
    EXPECT_EQ(encoders[1].type, 1);
    EXPECT_EQ(encoders[1].sign, 65535);
}

TEST_F(CatalogueTest, RatesAmplifiers) {
    EXPECT_EQ(Counted(KaloGetServoPowerNum, 17u, kNoOption), 2);
    EXPECT_EQ(KaloGetServoPowerId(17, kNoOption, 1, &id), 0u);
    EXPECT_EQ(id, 6u);
    EXPECT_EQ(NameAfter([](char* name) { return KaloGetServoPower(1, name); }), Padded("50 W"));
    EXPECT_EQ(NameAfter([](char* name) { return KaloGetServoPower(2, name); }), kUntouched) << "NULL";
    EXPECT_EQ(NameAfter([](char* name) { return KaloGetServoVoltage(1, name); }), Padded("L (100 V)"));
    EXPECT_EQ(Counted(KaloGetServovoltageNum, 17u, kNoOption, 6u), 2);
    EXPECT_EQ(IdsAndTexts(Listed<KaloServoVoltage>(8, 0, KaloGetServovoltageInfo, 17u, kNoOption, 6u)),
              (Pairs{{1, "100 V"}, {2, "200 V"}}));
    EXPECT_EQ(KaloGetServoCurrentInfo(17, kNoOption, 6, 2, &id, &secondId), 0u);
    EXPECT_EQ(id, 11600u);
    EXPECT_EQ(secondId, 28000u);
}

TEST_F(CatalogueTest, NamesEncoderTypesByLanguageAndConvertsSizes) {
    EXPECT_EQ(Counted(KaloGetEncoderNum), 5);
    EXPECT_EQ(KaloGetEncoderId(0, 0, &id), 0u);
    EXPECT_EQ(id, 2u);
    EXPECT_EQ(NameAfter([](char* name) { return KaloGetEncoderString(1, 2, name); }),
              Padded("アブソリュート"));
    EXPECT_EQ(KaloGetConvertID(1, 2, &id, &secondId), 0u);
    EXPECT_EQ(id, 101u);
    EXPECT_EQ(secondId, 7u);
}

TEST_F(CatalogueTest, FillsNamesAndUnitsOfMotorRatings) {
    EXPECT_EQ(KaloMotorSpecStringCreate(99), 0u);
    EXPECT_EQ(Dump("SELECT [name_string],[unit],[unit_multiplier] FROM [motor_specstring]"),
              "Rated power|W|0.500000\n");
}

TEST_F(CatalogueTest, ResolvesEncodersByFirmware) {
    const struct {
        std::uint32_t encoder, firmware, ability;
        const char* type;
    } encoders[] = {
        {2, KALO_NONE, 22, "ABS22"}, {2, 1, 22, "ABS22"}, {2, 2, 23, "ABS23"}, {3, 2, 0, "*"},
        {3, 3, 24, "ABS24MT"},       {1, 3, 20, "INC20"}, {1, 4, 0, "*"},      {12, KALO_NONE, 0, "*"},
        {77, KALO_NONE, 0, "*"},
    };
    for (const auto& [encoder, firmware, ability, type] : encoders) {
        KaloEncodor found;
        EXPECT_EQ(KaloGetEncodor(301, encoder, firmware, &found), 0u);
        EXPECT_EQ(found.encodor_ability, ability) << encoder << ", " << firmware;
        EXPECT_STREQ(found.encodor_type, type) << encoder << ", " << firmware;
    }
    EXPECT_FALSE(TableExists("EFencodor"));
}

// Missing rows and missing values, unknown kinds, indices past the end.
TEST_F(CatalogueTest, AnswersWithACodeWhatItCannotTell) {
    const auto parts = [](auto getter, std::uint32_t motor, std::uint16_t kind, std::uint32_t part) {
        KaloStatus status = getter(motor, kind, part, 8, records<KaloMotorPart>.data());
        return status;
    };
    const struct {
        KaloStatus answer, expected;
    } cases[] = {
        {KaloGetOptionUnitId(34, 0, &id), 0x2BFF06C1},
        {KaloGetOptionUnitId(17, 1, &id), 0x2BFF06C2},
        {KaloGetAmpUnitId(2, 1, 1, &id, &secondId), 0x2B760000 + 3021},
        {KaloGetWizHelp(0, 2, text), 0x2BFF0322},
        {KaloGetMotorId(8, 0, &id), 0x2A000032},
        {KaloGetMotorId(9, 0, &id), 0x2A000073},
        {KaloGetMotorId(0, 2, &id), 0x2B5F0000 + 3021},
        {KaloGetMotorName(4711, text, &number), 0x2B670000 + 3021},
        {KaloGetMotorInfo(9, records<KaloMotorInfo>.data()), 0x2B650000 + 3021},
        {KaloGetMotorInfo(3, records<KaloMotorInfo>.data()), 0x2B660000 + 3021},
        {KaloGetMotorVoltage(3, text), 0x2A00003D},
        {KaloGetMotorPower(401, 9, text), 0x2B690000 + 3021},
        {KaloGetMotorCapacityInfo(4711, 8, records<KaloMotorCapacity>.data()), 0x2BFF0240},
        {KaloGetMotorCapacityInfo(499, 8, records<KaloMotorCapacity>.data()), 0x2BFF0241},
        {KaloGetMotorPowerVoltageNum(401, 3, 4, &number), 0x2BFF0215},
        {KaloGetMotorPowerVoltageInfo(401, 0, 4, 8, records<KaloMotorVoltage>.data()), 0x2BFF0224},
        {KaloGetMotorPowerVoltageInfo(401, 1, 9, 8, records<KaloMotorVoltage>.data()), 0x2BFF0225},
        {KaloGetMotorLinearInfoNum(401, 0, 0, &number), 0x2BFF1C6D},
        {parts(KaloGetMotorLinearInfo, 401, 3, 0), 0x2BFF1C7D},
        {parts(KaloGetMotorLinearInfo, 499, 1, 0), 0x2BFF1C7E},
        {parts(KaloGetMotorLinearInfo, 401, 2, 9), 0x2BFF1C7F},
        {KaloGetMotorDDInfoNum(401, 0, 0, &number), 0x2BFF1CDD},
        {parts(KaloGetMotorDDInfo, 401, 3, 0), 0x2BFF1CED},
        {parts(KaloGetMotorDDInfo, 499, 1, 0), 0x2BFF1CEE},
        {parts(KaloGetMotorDDInfo, 401, 2, 9), 0x2BFF1CEF},
        {KaloGetOptionInfo(4711, 8, records<KaloOptionInfo>.data()), 0x2BFF0276},
        {KaloGetOptionInfo(302, 8, records<KaloOptionInfo>.data()), 0x2BFF0277},
        {KaloGetPGInfo(4711, 8, records<KaloPGInfo>.data()), 0x2BFF0263},
        {KaloGetPGInfo(302, 8, records<KaloPGInfo>.data()), 0x2BFF0264},
        {KaloGetServoPowerId(4711, 5, 0, &id), 0x2A000051},
        {KaloGetServoPowerId(19, kNoOption, 0, &id), 0x2A000052},
        {KaloGetServoPower(9, text), 0x2A00005C},
        {KaloGetServovoltageInfo(17, kNoOption, 9, 8, records<KaloServoVoltage>.data()), 0x2BFF0204},
        {KaloGetServovoltageInfo(19, 5, 1, 8, records<KaloServoVoltage>.data()), 0x2BFF0205},
        {KaloGetServoVoltage(9, text), 0x2A00005E},
        {KaloGetServoCurrentInfo(17, kNoOption, 2, 1, &id, &secondId), 0x2BFF1CFD},
        {KaloGetServoCurrentInfo(17, kNoOption, 6, 1, &id, &secondId), 0x2BFF1CFE},
        {KaloGetServoCurrentInfo(17, kNoOption, 6, 9, &id, &secondId), 0x2BFF1CFF},
        {KaloGetEncoderId(5, 0, &id), 0x2BFF0282},
        {KaloGetEncoderId(7, 0, &id), 0x2BFF0283},
        {KaloGetEncoderId(0, 2, &id), 0x2BFF0284},
        {KaloGetEncoderString(0, 9, text), 0x2BFF0129},
        {KaloGetEncoderString(7, 3, text), 0x2BFF012A},
        {KaloGetConvertID(1, 3, &id, &secondId), 0x2BFF1C8D},
        {KaloGetConvertID(1, 4, &id, &secondId), 0x2BFF1C8E},
        {KaloGetConvertID(2, 2, &id, &secondId), 0x2BFF1C8F},
    };
    for (const auto& [answer, expected] : cases)
        EXPECT_EQ(answer, expected) << std::hex << answer;
}

}  // namespace
