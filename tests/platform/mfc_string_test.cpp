#include <gtest/gtest.h>

#include "afx.h"

namespace {

std::string Formatted(const CString& text) {
    return static_cast<LPCTSTR>(text);
}

template <typename... Arguments>
std::string Format(LPCTSTR format, Arguments... arguments) {
    CString text("before");
    text.Format(format, arguments...);
    return Formatted(text);
}

TEST(MfcString, FormatTakesLongAs32Bits) {
    // An argument of the wrong width would shift those after it.
    EXPECT_EQ(Format("%ld,%lu,%s", LONG{-1}, DWORD{0xFFFFFFFF}, "end"), "-1,4294967295,end");
    EXPECT_EQ(Format("%lX|%lx|%d", DWORD{0xBEEF}, DWORD{0xBEEF}, 7), "BEEF|beef|7");
    EXPECT_EQ(Format("%I64d|%llu|%u", std::int64_t{-5000000000}, std::uint64_t{5000000000}, 3U),
              "-5000000000|5000000000|3");
    EXPECT_EQ(Format("%hu|%hd|%hhu", 65537, 65535, 257), "1|-1|1");
}

TEST(MfcString, FormatKeepsWidthsFlagsAndPrecision) {
    EXPECT_EQ(Format("[%5d][%-5d][%05d][%+d]", 42, 42, 42, 42), "[   42][42   ][00042][+42]");
    EXPECT_EQ(Format("[%.2s][%*d][%-*s][%.*f]", "abc", 4, 7, 3, "x", 1, 2.25), "[ab][   7][x  ][2.2]");
    EXPECT_EQ(Format("%c%c|%i|%o|%#x", 'o', 'k', -3, 8, 255), "ok|-3|10|0xff");
    EXPECT_EQ(Format("100%% of %s", static_cast<const char*>(nullptr)), "100% of (null)");
}

TEST(MfcString, FormatBoundaries) {
    const std::string longText(5000, 'x');
    EXPECT_EQ(Format("<%s>", longText.c_str()), "<" + longText + ">");
    EXPECT_EQ(Format(""), "");
    EXPECT_EQ(Format("50%"), "50%");
    EXPECT_EQ(Format("%y%d", 1), "%y1");
    CString text("SELECT");
    text.Format("%s * FROM [%s]", static_cast<LPCTSTR>(text), "t");  // its own content as an argument
    EXPECT_EQ(Formatted(text), "SELECT * FROM [t]");
}

TEST(MfcString, TrimmingAndCaseConcernAsciiOnly) {
    CString text(" \t\r\n\v\fÄ b\xC2\xA0 ");  // a no-break space is no white space
    text.TrimLeft();
    text.TrimRight();
    EXPECT_EQ(Formatted(text), "Ä b\xC2\xA0");
    text = "AZ[`ÄÉ表";
    text.MakeLower();
    EXPECT_EQ(Formatted(text), "az[`ÄÉ表");
    CString blank(" \t ");
    blank.TrimRight();
    EXPECT_TRUE(blank.IsEmpty());
    blank = "  ";
    blank.TrimLeft();
    EXPECT_EQ(blank.GetLength(), 0);
}

TEST(MfcString, PartsStayWithinTheText) {
    const CString path("/a/b.mdb");
    EXPECT_EQ(path.Find("b."), 3);
    EXPECT_EQ(path.Find("c"), -1);
    EXPECT_EQ(Formatted(path.Left(3)), "/a/");
    EXPECT_EQ(Formatted(path.Mid(3)), "b.mdb");
    EXPECT_EQ(Formatted(path.Mid(3, 1)), "b");
    EXPECT_EQ(Formatted(path.Right(4)), ".mdb");
    for (const int beyond : {-1, 9, 1000}) {
        EXPECT_LE(path.Mid(beyond).GetLength(), 8) << beyond;
        EXPECT_LE(path.Left(beyond).GetLength(), 8) << beyond;
        EXPECT_LE(path.Right(beyond).GetLength(), 8) << beyond;
    }
    EXPECT_TRUE(path.Mid(1000).IsEmpty());
    EXPECT_TRUE(path.Left(-1).IsEmpty());
}

TEST(MfcString, JoiningAndComparing) {
    CString name("ab");
    name += name;
    name += '_';
    EXPECT_EQ(Formatted(name + "c" + CString("d")), "abab_cd");
    EXPECT_EQ(Formatted("x" + name), "xabab_");
    EXPECT_TRUE(name == "abab_");
    EXPECT_TRUE(name != "ABAB_");
    name = static_cast<LPCTSTR>(name) + 3;  // a part of itself
    EXPECT_EQ(Formatted(name), "b_");
    EXPECT_TRUE(CString(nullptr).IsEmpty());
}

}  // namespace
