#include <gmock/gmock.h>
#include <kalodata/help.h>

#include <cstring>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "support/library_fixture.h"

namespace {

using support::BytesOf;

constexpr std::size_t kHelpSize = 128;

constexpr const char* kDatabase[] = {
    "CREATE TABLE [tablemanager] ([axis_num] SHORT, [servo_id] LONG, [option_id] LONG, [sFirm_version] LONG, "
    "[sCmod_version] LONG, [oFirm_version] LONG, [oCmod_version] LONG)",
    "INSERT INTO [tablemanager] ([axis_num],[servo_id]) VALUES (1,17)",
    "INSERT INTO [tablemanager] ([axis_num],[servo_id]) VALUES (2,34)",
    "INSERT INTO [tablemanager] ([axis_num],[servo_id]) VALUES (-2,17)",
    "CREATE TABLE [help] ([model_id] LONG, [help_id] LONG, [id] LONG, [helppath] MEMO)",
    "INSERT INTO [help] VALUES (17,1,0,'own autotuning')",
    "INSERT INTO [help] VALUES (65535,1,0,'common autotuning')",
    "INSERT INTO [help] VALUES (17,2,5,'own inertia 5')",
    "INSERT INTO [help] VALUES (65535,2,5,'common inertia 5')",
    "INSERT INTO [help] VALUES (65535,3,0,'common nct')",
    "INSERT INTO [help] VALUES (17,4,7,'own screen 7')",
    "INSERT INTO [help] VALUES (65535,4,7,'common screen 7')",
    "INSERT INTO [help] VALUES (17,5,0,'own mechanics')",
    "INSERT INTO [help] VALUES (17,6,2,'own gain 2')",
    "INSERT INTO [help] VALUES (65535,6,2,'common gain 2')",
    "INSERT INTO [help] VALUES (17,21,3,'own guide 21.3')",
    "INSERT INTO [help] VALUES (65535,21,3,'common guide 21.3')",
    "INSERT INTO [help] VALUES (17,4,99,NULL)",
    "CREATE TABLE [refpulsestring] ([pulse_id] LONG, [pulse_string] MEMO, [logic_id] LONG, [logic_string] "
    "MEMO, "
    "[multi_id] LONG, [multi_string] MEMO, [country_id] LONG)",
    "INSERT INTO [refpulsestring] VALUES (2,'sign',1,'low',65535,'none',0)",
    "INSERT INTO [refpulsestring] VALUES (1,'phases',0,'high',65534,'most',0)",
    "INSERT INTO [refpulsestring] VALUES (65535,NULL,65535,NULL,3,'x4',0)",
    // Language 1: a missing text in the third row of every kind; 2: a missing id is not listed at all.
    "INSERT INTO [refpulsestring] VALUES (1,'a',1,'a',1,'a',1)",
    "INSERT INTO [refpulsestring] VALUES (2,'b',2,'b',2,'b',1)",
    "INSERT INTO [refpulsestring] VALUES (3,NULL,3,NULL,3,NULL,1)",
    "INSERT INTO [refpulsestring] VALUES (4,'d',4,'d',4,'d',1)",
    "INSERT INTO [refpulsestring] VALUES (NULL,'a',NULL,'a',NULL,'a',2)",
};

class HelpTest : public support::LibraryTest {
  protected:
    void SetUp() override { UseDatabase(kDatabase); }
};

// One screen's getter with the items that the tests ask for.
struct Screen {
    const char* name;
    std::function<KaloStatus(std::int16_t axis, char* help)> call;
    const char* ofModel17;
    const char* ofModel34;  // empty: none
    KaloStatus notOpen, noAxis, noHelp, axisFailed, helpFailed;
};

const Screen kScreens[] = {
    {"KaloGetAutotuningHelp", KaloGetAutotuningHelp, "own autotuning", "common autotuning", 0x2BFF012C,
     0x2BFF071A, 0x2BFF071A, 0x2BFF012D, 0x2BFF012E},
    {"KaloGetInertiaHelp", [](std::int16_t axis, char* help) { return KaloGetInertiaHelp(axis, 5, help); },
     "own inertia 5", "common inertia 5", 0x2BFF012F, 0x2BFF071B, 0x2BFF071C, 0x2BFF0130, 0x2BFF0131},
    {"KaloGetNctHelp", KaloGetNctHelp, "common nct", "common nct", 0x2BFF0132, 0x2BFF071D, 0x2BFF071E,
     0x2BFF0133, 0x2BFF0134},
    {"KaloGetCommonHelp",
     [](std::int16_t axis, char* help) {
         return KaloGetCommonHelp(static_cast<std::uint16_t>(axis), 7, help);
     },
     "own screen 7", "common screen 7", 0x2BFF0135, 0x2BFF071F, 0x2BFF0721, 0x2BFF0136, 0x2BFF0137},
    {"KaloGetMechanaHelp", KaloGetMechanaHelp, "own mechanics", "", 0x2BFF0138, 0x2BFF0722, 0x2BFF0724,
     0x2BFF0139, 0x2BFF013A},
    {"KaloGetGaintuningHelp",
     [](std::int16_t axis, char* help) { return KaloGetGaintuningHelp(axis, 2, help); }, "own gain 2", "",
     0x2BFF013B, 0x2BFF0725, 0x2BFF0148, 0x2BFF013C, 0x2BFF013D},
    {"KaloGetGuidelineHelp",
     [](std::int16_t axis, char* help) { return KaloGetGuidelineHelp(axis, 21, 3, help); }, "own guide 21.3",
     "common guide 21.3", 0x2BFF180B, 0x2BFF1808, 0x2BFF180F, 0x2BFF1809, 0x2BFF180C},
};

TEST_F(HelpTest, FindsThePageOfTheModelElseThatOfEveryModel) {
    for (const Screen& screen : kScreens) {
        char help[kHelpSize] = "before";
        EXPECT_EQ(screen.call(1, help), 0u) << screen.name;
        EXPECT_STREQ(help, screen.ofModel17);
        EXPECT_EQ(screen.call(3, help), screen.noAxis) << screen.name;
        EXPECT_STREQ(help, screen.ofModel17) << "left as it was";
        const bool hasPage = *screen.ofModel34 != '\0';
        EXPECT_EQ(screen.call(2, help), hasPage ? 0 : screen.noHelp) << screen.name;
        EXPECT_STREQ(help, hasPage ? screen.ofModel34 : screen.ofModel17);
    }
}

TEST_F(HelpTest, AnswersWhenHelpCannotBeRead) {
    char help[kHelpSize];
    for (const Screen& screen : kScreens) {
        SCOPED_TRACE(screen.name);
        ExpectFaults({.call = [&] { return screen.call(1, help); },
                      .regions = {support::Code(screen.axisFailed), support::Code(screen.helpFailed)},
                      .output = {BytesOf(help)}});
    }
    UseClosedDatabase();
    for (const Screen& screen : kScreens)
        EXPECT_EQ(screen.call(1, help), screen.notOpen) << screen.name;
    EXPECT_EQ(KaloGetCommonHelp(65535, 7, help), 0x2BFF0135u);
}

TEST_F(HelpTest, CommonHelpNeedsNoAxis) {
    char help[kHelpSize];
    EXPECT_EQ(KaloGetCommonHelp(65535, 7, help), 0u);
    EXPECT_STREQ(help, "common screen 7");
    EXPECT_EQ(KaloGetCommonHelp(65535, 8, help), 0x2BFF0721u);
    EXPECT_EQ(KaloGetCommonHelp(65534, 7, help), 0u);
    EXPECT_STREQ(help, "own screen 7") << "axis -2";
}

TEST_F(HelpTest, CutsReferencesOnACharacterBoundary) {
    const struct {
        std::string reference, expected;
    } cases[] = {
        {std::string(127, 'x'), std::string(127, 'x')},
        {std::string(200, 'x'), std::string(127, 'x')},
        {std::string(126, 'x') + "é!", std::string(126, 'x')},
        {"", ""},
    };
    for (const auto& [reference, expected] : cases) {
        Execute({"DELETE * FROM [help] WHERE [help_id] = 1"});
        Execute({"INSERT INTO [help] VALUES (17,1,0,'" + reference + "')"});
        char help[kHelpSize + 1];
        std::memset(help, '#', sizeof help);
        EXPECT_EQ(KaloGetAutotuningHelp(1, help), 0u);
        EXPECT_EQ(help, expected);
        EXPECT_EQ(help[kHelpSize], '#');
    }
    char help[kHelpSize] = "before";
    EXPECT_EQ(KaloGetCommonHelp(1, 99, help), 0u);
    EXPECT_STREQ(help, "before") << "NULL";
}

// One kind of reference pulse choice, its elements taken as bytes: an id, then the text.
struct Kind {
    const char* name;
    KaloStatus(KALO_CALL* count)(std::uint16_t, std::uint16_t*);
    std::function<KaloStatus(std::uint16_t country, char* elements)> list;
    std::size_t size;
    std::vector<std::pair<std::uint32_t, std::string>> choices;
    KaloStatus firstCode;
};

const Kind kKinds[] = {
    {"pulse",
     KaloGetRefPulseStringNum,
     [](auto country, char* elements) {
         return KaloGetRefPulseString(country, reinterpret_cast<KaloRefPulseString*>(elements));
     },
     68,
     {{2, "sign"}, {1, "phases"}},
     0x2BFF0480},
    {"logic",
     KaloGetRefLogicStringNum,
     [](auto country, char* elements) {
         return KaloGetRefLogicString(country, reinterpret_cast<KaloRefLogicString*>(elements));
     },
     36,
     {{1, "low"}, {0, "high"}},
     0x2BFF048A},
    {"multi",
     KaloGetRefMultiStringNum,
     [](auto country, char* elements) {
         return KaloGetRefMultiString(country, reinterpret_cast<KaloRefMultiString*>(elements));
     },
     36,
     {{65534, "most"}, {3, "x4"}},
     0x2BFF0495},
};

std::uint32_t IdAt(const std::string& elements, std::size_t offset) {
    std::uint32_t id;
    std::memcpy(&id, elements.data() + offset, sizeof id);
    return id;
}

TEST_F(HelpTest, ListsReferencePulseChoicesInTheOrderOfTheRows) {
    for (const Kind& kind : kKinds) {
        std::uint16_t count = 0;
        EXPECT_EQ(kind.count(0, &count), 0u) << kind.name;
        ASSERT_EQ(count, kind.choices.size());
        std::string elements((count + 1) * kind.size, '#');
        EXPECT_EQ(kind.list(0, elements.data()), 0u);
        for (std::size_t i = 0; i < count; ++i) {
            EXPECT_EQ(IdAt(elements, i * kind.size), kind.choices[i].first);
            EXPECT_STREQ(elements.data() + i * kind.size + 4, kind.choices[i].second.c_str());
        }
        EXPECT_EQ(elements.substr(count * kind.size), std::string(kind.size, '#'));
    }
}

TEST_F(HelpTest, StopsAtAMissingTextAndReportsEmptyLists) {
    for (const Kind& kind : kKinds) {
        std::string elements(4 * kind.size, '#');
        EXPECT_EQ(kind.list(1, elements.data()), kind.firstCode + 6) << kind.name;
        EXPECT_STREQ(elements.data() + kind.size + 4, "b");
        EXPECT_EQ(IdAt(elements, 2 * kind.size), 3u);
        EXPECT_EQ(elements.substr(2 * kind.size + 4), std::string(2 * kind.size - 4, '#'));

        std::uint16_t count = 99;
        EXPECT_EQ(kind.count(2, &count), kind.firstCode + 1) << kind.name;
        EXPECT_EQ(count, 0);
        std::string untouched(kind.size, '#');
        EXPECT_EQ(kind.list(2, untouched.data()), kind.firstCode + 4);
        EXPECT_EQ(untouched, std::string(kind.size, '#'));
    }
}

// These leave the lock, unlike most functions.
TEST_F(HelpTest, AnswersWhenReferencePulseChoicesCannotBeRead) {
    std::uint16_t count = 0;
    std::string elements(4 * 68, '#');
    const auto behind = std::as_writable_bytes(std::span(elements));
    for (const Kind& kind : kKinds) {
        SCOPED_TRACE(kind.name);
        ExpectFaults({.call = [&] { return kind.count(0, &count); },
                      .regions = {Leaving(support::Code(kind.firstCode + 2))},
                      .output = {BytesOf(count)}});
        ExpectFaults({.call = [&] { return kind.list(0, elements.data()); },
                      .regions = {Leaving(support::Code(kind.firstCode + 7))},
                      .behind = {behind.subspan(kind.choices.size() * kind.size)}});
    }
    UseClosedDatabase();
    for (const Kind& kind : kKinds) {
        EXPECT_EQ(kind.count(0, &count), kind.firstCode) << kind.name;
        EXPECT_EQ(kind.list(0, elements.data()), kind.firstCode + 3) << kind.name;
    }
}

TEST_F(HelpTest, LongTextsRunIntoTheNextElementButNeverPastTheLast) {
    const std::string text(100, 't');
    for (const std::string id : {"1", "2"}) {
        Execute({"INSERT INTO [refpulsestring] ([logic_id],[logic_string],[country_id]) VALUES (" + id +
                 ",'" + text + "',9)"});
    }
    std::string elements(3 * 36, '#');
    EXPECT_EQ(KaloGetRefLogicString(9, reinterpret_cast<KaloRefLogicString*>(elements.data())), 0u);
    EXPECT_EQ(elements.substr(4, 32), text.substr(0, 32)) << "no terminator within its own element";
    EXPECT_EQ(IdAt(elements, 36), 2u);
    EXPECT_EQ(elements.substr(40, 32), text.substr(0, 31) + '\0') << "cut at the end of the array";
    EXPECT_EQ(elements.substr(72), std::string(36, '#'));
}

// The count has 16 bits, and so has an element's number, which is signed.
TEST_F(HelpTest, WritesNoMoreElementsThanTheCountSaysHoweverManyRows) {
    Execute({"INSERT INTO [refpulsestring] ([multi_id],[multi_string],[country_id]) VALUES (1,'m',9)"});
    Execute({"SELECT * INTO [one] FROM [refpulsestring] WHERE [country_id] = 9"});
    for (int rows = 1; rows < 32768; rows *= 2)
        Execute({"INSERT INTO [refpulsestring] SELECT * FROM [refpulsestring] WHERE [country_id] = 9"});
    Execute({"INSERT INTO [refpulsestring] SELECT * FROM [one]"});
    std::uint16_t count = 0;
    EXPECT_EQ(KaloGetRefMultiStringNum(9, &count), 0u);
    ASSERT_EQ(count, 32769);
    std::string elements(count * std::size_t{36}, '#');
    EXPECT_EQ(KaloGetRefMultiString(9, reinterpret_cast<KaloRefMultiString*>(elements.data())), 0u);
    EXPECT_STREQ(elements.data() + 32767 * 36 + 4, "m");
    EXPECT_EQ(elements.substr(32768 * 36), std::string(36, '#'));

    Execute({"INSERT INTO [refpulsestring] SELECT * FROM [refpulsestring] WHERE [country_id] = 9"});
    EXPECT_EQ(KaloGetRefMultiStringNum(9, &count), 0u);
    ASSERT_EQ(count, 2) << "65538 rows";
    elements.assign(3 * 36, '#');
    EXPECT_EQ(KaloGetRefMultiString(9, reinterpret_cast<KaloRefMultiString*>(elements.data())), 0u);
    EXPECT_EQ(elements.substr(2 * 36), std::string(36, '#'));
}

}  // namespace
