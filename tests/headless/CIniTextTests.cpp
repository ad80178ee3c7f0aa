#include "headless/CIniText.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

std::int32_t ReadNumber(const std::string& sValue)
{
    return CIniText("[S]\nKey=" + sValue + "\n").GetInt(L"S", L"Key", -77);
}

std::wstring ReadText(const std::string& sValue)
{
    return CIniText("[S]\nKey=" + sValue + "\n").GetString(L"S", L"Key", L"default", 15);
}

} // namespace

// What the profile functions make of texts that are no plain numbers.
TEST(IniText, NumbersAreWhatTheValueBeginsWith)
{
    EXPECT_EQ(42, ReadNumber("42"));
    EXPECT_EQ(-5, ReadNumber("-5"));
    EXPECT_EQ(5, ReadNumber("+5"));
    EXPECT_EQ(12, ReadNumber("12abc"));
    EXPECT_EQ(3, ReadNumber("3.9"));
    EXPECT_EQ(16, ReadNumber("0x10"));
    EXPECT_EQ(10, ReadNumber("010"));
    EXPECT_EQ(42, ReadNumber("\"42\""));
    EXPECT_EQ(0, ReadNumber("abc"));
    EXPECT_EQ(0, ReadNumber("4294967296"));
    EXPECT_EQ(-1, ReadNumber("4294967295"));
}

TEST(IniText, NumbersCanBeWrittenInFourBases)
{
    EXPECT_EQ(0xFE01, ReadNumber("0xfE01"));
    EXPECT_EQ(0xABC, ReadNumber("0xABCg"));
    EXPECT_EQ(-15, ReadNumber("-0o17"));
    EXPECT_EQ(1, ReadNumber("0o18"));
    EXPECT_EQ(5, ReadNumber("0b101"));
    EXPECT_EQ(2, ReadNumber("0b102"));
    EXPECT_EQ(0, ReadNumber("0x"));
    EXPECT_EQ(0, ReadNumber("0d9"));
}

TEST(IniText, AnEmptyOrMissingNumberIsTheDefault)
{
    EXPECT_EQ(-77, ReadNumber(""));
    EXPECT_EQ(-77, ReadNumber("\"\""));
    EXPECT_EQ(9, CIniText("[S]\n").GetInt(L"S", L"Key", 9));
    EXPECT_EQ(9, CIniText("").GetInt(L"S", L"Key", 9));
    EXPECT_EQ(9, CIniText("[Other]\nKey=1\n").GetInt(L"S", L"Key", 9));
}

TEST(IniText, BlanksAroundNamesAndValuesDoNotCount)
{
    EXPECT_EQ(7, CIniText("  [S]  \r\n \t Key \t = \t 7 \t\r\n").GetInt(L"S", L"Key", 0));
}

TEST(IniText, NamesCountWithoutRegardToCase)
{
    EXPECT_EQ(7, CIniText("[settings]\nworld_WIDTH=7\n").GetInt(L"Settings", L"World_width", 0));
}

TEST(IniText, TheFirstOfEqualKeysAndSectionsWins)
{
    const CIniText text("[S]\nKey=1\nkey=2\n[T]\nKey=3\n[s]\nKey=4\nNew=5\n");

    EXPECT_EQ(1, text.GetInt(L"S", L"Key", 0));
    EXPECT_EQ(0, text.GetInt(L"S", L"New", 0));
    EXPECT_EQ(3, text.GetInt(L"T", L"Key", 0));
}

TEST(IniText, OnePairOfMatchingQuotationMarksIsDropped)
{
    EXPECT_EQ(L"a b", ReadText("\"a b\""));
    EXPECT_EQ(L" x ", ReadText("' x '"));
    EXPECT_EQ(L"\"x\"", ReadText("\"\"x\"\""));
    EXPECT_EQ(L"\"x'", ReadText("\"x'"));
    EXPECT_EQ(L"\"", ReadText("\""));
}

TEST(IniText, ASemicolonInAValueBelongsToIt)
{
    EXPECT_EQ(L"0.75 ; slow", ReadText("0.75 ; slow"));
}

TEST(IniText, ACommentedKeyIsNotThere)
{
    EXPECT_EQ(1, CIniText("[S]\n;Key=5\nKey=1\n").GetInt(L"S", L"Key", 0));
}

TEST(IniText, AnEmptyTextIsNotTheDefault)
{
    EXPECT_EQ(L"", ReadText(""));
    EXPECT_EQ(L"default", CIniText("[S]\n").GetString(L"S", L"Key", L"default", 15));
}

TEST(IniText, ALongTextIsCut)
{
    EXPECT_EQ(L"123456789012345", ReadText("12345678901234567890"));
}

TEST(IniText, AKeyWithoutAnEqualsSignHasNoValue)
{
    EXPECT_EQ(nullptr, CIniText("[S]\nKey\n").Find(L"S", L"Key"));
}

TEST(IniText, LinesKnowTheirNumbers)
{
    const CIniText text("; a comment\r\n\r\n[S]\r\nFirst=1\r\n\r\nSecond=2");

    ASSERT_NE(nullptr, text.Find(L"S", L"First"));
    EXPECT_EQ(4U, text.Find(L"S", L"First")->uLine);
    ASSERT_NE(nullptr, text.Find(L"S", L"Second"));
    EXPECT_EQ(6U, text.Find(L"S", L"Second")->uLine);
}

TEST(IniText, Utf16IsRecognisedByItsMark)
{
    const std::string sPlain = "[S]\r\nKey=12\r\n";
    std::string sWide = "\xFF\xFE";
    for (const char character : sPlain)
    {
        sWide += character;
        sWide += '\0';
    }

    EXPECT_EQ(12, CIniText(sWide).GetInt(L"S", L"Key", 0));
    EXPECT_EQ(12, CIniText(sWide + "x").GetInt(L"S", L"Key", 0));
}

TEST(IniText, AMarkOfUtf8DoesNotHideTheSection)
{
    EXPECT_EQ(12, CIniText("\xEF\xBB\xBF[S]\nKey=12\n").GetInt(L"S", L"Key", 0));
}

TEST(IniText, LinesBeforeTheFirstSectionBelongToNone)
{
    EXPECT_EQ(0, CIniText("Key=12\n[S]\n").GetInt(L"S", L"Key", 0));
}
