#include "settings/CFactor.h"

#include <gtest/gtest.h>

#include <limits>

TEST(Factor, AnEmptyTextIsUnset)
{
    EXPECT_EQ(CFactor().GetForm(), EnumFactorForm::Unset);
    EXPECT_EQ(CFactor(L"").GetForm(), EnumFactorForm::Unset);
    EXPECT_FALSE(CFactor(L"").IsSet());
    EXPECT_TRUE(CFactor(L" ").IsSet());
}

TEST(Factor, KeepsItsTextAsTyped)
{
    EXPECT_EQ(CFactor(L" 0.50 ").GetText(), L" 0.50 ");
    EXPECT_EQ(CFactor(L"abc").GetText(), L"abc");
    EXPECT_EQ(CFactor(L"0.5"), CFactor(L"0.5"));
    EXPECT_FALSE(CFactor(L"0.5") == CFactor(L"0.50"));
}

TEST(Factor, ANumberIsReadAsTyped)
{
    EXPECT_EQ(CFactor(L"12.34").GetForm(), EnumFactorForm::Number);
    EXPECT_EQ(CFactor(L"12.34").GetValue(), 12.34);
    EXPECT_EQ(CFactor(L"0").GetForm(), EnumFactorForm::Number);
    EXPECT_EQ(CFactor(L"1e999").GetValue(), std::numeric_limits<double>::max());
}

TEST(Factor, APercentSignAtTheEndMakesAPercentageOfTheSameNumber)
{
    EXPECT_EQ(CFactor(L"12.34%").GetForm(), EnumFactorForm::Percentage);
    EXPECT_EQ(CFactor(L"12.34%").GetValue(), 12.34);
}

// As a number it would mean 50 atoms, and 50 % after the next start: the settings file keeps no blanks at the end.
TEST(Factor, AnyCharacterAfterThePercentSignMakesTheTextNoNumber)
{
    for (const wchar_t* const sText : {L"50% ", L"50%\t", L" 50%  ", L"-50% ", L"50% %", L"50%5"})
    {
        EXPECT_EQ(CFactor(sText).GetForm(), EnumFactorForm::NotNumber);
        EXPECT_EQ(CFactor(sText).GetValue(), 0.0);
        EXPECT_FALSE(CFactor(sText).IsBelowZero());
    }
}

TEST(Factor, BlanksAroundANumberAndBeforeAPercentageChangeNothing)
{
    EXPECT_EQ(CFactor(L" 50 ").GetForm(), EnumFactorForm::Number);
    EXPECT_EQ(CFactor(L" 50 ").GetValue(), 50.0);
    EXPECT_EQ(CFactor(L" 50%").GetForm(), EnumFactorForm::Percentage);
    EXPECT_EQ(CFactor(L" 50%").GetValue(), 50.0);
}

TEST(Factor, ATextThatIsNotANumberHasNoValue)
{
    for (const wchar_t* const sText : {L"abc", L"%", L"5%%", L"5%5", L"%5", L"1,5", L" ", L"nan"})
    {
        EXPECT_EQ(CFactor(sText).GetForm(), EnumFactorForm::NotNumber);
        EXPECT_FALSE(CFactor(sText).HasValue());
        EXPECT_FALSE(CFactor(sText).IsBelowZero());
        EXPECT_EQ(CFactor(sText).GetValue(), 0.0);
    }
}

TEST(Factor, TheSignComesFromTheTypedNumber)
{
    EXPECT_TRUE(CFactor(L"-1").IsBelowZero());
    EXPECT_TRUE(CFactor(L"-0.0001%").IsBelowZero());
    EXPECT_TRUE(CFactor(L"-1e-400").IsBelowZero()); // no double lies between -1e-400 and zero
    EXPECT_FALSE(CFactor(L"-0").IsBelowZero());
    EXPECT_FALSE(CFactor(L"1e-400").IsBelowZero());
    EXPECT_FALSE(CFactor(L"0").IsBelowZero());
}
