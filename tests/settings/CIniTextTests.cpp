#include "settings/CIniText.h"
#include "tests/settings/CIniTextWriter.h"

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

// The results of the profile functions for texts that are not plain numbers.
TEST(IniText, ANumberIsReadFromTheBeginningOfTheValue)
{
    EXPECT_EQ(ReadNumber("42"), 42);
    EXPECT_EQ(ReadNumber("-5"), -5);
    EXPECT_EQ(ReadNumber("+5"), 5);
    EXPECT_EQ(ReadNumber("12abc"), 12);
    EXPECT_EQ(ReadNumber("3.9"), 3);
    EXPECT_EQ(ReadNumber("0x10"), 16);
    EXPECT_EQ(ReadNumber("010"), 10);
    EXPECT_EQ(ReadNumber("\"42\""), 42);
    EXPECT_EQ(ReadNumber("abc"), 0);
    EXPECT_EQ(ReadNumber("4294967296"), 0);
    EXPECT_EQ(ReadNumber("4294967295"), -1);
}

TEST(IniText, NumbersCanBeWrittenInFourBases)
{
    EXPECT_EQ(ReadNumber("0xfE01"), 0xFE01);
    EXPECT_EQ(ReadNumber("0xABCg"), 0xABC);
    EXPECT_EQ(ReadNumber("-0o17"), -15);
    EXPECT_EQ(ReadNumber("0o18"), 1);
    EXPECT_EQ(ReadNumber("0b101"), 5);
    EXPECT_EQ(ReadNumber("0b102"), 2);
    EXPECT_EQ(ReadNumber("0x"), 0);
    EXPECT_EQ(ReadNumber("0d9"), 0);
}

TEST(IniText, AnEmptyOrMissingNumberIsTheDefault)
{
    EXPECT_EQ(ReadNumber(""), -77);
    EXPECT_EQ(ReadNumber("\"\""), -77);
    EXPECT_EQ(CIniText("[S]\n").GetInt(L"S", L"Key", 9), 9);
    EXPECT_EQ(CIniText("").GetInt(L"S", L"Key", 9), 9);
    EXPECT_EQ(CIniText("[Other]\nKey=1\n").GetInt(L"S", L"Key", 9), 9);
}

TEST(IniText, BlanksAroundNamesAndValuesDoNotCount)
{
    EXPECT_EQ(CIniText("  [S]  \r\n \t Key \t = \t 7 \t\r\n").GetInt(L"S", L"Key", 0), 7);
}

TEST(IniText, NamesAreComparedWithoutRegardToCase)
{
    EXPECT_EQ(CIniText("[settings]\nworld_WIDTH=7\n").GetInt(L"Settings", L"World_width", 0), 7);
}

TEST(IniText, TheFirstOfEqualKeysAndSectionsWins)
{
    const CIniText text("[S]\nKey=1\nkey=2\n[T]\nKey=3\n[s]\nKey=4\nNew=5\n");

    EXPECT_EQ(text.GetInt(L"S", L"Key", 0), 1);
    EXPECT_EQ(text.GetInt(L"S", L"New", 0), 0);
    EXPECT_EQ(text.GetInt(L"T", L"Key", 0), 3);
}

TEST(IniText, OnePairOfMatchingQuotationMarksIsDropped)
{
    EXPECT_EQ(ReadText("\"a b\""), L"a b");
    EXPECT_EQ(ReadText("' x '"), L" x ");
    EXPECT_EQ(ReadText("\"\"x\"\""), L"\"x\"");
    EXPECT_EQ(ReadText("\"x'"), L"\"x'");
    EXPECT_EQ(ReadText("\""), L"\"");
}

TEST(IniText, ASemicolonInAValueBelongsToIt)
{
    EXPECT_EQ(ReadText("0.75 ; slow"), L"0.75 ; slow");
}

TEST(IniText, AKeyInACommentIsMissing)
{
    EXPECT_EQ(CIniText("[S]\n;Key=5\nKey=1\n").GetInt(L"S", L"Key", 0), 1);
}

TEST(IniText, AnEmptyTextDoesNotBecomeTheDefault)
{
    EXPECT_EQ(ReadText(""), L"");
    EXPECT_EQ(CIniText("[S]\n").GetString(L"S", L"Key", L"default", 15), L"default");
}

TEST(IniText, ALongTextIsTruncated)
{
    EXPECT_EQ(ReadText("12345678901234567890"), L"123456789012345");
}

TEST(IniText, AKeyWithoutAnEqualsSignHasNoValue)
{
    EXPECT_EQ(nullptr, CIniText("[S]\nKey\n").Find(L"S", L"Key"));
}

TEST(IniText, LinesKnowTheirNumbersWhateverEndsThem)
{
    for (const std::string sEnd : {"\n", "\r\n", "\r"})
    {
        const CIniText text("; a comment" + sEnd + sEnd + "[S]" + sEnd + "First=1" + sEnd + sEnd + "Second=2");

        ASSERT_NE(text.Find(L"S", L"First"), nullptr);
        EXPECT_EQ(text.Find(L"S", L"First")->uLine, 4U);
        ASSERT_NE(text.Find(L"S", L"Second"), nullptr);
        EXPECT_EQ(text.Find(L"S", L"Second")->uLine, 6U);
        EXPECT_EQ(text.GetSections().back().uLine, 3U);
    }
}

TEST(IniText, Utf16IsRecognisedByItsMark)
{
    for (const EnumIniEncoding eEncoding : {EnumIniEncoding::Utf16LittleEndian, EnumIniEncoding::Utf16BigEndian})
    {
        const CIniText text(EncodeIni(u"[S]\r\nKey=12\r\nText=\u20AC\r\n", eEncoding));

        EXPECT_EQ(text.GetInt(L"S", L"Key", 0), 12);
        EXPECT_EQ(text.GetString(L"S", L"Text", L"", 15), L"\u20AC");
    }
}

TEST(IniText, AMarkOfUtf8DoesNotHideTheSection)
{
    const CIniText text(EncodeIni(u"[S]\nKey=12\nText=\u20AC\n", EnumIniEncoding::Utf8));

    EXPECT_EQ(text.GetInt(L"S", L"Key", 0), 12);
    EXPECT_EQ(text.GetString(L"S", L"Text", L"", 15), L"\u20AC");
}

TEST(IniText, TheNameOfASectionEndsAtItsLastBracket)
{
    const CIniText text("[S]x]\nKey=1\n[S] ; a comment\nKey=2\n");
    EXPECT_EQ(text.GetInt(L"S]x", L"Key", 0), 1);
    EXPECT_EQ(text.GetInt(L"S", L"Key", 0), 2);
}

TEST(IniText, LinesBeforeTheFirstSectionBelongToNoSection)
{
    EXPECT_EQ(CIniText("Key=12\n[S]\n").GetInt(L"S", L"Key", 0), 0);
}
