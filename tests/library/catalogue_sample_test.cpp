#include <gtest/gtest.h>
#include <kalodata/alarms.h>
#include <kalodata/axis.h>
#include <kalodata/catalogue.h>
#include <kalodata/help.h>

#include <concepts>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "support/library_fixture.h"

namespace {

constexpr std::uint32_t kNoOption = KALO_NO_OPTION;
constexpr std::uint32_t kNoEncoderFirmware = KALO_NONE;
constexpr std::int16_t kAxis = 1;
// An axis that is none: the page for every model.
constexpr std::uint16_t kNoAxis = 65535;

// A number that takes the type of the parameter that it is passed for.
struct Argument {
    std::int64_t value;
    template <std::integral Number>
    operator Number() const {
        return static_cast<Number>(value);
    }
};

// What a getter wrote, or its status where that is another than 0.
std::string Answer(KaloStatus status, const std::ostringstream& written) {
    std::ostringstream failure;
    failure << "status " << std::hex << status;
    return status == 0 ? written.str() : failure.str();
}

template <class Getter, class... Arguments>
std::string Text(Getter getter, Arguments... arguments) {
    char text[KALO_HELP_SIZE] = {};
    const KaloStatus status = getter(Argument{arguments}..., text);
    return Answer(status, std::ostringstream() << text);
}

template <class Number, class Getter, class... Arguments>
std::string NumberFrom(Getter getter, Arguments... arguments) {
    Number number = 0;
    const KaloStatus status = getter(Argument{arguments}..., &number);
    return Answer(status, std::ostringstream() << number);
}

template <class Getter, class... Arguments>
std::string Count(Getter getter, Arguments... arguments) {
    return NumberFrom<std::uint16_t>(getter, arguments...);
}

template <class Getter, class... Arguments>
std::string Id(Getter getter, Arguments... arguments) {
    return NumberFrom<std::uint32_t>(getter, arguments...);
}

template <class Getter, class... Arguments>
std::string Two(Getter getter, Arguments... arguments) {
    std::uint32_t first = 0;
    std::uint32_t second = 0;
    const KaloStatus status = getter(Argument{arguments}..., &first, &second);
    return Answer(status, std::ostringstream() << first << ' ' << second);
}

std::ostream& operator<<(std::ostream& out, const KaloMotorCapacity& r) {
    return out << r.power_id << ' ' << r.power_name;
}
std::ostream& operator<<(std::ostream& out, const KaloMotorVoltage& r) {
    return out << r.voltage << ' ' << r.voltage_string;
}
std::ostream& operator<<(std::ostream& out, const KaloServoVoltage& r) {
    return out << r.voltage << ' ' << r.voltage_str;
}
std::ostream& operator<<(std::ostream& out, const KaloMotorPart& r) {
    return out << r.id << ' ' << r.name;
}
std::ostream& operator<<(std::ostream& out, const KaloOptionInfo& r) {
    return out << r.option_id << ' ' << r.string << ' ' << r.brake << r.oilseal;
}
std::ostream& operator<<(std::ostream& out, const KaloPGInfo& r) {
    return out << r.pg_id << ' ' << r.string << ' ' << r.resolution << ' ' << r.type << ' ' << r.sign;
}
std::ostream& operator<<(std::ostream& out, const KaloRefPulseString& r) {
    return out << r.pulse_id << ' ' << r.pulse_string;
}
std::ostream& operator<<(std::ostream& out, const KaloRefLogicString& r) {
    return out << r.logic_id << ' ' << r.logic_string;
}
std::ostream& operator<<(std::ostream& out, const KaloRefMultiString& r) {
    return out << r.multi_id << ' ' << r.multi_string;
}

template <class Record>
std::string Joined(KaloStatus status, const std::vector<Record>& records) {
    std::ostringstream joined;
    for (const Record& record : records)
        joined << record << '|';
    return Answer(status, joined);
}

// As many records as the count getter tells.
template <class Record, class CountGetter, class ListGetter, class... Arguments>
std::string List(CountGetter countGetter, ListGetter listGetter, Arguments... arguments) {
    std::uint16_t count = 0;
    EXPECT_EQ(countGetter(Argument{arguments}..., &count), 0u);
    std::vector<Record> records(count);
    return Joined(listGetter(Argument{arguments}..., count, records.data()), records);
}

// The same for list getters without a count.
template <class Record, class CountGetter, class ListGetter, class... Arguments>
std::string WholeList(CountGetter countGetter, ListGetter listGetter, Arguments... arguments) {
    std::uint16_t count = 0;
    EXPECT_EQ(countGetter(Argument{arguments}..., &count), 0u);
    std::vector<Record> records(count);
    return Joined(listGetter(Argument{arguments}..., records.data()), records);
}

std::string MotorName(std::uint32_t motor) {
    char name[KALO_NAME_SIZE] = {};
    std::uint16_t createType = 0;
    const KaloStatus status = KaloGetMotorName(motor, name, &createType);
    return Answer(status, std::ostringstream() << name << ' ' << createType);
}

std::string MotorOfAxis() {
    KaloMotorInfo info{};
    const KaloStatus status = KaloGetMotorInfo(kAxis, &info);
    return Answer(status, std::ostringstream()
                              << info.motor_name << '|' << info.motor_help << '|' << info.encodor_ability
                              << '|' << info.encodor_type << '|' << info.eFirm_id);
}

std::string MotorScale() {
    KaloMotorScaleInfo s{};
    const KaloStatus status = KaloGetMotorScaleInfo(2, &s);
    return Answer(status, std::ostringstream() << s.start_adr << ' ' << s.byte_size << ' ' << s.sum_adr << ' '
                                               << s.protect_adr << ' ' << s.protect_bit << ' '
                                               << s.protect_val << ' ' << s.model_adr << ' ' << s.model_size);
}

std::string Encoder(std::uint32_t motor, std::uint32_t encoder, std::uint32_t firmware) {
    KaloEncodor found{};
    const KaloStatus status = KaloGetEncodor(motor, encoder, firmware, &found);
    return Answer(status, std::ostringstream() << found.encodor_ability << ' ' << found.encodor_type);
}

struct Case {
    std::string answer;
    const char* expected;
};

void ExpectAnswers(const std::vector<Case>& cases) {
    for (const Case& entry : cases)
        EXPECT_EQ(entry.answer, entry.expected);
}

// The catalogue and the help pages of the English sample, as they stand in its tables.
class CatalogueSampleTest : public support::LibraryTest {
  protected:
    void SetUp() override { OpenSession(); }
};

TEST_F(CatalogueSampleTest, KnowsItsModels) {
    ExpectAnswers({
        {Text(KaloGetModelOffName, 1, 34, 3), "LINA50 linear servo"},
        {Text(KaloGetModelOffName, 2, 34, 3), "Field network unit FNU30"},
        {Text(KaloGetModelOffName, 1, 19, kNoOption), "UNKNOWN(xxxxH)"},
        {Text(KaloGetModelOnName, 1, 19, kNoOption), "AMPA100L"},
        {Text(KaloGetModelOnName, 2, 17, 5), "FBU50"},
        {Count(KaloGetModelNumber, 1, 0), "3"},
        {Count(KaloGetModelNumber, 1, 1), "3"},
        {Count(KaloGetModelNumber, 2, 0), "3"},
        {Count(KaloGetModelNumber, 2, 1), "1"},
        {Count(KaloGetModelNumber, 3, 0), "2"},
        {Count(KaloGetModelNumber, 3, 1), "2"},
        {Two(KaloGetAmpUnitId, 0, 0, 3), "18 3"},
        {Two(KaloGetAmpUnitId, 1, 0, 2), "34 65533"},
        {Two(KaloGetAmpUnitId, 2, 0, 2), "19 65533"},
        {Two(KaloGetAmpUnitId, 2, 1, 0), "34 65533"},
        {Two(KaloGetAmpUnitId, 3, 0, 0), "17 5"},
        {Two(KaloGetAmpUnitId, 3, 1, 3), "34 3"},
        {Two(KaloGetAmpUnitId, 0, 0, 8), "status 2b760bcd"},
        {Count(KaloGetOptionUnitNum, 18), "2"},
        {Id(KaloGetOptionUnitId, 18, 1), "5"},
        {WholeList<std::uint32_t>(KaloGetWizardServoNum, KaloGetWizardServoId), "17|18|34|"},
        {Text(KaloGetWizHelp, 0, 5), "wizard.htm#tuning"},
    });
}

TEST_F(CatalogueSampleTest, KnowsItsMotors) {
    ExpectAnswers({
        {Count(KaloGetMotorNumber, 65535), "11"},
        {Count(KaloGetMotorNumber, 1), "3"},
        {Id(KaloGetMotorId, 65535, 5), "401"},
        {Id(KaloGetMotorId, 2, 2), "503"},
        {MotorName(403), "LT tubular 5"},
        {MotorName(306), "RX first series 1"},
        {Text(KaloGetMotorVoltage, 3), "H"},
        {Text(KaloGetMotorPower, 302, 6), "1.5 kW"},
        {List<KaloMotorCapacity>(KaloGetMotorCapacityNum, KaloGetMotorCapacityInfo, 304),
         "2 100 W|3 200 W|4 400 W|5 750 W|"},
        {List<KaloMotorVoltage>(KaloGetMotorPowerVoltageNum, KaloGetMotorPowerVoltageInfo, 303, 1, 8),
         "2 200 V AC|3 400 V AC|"},
        {List<KaloMotorVoltage>(KaloGetMotorPowerVoltageNum, KaloGetMotorPowerVoltageInfo, 401, 2, 3),
         "3 400 V AC|"},
        {List<KaloMotorPart>(KaloGetMotorLinearInfoNum, KaloGetMotorLinearInfo, 401, 1, 0),
         "1 M-30 x 400 mm|2 M-50 x 400 mm|3 M-80 x 800 mm|"},
        {List<KaloMotorPart>(KaloGetMotorLinearInfoNum, KaloGetMotorLinearInfo, 403, 2, 1),
         "1 C-030 single|2 C-060 double|"},
        {List<KaloMotorPart>(KaloGetMotorDDInfoNum, KaloGetMotorDDInfo, 503, 1, 0), "3 35 N·m|4 80 N·m|"},
        {List<KaloMotorPart>(KaloGetMotorDDInfoNum, KaloGetMotorDDInfo, 502, 2, 3), "2 Ø 175 mm|3 Ø 230 mm|"},
        {List<KaloOptionInfo>(KaloGetOptionInfoNum, KaloGetOptionInfo, 305),
         "1 No option 00|2 Holding brake 24 V 10|3 Oil seal 01|4 Holding brake and oil seal 11|"},
        {List<KaloPGInfo>(KaloGetPGInfoNum, KaloGetPGInfo, 401),
         "11 Serial linear scale 18 2 1|12 Sine linear scale 14 3 0|"},
        {MotorScale(), "2048 512 2558 32 3 1 2064 24"},
    });
    EXPECT_EQ(KaloMotorSpecStringCreate(0), 0u);
    EXPECT_EQ(Dump("SELECT [name_string], [unit] FROM [motor_specstring] WHERE [name_id] IN (5189, 5198)"),
              "Rated power|W\nPole pitch|µm\n");
}

TEST_F(CatalogueSampleTest, KnowsRatingsEncodersAndSizes) {
    ExpectAnswers({
        {Count(KaloGetServoPowerNum, 17, kNoOption), "8"},
        {Id(KaloGetServoPowerId, 17, kNoOption, 7), "8"},
        {Text(KaloGetServoPower, 8), "5.5 kW"},
        {List<KaloServoVoltage>(KaloGetServovoltageNum, KaloGetServovoltageInfo, 17, kNoOption, 3),
         "1 100 V AC|2 200 V AC|"},
        {Text(KaloGetServoVoltage, 4), "D (48 V DC)"},
        {Two(KaloGetServoCurrentInfo, 17, kNoOption, 7, 3), "9250 23000"},
        {Count(KaloGetEncoderNum), "21"},
        {Id(KaloGetEncoderId, 2, 4), "11"},
        {Text(KaloGetEncoderString, 1, 12), "正弦波スケール"},
        {Text(KaloGetEncoderString, 2, 12), "Sinusmaßstab 1 Vss"},
        {Two(KaloGetConvertID, 2, 5), "202 1"},
        {Encoder(301, 2, kNoEncoderFirmware), "22 ABS22"},
        {Encoder(301, 2, 2), "23 ABS23"},
        {Encoder(301, 2, 3), "24 ABS24"},
        {Encoder(302, 1, 3), "21 INC21"},
        {Encoder(302, 1, 4), "0 *"},
        {Encoder(302, 4, 3), "26 ABS26MT"},
        {Encoder(402, 12, kNoEncoderFirmware), "0 *"},
        {WholeList<KaloRefPulseString>(KaloGetRefPulseStringNum, KaloGetRefPulseString, 0),
         "0 Pulse and direction|1 Clockwise and counterclockwise|2 Two phases A and B|"},
        {WholeList<KaloRefLogicString>(KaloGetRefLogicStringNum, KaloGetRefLogicString, 2),
         "0 Aktiv high|1 Aktiv low|"},
        {WholeList<KaloRefMultiString>(KaloGetRefMultiStringNum, KaloGetRefMultiString, 1),
         "1 1逓倍|2 2逓倍|3 4逓倍|"},
    });
}

// Model 18 has no page of its own for some screens; the page of every model answers, but for gains.
TEST_F(CatalogueSampleTest, FindsThePagesAndTheMotorOfAnAxis) {
    ASSERT_EQ(KaloAlarmCreate(0, 18, 5, 202, 4, 3, 3, 202, kAxis), 0u);
    ASSERT_EQ(KaloModelInfoCreate(18, 5, 202, 4, 3, 3, 202, 302, 4, 3, kAxis), 0u);
    ExpectAnswers({
        {MotorOfAxis(), "RM medium inertia|motor.htm#rotary|26|ABS26MT|3"},
        {Text(KaloGetAutotuningHelp, kAxis), "common/tuning.htm#autotuning"},
        {Text(KaloGetInertiaHelp, kAxis, 2), "common/tuning.htm#inertia_start"},
        {Text(KaloGetInertiaHelp, kAxis, 3), "ampb200/tuning.htm#inertia_result"},
        {Text(KaloGetNctHelp, kAxis), "ampb200/tuning.htm#noncontact"},
        {Text(KaloGetCommonHelp, kAxis, 5), "ampb200/start.htm#io"},
        {Text(KaloGetCommonHelp, kNoAxis, 5), "common/start.htm#io"},
        {Text(KaloGetMechanaHelp, kAxis), "ampb200/tuning.htm#mechanical"},
        {Text(KaloGetGaintuningHelp, kAxis, 3), "ampb200/gain.htm#filters"},
        {Text(KaloGetGuidelineHelp, kAxis, 21, 2), "ampb200/guide.htm#emergency_stop"},
        {Text(KaloGetGuidelineHelp, kAxis, 20, 2), "common/guide.htm#wiring"},
        {Text(KaloGetGuidelineHelp, kAxis, 20, 3), "status 2bff180f"},
    });
}

}  // namespace
