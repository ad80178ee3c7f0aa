#include "classes/core/EntryText.h"

#include <gtest/gtest.h>

#include <limits>

TEST(EntryText, ADigitsEntryAcceptsOnlyTheTenAsciiDigits)
{
    for (wchar_t c = L'0'; c <= L'9'; ++c)
    {
        EXPECT_TRUE(EntryTakes(c, true));
    }
    for (const wchar_t c : {L'/', L':', L'-', L'+', L'.', L' ', L'a', L'\x0661', L'\xFF11'})
    {
        EXPECT_FALSE(EntryTakes(c, true)) << static_cast<int>(c);
    }
}

TEST(EntryText, APlainEntryAcceptsEveryPrintableCharacter)
{
    for (const wchar_t c : {L' ', L'%', L'-', L'x', L'\x00E9', L'\x4E2D'})
    {
        EXPECT_TRUE(EntryTakes(c, false)) << static_cast<int>(c);
    }
    for (const wchar_t c : {L'\t', L'\x1F', L'\x7F'})
    {
        EXPECT_FALSE(EntryTakes(c, false)) << static_cast<int>(c);
    }
}

TEST(EntryText, PastedTextIsReducedToItsFirstLineFilteredAndTruncated)
{
    EXPECT_EQ(FilterPastedText(L"1 000 000\r\n5", true, 10), L"1000000");
    EXPECT_EQ(FilterPastedText(L"12345", true, 3), L"123");
    EXPECT_EQ(FilterPastedText(L"\n5", true, 3), L"") << "the first line is empty";
    EXPECT_EQ(FilterPastedText(L"50\t%", false, 10), L"50%");
    EXPECT_EQ(FilterPastedText(L"5", true, 0), L"");
}

TEST(EntryText, TheLeadingNumberIsReadAndClampedToTheRange)
{
    constexpr std::int64_t c_iLow = std::numeric_limits<std::int32_t>::min();
    constexpr std::int64_t c_iHigh = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(ReadLeadingNumber(L"", c_iLow, c_iHigh), 0);
    EXPECT_EQ(ReadLeadingNumber(L"  +42x", c_iLow, c_iHigh), 42);
    EXPECT_EQ(ReadLeadingNumber(L"-7", c_iLow, c_iHigh), -7);
    EXPECT_EQ(ReadLeadingNumber(L"-7", 0, 255), 0);
    EXPECT_EQ(ReadLeadingNumber(L"300", 0, 255), 255);
    EXPECT_EQ(ReadLeadingNumber(std::wstring(10'000, L'9'), c_iLow, c_iHigh), c_iHigh);
    EXPECT_EQ(ReadLeadingNumber(L"-" + std::wstring(10'000, L'9'), c_iLow, c_iHigh), c_iLow);
    EXPECT_EQ(ReadLeadingNumber(L"-", c_iLow, c_iHigh), 0);
    EXPECT_EQ(ReadLeadingNumber(L"   ", c_iLow, c_iHigh), 0);
}
