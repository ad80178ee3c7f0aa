#include "classes/core/CWString.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <limits>

namespace
{

TEST(WString, CanBeMadeFromEveryKindOfWideText)
{
    EXPECT_TRUE(CWString().IsEmpty());
    EXPECT_EQ(CWString(L"abc").Get(), L"abc");
    EXPECT_EQ(CWString(std::wstring(L"abc")).Get(), L"abc");
    EXPECT_EQ(CWString(std::wstring_view(L"abcdef").substr(0, 3)).Get(), L"abc");
    EXPECT_EQ(CWString(static_cast<const wchar_t*>(nullptr)).Get(), L"");
}

TEST(WString, ANumberBecomesItsDecimalText)
{
    EXPECT_EQ(CWString(0).Get(), L"0");
    EXPECT_EQ(CWString(-5).Get(), L"-5");
    EXPECT_EQ(CWString(std::uint8_t{200}).Get(), L"200");
    EXPECT_EQ(CWString(std::numeric_limits<std::uint32_t>::max()).Get(), L"4294967295");
    EXPECT_EQ(CWString(std::numeric_limits<std::int64_t>::min()).Get(), L"-9223372036854775808");
    EXPECT_EQ(CWString(std::numeric_limits<std::uint64_t>::max()).Get(), L"18446744073709551615");
}

TEST(WString, NumbersBooleansAndCharactersDoNotConvertImplicitly)
{
    static_assert(!std::is_convertible_v<int, CWString>);
    static_assert(!std::is_constructible_v<CWString, bool>);
    static_assert(!std::is_constructible_v<CWString, char>);
    static_assert(!std::is_constructible_v<CWString, wchar_t>);
}

TEST(WString, FindGivesTheFirstIndexAtOrAfterTheStartOrMinusOne)
{
    const CWString s(L"12.5% of 50%");
    EXPECT_EQ(s.Find(L"%"), 4);
    EXPECT_EQ(s.Find(L"%", 4), 4);
    EXPECT_EQ(s.Find(L"%", 5), 11);
    EXPECT_EQ(s.Find(L"%", 12), -1);
    EXPECT_EQ(s.Find(L"%", 1000), -1);
    EXPECT_EQ(s.Find(L"%", -3), 4);
    EXPECT_EQ(s.Find(L"50%"), 9);
    EXPECT_EQ(s.Find(L"x"), -1);
    EXPECT_EQ(CWString().Find(L"%"), -1);
}

TEST(WString, AnEmptyTextIsFoundAtTheStart)
{
    EXPECT_EQ(CWString(L"abc").Find(L"", 2), 2);
    EXPECT_EQ(CWString(L"abc").Find(L"", 3), 3);
    EXPECT_EQ(CWString(L"abc").Find(L"", 4), -1);
}

TEST(WString, FindLastGivesTheLastIndexOrMinusOne)
{
    EXPECT_EQ(CWString(L"C:\\a\\b.exe").FindLast(L"\\"), 4);
    EXPECT_EQ(CWString(L"b.exe").FindLast(L"\\"), -1);
}

TEST(WString, EraseWithoutACountRemovesTheRest)
{
    EXPECT_EQ(CWString(L"C:\\a\\b.exe").Erase(5).Get(), L"C:\\a\\");
    EXPECT_EQ(CWString(L"abc").Erase(0).Get(), L"");
}

TEST(WString, EraseWithACountRemovesThatManyCharacters)
{
    EXPECT_EQ(CWString(L"abcdef").Erase(1, 2).Get(), L"adef");
    EXPECT_EQ(CWString(L"abcdef").Erase(1, 0).Get(), L"abcdef");
}

TEST(WString, EraseIgnoresThePartOutsideTheText)
{
    constexpr int iMax = std::numeric_limits<int>::max();
    constexpr int iMin = std::numeric_limits<int>::min();
    EXPECT_EQ(CWString(L"abc").Erase(3).Get(), L"abc");
    EXPECT_EQ(CWString(L"abc").Erase(iMax, iMax).Get(), L"abc");
    EXPECT_EQ(CWString(L"abc").Erase(1, iMax).Get(), L"a");
    EXPECT_EQ(CWString(L"abc").Erase(-2, 3).Get(), L"bc");
    EXPECT_EQ(CWString(L"abc").Erase(iMin, 1).Get(), L"abc");
    EXPECT_EQ(CWString(L"abc").Erase(iMin).Get(), L"");
}

TEST(WString, TextsAreAppended)
{
    CWString s(L"a");
    s += L"b";
    s += CWString(L"c");
    s += std::wstring(L"d");
    EXPECT_EQ(s.Get(), L"abcd");
    s += s;
    EXPECT_EQ(s.Get(), L"abcdabcd");
    EXPECT_EQ((CWString(L"x") + L"y" + CWString(L"z")).Get(), L"xyz");
}

TEST(WString, ClearLeavesAnEmptyText)
{
    CWString s(L"abc");
    EXPECT_EQ(s.GetLength(), 3);
    EXPECT_FALSE(s.IsEmpty());
    s.Clear();
    EXPECT_TRUE(s.IsEmpty());
    EXPECT_STREQ(s.c_str(), L"");
}

TEST(WString, ComparesWithEveryKindOfWideText)
{
    const CWString s(L"abc");
    EXPECT_TRUE(s == L"abc");
    EXPECT_TRUE(L"abc" == s);
    EXPECT_TRUE(s == CWString(L"abc"));
    EXPECT_TRUE(s == std::wstring(L"abc"));
    EXPECT_TRUE(s == std::wstring_view(L"abc"));
    EXPECT_TRUE(s != L"abC");
    EXPECT_TRUE(s < L"abd");
    EXPECT_TRUE(s < CWString(L"abcd"));
    EXPECT_FALSE(s < CWString(L"abc"));
    EXPECT_TRUE(CWString(L"Z") < s);
}

TEST(WString, CompareNoCaseIgnoresTheCaseOfAsciiLetters)
{
    EXPECT_EQ(CWString(L"Width_DESC").CompareNoCase(L"wIDTH_desc"), 0);
    EXPECT_LT(CWString(L"abc").CompareNoCase(L"ABD"), 0);
    EXPECT_GT(CWString(L"abd").CompareNoCase(L"ABC"), 0);
    EXPECT_LT(CWString(L"ab").CompareNoCase(L"ABC"), 0);
    EXPECT_GT(CWString(L"abc").CompareNoCase(L"AB"), 0);
    EXPECT_EQ(CWString().CompareNoCase(L""), 0);
}

TEST(WString, CompareNoCaseDistinguishesOtherCharacters)
{
    // "[" and "{" differ in the same bit as capital and small letters.
    EXPECT_NE(CWString(L"[").CompareNoCase(L"{"), 0);
    EXPECT_NE(CWString(L"@").CompareNoCase(L"`"), 0);
    EXPECT_NE(CWString(L"\u00C4").CompareNoCase(L"\u00E4"), 0);
}

TEST(WString, FormatReplacesTheTextAndMayUseIt)
{
    CWString s(L"atoms");
    EXPECT_EQ(s.Format(L"%i %s", 3, s).Get(), L"3 atoms");
    EXPECT_EQ(s.Format(L"nothing").Get(), L"nothing");
}

TEST(WString, AFailedFormatLeavesTheTextUnchanged)
{
    CWString s(L"before");
    EXPECT_THROW(s.Format(L"%i %i", 1), std::runtime_error);
    EXPECT_EQ(s.Get(), L"before");
}

} // namespace
