#include "strings/Languages.h"

#include <gtest/gtest.h>

namespace
{

struct CExpectedLanguage
{
    unsigned char uIndex;
    std::wstring_view sName;
    void (*pFill)(CDataCube*) noexcept;
};

constexpr CExpectedLanguage c_Expected[] = {
    {1, L"Arabic", &TranslateStrings_Kinetarium_Arabic},
    {2, L"Belarusian", &TranslateStrings_Kinetarium_Belarusian},
    {3, L"Flemish", &TranslateStrings_Kinetarium_Flemish},
    {4, L"Chinese", &TranslateStrings_Kinetarium_Chinese},
    {5, L"Danish", &TranslateStrings_Kinetarium_Danish},
    {6, L"Dutch", &TranslateStrings_Kinetarium_Dutch},
    {7, L"English", &TranslateStrings_Kinetarium_English},
    {8, L"Estonian", &TranslateStrings_Kinetarium_Estonian},
    {9, L"Finnish", &TranslateStrings_Kinetarium_Finnish},
    {10, L"French", &TranslateStrings_Kinetarium_French},
    {11, L"German", &TranslateStrings_Kinetarium_German},
    {12, L"Indonesian", &TranslateStrings_Kinetarium_Indonesian},
    {13, L"Italian", &TranslateStrings_Kinetarium_Italian},
    {14, L"Latvian", &TranslateStrings_Kinetarium_Latvian},
    {15, L"Lithuanian", &TranslateStrings_Kinetarium_Lithuanian},
    {16, L"Norwegian", &TranslateStrings_Kinetarium_Norwegian},
    {17, L"Portuguese", &TranslateStrings_Kinetarium_Portuguese},
    {18, L"Russian", &TranslateStrings_Kinetarium_Russian},
    {19, L"Spanish", &TranslateStrings_Kinetarium_Spanish},
    {20, L"Swedish", &TranslateStrings_Kinetarium_Swedish},
    {21, L"Turkish", &TranslateStrings_Kinetarium_Turkish},
};

TEST(Languages, EveryIndexHasItsLanguageAndItsFiller)
{
    for (const CExpectedLanguage& expected : c_Expected)
    {
        const CLanguage& language = Languages_Find(expected.uIndex);
        EXPECT_EQ(language.uIndex, expected.uIndex);
        EXPECT_EQ(language.sName, expected.sName);
        EXPECT_EQ(language.pFill, expected.pFill);
    }
    EXPECT_EQ(c_Languages.size(), std::size(c_Expected));
}

TEST(Languages, FlemishHasTheIndexBeforeChinese)
{
    EXPECT_EQ(Languages_Find(3).pFill, &TranslateStrings_Kinetarium_Flemish);
    EXPECT_EQ(Languages_Find(4).pFill, &TranslateStrings_Kinetarium_Chinese);
}

TEST(Languages, EveryOtherIndexGivesEnglish)
{
    for (int i = 0; i <= 255; ++i)
    {
        const CLanguage& language = Languages_Find(static_cast<unsigned char>(i));
        const bool bKnown = i >= 1 && i <= 21;
        EXPECT_EQ(language.uIndex, bKnown ? i : c_uLanguageEnglish) << i;
    }
}

TEST(Languages, OnlyArabicIsReadFromRightToLeft)
{
    for (const CLanguage& language : c_Languages)
    {
        EXPECT_EQ(language.eDirection == EnumReadingDirection::RightToLeft, language.uIndex == 1) << language.uIndex;
    }
    for (int i = 0; i <= 255; ++i)
    {
        EXPECT_EQ(Languages_IsRightToLeft(static_cast<unsigned char>(i)), i == 1) << i;
    }
}

} // namespace
