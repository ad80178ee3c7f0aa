#pragma once

#include "strings/LanguageFillers.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

enum class EnumReadingDirection : std::uint8_t
{
    LeftToRight,
    RightToLeft
};

// A language of the user interface.
struct CLanguage
{
    unsigned char uIndex;
    std::wstring_view sName;
    EnumReadingDirection eDirection;
    void (*pFill)(CDataCube*) noexcept;
};

constexpr std::size_t c_uLanguageCount = 21;

// Every index without a language gives this one.
constexpr unsigned char c_uLanguageEnglish = 7;

// The languages by index. Indices are stored outside the program, so the order must never change.
inline constexpr std::array<CLanguage, c_uLanguageCount> c_Languages{{
    {1, L"Arabic", EnumReadingDirection::RightToLeft, TranslateStrings_Kinetarium_Arabic},
    {2, L"Belarusian", EnumReadingDirection::LeftToRight, TranslateStrings_Kinetarium_Belarusian},
    {3, L"Flemish", EnumReadingDirection::LeftToRight, TranslateStrings_Kinetarium_Flemish},
    {4, L"Chinese", EnumReadingDirection::LeftToRight, TranslateStrings_Kinetarium_Chinese},
    {5, L"Danish", EnumReadingDirection::LeftToRight, TranslateStrings_Kinetarium_Danish},
    {6, L"Dutch", EnumReadingDirection::LeftToRight, TranslateStrings_Kinetarium_Dutch},
    {7, L"English", EnumReadingDirection::LeftToRight, TranslateStrings_Kinetarium_English},
    {8, L"Estonian", EnumReadingDirection::LeftToRight, TranslateStrings_Kinetarium_Estonian},
    {9, L"Finnish", EnumReadingDirection::LeftToRight, TranslateStrings_Kinetarium_Finnish},
    {10, L"French", EnumReadingDirection::LeftToRight, TranslateStrings_Kinetarium_French},
    {11, L"German", EnumReadingDirection::LeftToRight, TranslateStrings_Kinetarium_German},
    {12, L"Indonesian", EnumReadingDirection::LeftToRight, TranslateStrings_Kinetarium_Indonesian},
    {13, L"Italian", EnumReadingDirection::LeftToRight, TranslateStrings_Kinetarium_Italian},
    {14, L"Latvian", EnumReadingDirection::LeftToRight, TranslateStrings_Kinetarium_Latvian},
    {15, L"Lithuanian", EnumReadingDirection::LeftToRight, TranslateStrings_Kinetarium_Lithuanian},
    {16, L"Norwegian", EnumReadingDirection::LeftToRight, TranslateStrings_Kinetarium_Norwegian},
    {17, L"Portuguese", EnumReadingDirection::LeftToRight, TranslateStrings_Kinetarium_Portuguese},
    {18, L"Russian", EnumReadingDirection::LeftToRight, TranslateStrings_Kinetarium_Russian},
    {19, L"Spanish", EnumReadingDirection::LeftToRight, TranslateStrings_Kinetarium_Spanish},
    {20, L"Swedish", EnumReadingDirection::LeftToRight, TranslateStrings_Kinetarium_Swedish},
    {21, L"Turkish", EnumReadingDirection::LeftToRight, TranslateStrings_Kinetarium_Turkish},
}};

// True when the languages have names and are numbered from 1 without a gap.
constexpr bool Languages_AreSound()
{
    std::size_t uExpected = 0;
    for (const CLanguage& language : c_Languages)
    {
        ++uExpected;
        if (language.uIndex != uExpected || language.sName.empty())
        {
            return false;
        }
    }
    return true;
}

static_assert(Languages_AreSound(), "an index is stored outside the program and must never change");
static_assert(c_Languages[c_uLanguageEnglish - 1].sName == L"English");

// The language of an index; English for an index without a language.
constexpr const CLanguage& Languages_Find(unsigned char uIndex)
{
    const bool bKnown = uIndex >= 1 && uIndex <= c_uLanguageCount;
    return c_Languages[(bKnown ? uIndex : c_uLanguageEnglish) - std::size_t{1}];
}

constexpr bool Languages_IsRightToLeft(unsigned char uIndex)
{
    return Languages_Find(uIndex).eDirection == EnumReadingDirection::RightToLeft;
}
