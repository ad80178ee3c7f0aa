#include "strings/TranslateStrings_Kinetarium.h"

#include "classes/core/CDataCube.h"
#include "classes/core/CStringResource.h"
#include "strings/Languages.h"
#include "tests/strings/ExpectedTexts.h"

#include <array>
#include <gtest/gtest.h>
#include <string>

namespace
{

constexpr int c_iRows = static_cast<int>(c_ExpectedTexts.size());

void ExpectRow(const CDataCube& table, int iRow, std::wstring_view sBefore, std::wstring_view sAfter)
{
    const CExpectedText& expected = c_ExpectedTexts[static_cast<std::size_t>(iRow)];
    EXPECT_EQ(table.GetCell(iRow, 0), expected.sKey);
    EXPECT_EQ(table.GetCell(iRow, 1), std::wstring(sBefore).append(expected.sText).append(sAfter));
}

void ExpectTable(const CDataCube& table, bool bEnglish)
{
    ASSERT_EQ(table.GetColumnCount(), 2);
    ASSERT_EQ(table.GetRowCount(), c_iRows);
    for (int iRow = 0; iRow < c_iRows; ++iRow)
    {
        ExpectRow(table, iRow, bEnglish ? L"" : L"[", bEnglish ? L"" : L"]");
    }
}

TEST(TranslateStrings, ANullTableIsIgnored)
{
    TranslateStrings_Kinetarium(nullptr, c_uLanguageEnglish);
    for (const CLanguage& language : c_Languages)
    {
        language.pFill(nullptr);
    }
    SUCCEED();
}

TEST(TranslateStrings, TheTableHasAColumnOfKeysAndOneOfTexts)
{
    CDataCube table;
    TranslateStrings_Kinetarium(&table, c_uLanguageEnglish);
    EXPECT_EQ(table.GetColumn(0).sName, L"IDS");
    EXPECT_EQ(table.GetColumn(1).sName, L"Strings");
    for (int iColumn = 0; iColumn < 2; ++iColumn)
    {
        EXPECT_EQ(table.GetColumn(iColumn).iType, -9);
        EXPECT_EQ(table.GetColumn(iColumn).iWidth, 255);
        EXPECT_FALSE(table.GetColumn(iColumn).bHidden);
    }
}

TEST(TranslateStrings, IndicesOfNoLanguageGiveEnglish)
{
    for (const unsigned char uLanguage : std::to_array<unsigned char>({0, 7, 22, 255}))
    {
        CDataCube table;
        TranslateStrings_Kinetarium(&table, uLanguage);
        ExpectTable(table, true);
    }
}

TEST(TranslateStrings, EveryLanguageHasAllRowsInOrderAndAllButEnglishInBrackets)
{
    for (const CLanguage& language : c_Languages)
    {
        CDataCube table;
        TranslateStrings_Kinetarium(&table, language.uIndex);
        ExpectTable(table, language.uIndex == c_uLanguageEnglish);
    }
}

TEST(TranslateStrings, EveryLanguageHasEveryRowWithTheSameKey)
{
    CDataCube english;
    TranslateStrings_Kinetarium(&english, c_uLanguageEnglish);
    ASSERT_EQ(english.GetRowCount(), c_iRows);
    for (const CLanguage& language : c_Languages)
    {
        CDataCube table;
        TranslateStrings_Kinetarium(&table, language.uIndex);
        ASSERT_EQ(table.GetRowCount(), c_iRows);
        for (int iRow = 0; iRow < table.GetRowCount(); ++iRow)
        {
            EXPECT_EQ(table.GetCell(iRow, 0), english.GetCell(iRow, 0).Get());
        }
    }
}

TEST(TranslateStrings, EachFillerAddsItsRowsToItsTable)
{
    for (const CLanguage& language : c_Languages)
    {
        CDataCube table;
        table.AddColumn(L"IDS", c_iColumnTypeWideText, c_iAtEnd, 255, false);
        table.AddColumn(L"Strings", c_iColumnTypeWideText, c_iAtEnd, 255, false);
        language.pFill(&table);
        ExpectTable(table, language.pFill == &TranslateStrings_Kinetarium_English);
    }
}

TEST(TranslateStrings, FlemishAndChineseAreInBracketsAndEnglishIsNot)
{
    CDataCube table;
    TranslateStrings_Kinetarium(&table, 3);
    EXPECT_EQ(table.GetCell(0, 1), L"[Ok]");
    TranslateStrings_Kinetarium(&table, 4);
    EXPECT_EQ(table.GetCell(4, 1), L"[This button starts/stops the simulation]");
    TranslateStrings_Kinetarium(&table, 7);
    EXPECT_EQ(table.GetCell(0, 1), L"Ok");
}

TEST(TranslateStrings, TheFormattedTextsAreInBracketsTooWithTheirFormatUnchanged)
{
    CDataCube table;
    TranslateStrings_Kinetarium(&table, 11);
    EXPECT_EQ(table.GetCell(table.FindRow(0, L"Colour_factor_n_is_invalid"), 1),
              L"[Colour factor %i has an invalid value.\n\nYou can use an absolute value, e.g., 123 or a percentage, "
              L"e.g., 12.34%%.]");
}

TEST(TranslateStrings, RefillingForAnotherLanguageRemovesTheEarlierOne)
{
    CDataCube table;
    table.AddColumn(L"something else", 0, c_iAtEnd, 1, true);
    table.AddRow(c_iAtEnd, 1, L"old");
    for (const unsigned char uLanguage : std::to_array<unsigned char>({1, 7, 21, 0, 3}))
    {
        TranslateStrings_Kinetarium(&table, uLanguage);
        ExpectTable(table, Languages_Find(uLanguage).uIndex == c_uLanguageEnglish);
    }
}

TEST(TranslateStrings, AFillerWithoutColumnsAddsNothing)
{
    CDataCube table;
    TranslateStrings_Kinetarium_German(&table);
    EXPECT_EQ(table.GetRowCount(), 0);
}

TEST(TranslateStrings, AResourceAnswersEveryKeyInItsLanguage)
{
    CStringResource resource;
    resource.Initialize(&TranslateStrings_Kinetarium, c_uLanguageEnglish);
    for (const CExpectedText& expected : c_ExpectedTexts)
    {
        EXPECT_EQ(resource.Get(std::wstring(expected.sKey).c_str(), true), expected.sText);
    }
    resource.Initialize(&TranslateStrings_Kinetarium, 13);
    EXPECT_EQ(resource.Get(L"Width_desc", true), L"[The width of the world in pixels]");
}

} // namespace
