#include "strings/StringTable.h"

#include "classes/core/CWString.h"
#include "tests/strings/ExpectedTexts.h"

#include <array>
#include <gtest/gtest.h>
#include <string>

namespace
{

TEST(StringTable, EveryKeyAndTextIsInItsPlaceToTheLetter)
{
    const auto rows = StringTable_GetRows();
    ASSERT_EQ(rows.size(), c_ExpectedTexts.size());
    for (std::size_t u = 0; u < rows.size(); ++u)
    {
        EXPECT_EQ(rows[u].sKey, c_ExpectedTexts[u].sKey);
        EXPECT_EQ(rows[u].sText, c_ExpectedTexts[u].sText);
    }
}

TEST(StringTable, ASoundTableHasDistinctKeysAndTexts)
{
    static_assert(StringTable_IsSound(std::array<CStringRow, 2>{{{L"a", L"1"}, {L"b", L"1"}}}));
    static_assert(!StringTable_IsSound(std::array<CStringRow, 2>{{{L"a", L"1"}, {L"a", L"2"}}}));
    static_assert(!StringTable_IsSound(std::array<CStringRow, 2>{{{L"a", L"1"}, {L"b", L""}}}));
    static_assert(!StringTable_IsSound(std::array<CStringRow, 2>{{{L"a", L"1"}}}), "a missing row");
}

TEST(StringTable, AKeyIsAnAsciiIdentifier)
{
    static_assert(StringTable_IsKey(L"Colour_1_factor"));
    static_assert(!StringTable_IsKey(L""));
    static_assert(!StringTable_IsKey(L"Colour 1"));
    static_assert(!StringTable_IsKey(L"Gr\u00F6\u00DFe"));
}

std::wstring_view FindText(std::wstring_view sKey)
{
    for (const CStringRow& row : StringTable_GetRows())
    {
        if (row.sKey == sKey)
        {
            return row.sText;
        }
    }
    return {};
}

TEST(StringTable, TheFormattedTextsReadWellWithTheirNumber)
{
    CWString sText;
    sText.Format(std::wstring(FindText(L"Colour_factor_n_is_invalid")).c_str(), 2);
    EXPECT_EQ(sText, L"Colour factor 2 has an invalid value.\n\n"
                     L"You can use an absolute value, e.g., 123 or a percentage, e.g., 12.34%.");
    sText.Format(std::wstring(FindText(L"Colour_factor_n_is_invalid_for_speed_mode")).c_str(), 3);
    EXPECT_EQ(sText.Find(L"Colour factor 3 has an invalid value.\n\nIn speed mode "), 0);
    EXPECT_EQ(sText.Find(L"%"), -1);
}

} // namespace
