#include "strings/LanguageFillers.h"

#include "classes/core/CDataCube.h"
#include "diagnostics/Guard.h"
#include "strings/StringTable.h"

#include <string_view>

namespace
{

constexpr int c_iCellsPerRow = 2;

// Adds all rows, with what stands before and after each text. There is no window here whose log could be used.
void FillRows(CDataCube* pStrings, std::wstring_view sBefore, std::wstring_view sAfter, const CTraceSite& site)
{
    Guarded(site, [&] {
        if (pStrings == nullptr)
        {
            return;
        }
        for (const CStringRow& row : StringTable_GetRows())
        {
            CWString sText(sBefore);
            sText += row.sText;
            sText += sAfter;
            pStrings->AddRow(c_iAtEnd, c_iCellsPerRow, row.sKey, sText);
        }
    });
}

// The English texts. The site is that of the calling filler.
void AddRows(CDataCube* pStrings, const CTraceSite& site = {nullptr, __TIMESTAMP__})
{
    FillRows(pStrings, L"", L"", site);
}

// What a language without a translation shows: the brackets tell a translator what is still to be done.
void AddRowsInBrackets(CDataCube* pStrings, const CTraceSite& site = {nullptr, __TIMESTAMP__})
{
    FillRows(pStrings, L"[", L"]", site);
}

} // namespace

void TranslateStrings_Kinetarium_Arabic(CDataCube* pStrings) noexcept
{
    AddRowsInBrackets(pStrings);
}

void TranslateStrings_Kinetarium_Belarusian(CDataCube* pStrings) noexcept
{
    AddRowsInBrackets(pStrings);
}

void TranslateStrings_Kinetarium_Flemish(CDataCube* pStrings) noexcept
{
    AddRowsInBrackets(pStrings);
}

void TranslateStrings_Kinetarium_Chinese(CDataCube* pStrings) noexcept
{
    AddRowsInBrackets(pStrings);
}

void TranslateStrings_Kinetarium_Danish(CDataCube* pStrings) noexcept
{
    AddRowsInBrackets(pStrings);
}

void TranslateStrings_Kinetarium_Dutch(CDataCube* pStrings) noexcept
{
    AddRowsInBrackets(pStrings);
}

void TranslateStrings_Kinetarium_English(CDataCube* pStrings) noexcept
{
    AddRows(pStrings);
}

void TranslateStrings_Kinetarium_Estonian(CDataCube* pStrings) noexcept
{
    AddRowsInBrackets(pStrings);
}

void TranslateStrings_Kinetarium_Finnish(CDataCube* pStrings) noexcept
{
    AddRowsInBrackets(pStrings);
}

void TranslateStrings_Kinetarium_French(CDataCube* pStrings) noexcept
{
    AddRowsInBrackets(pStrings);
}

void TranslateStrings_Kinetarium_German(CDataCube* pStrings) noexcept
{
    AddRowsInBrackets(pStrings);
}

void TranslateStrings_Kinetarium_Indonesian(CDataCube* pStrings) noexcept
{
    AddRowsInBrackets(pStrings);
}

void TranslateStrings_Kinetarium_Italian(CDataCube* pStrings) noexcept
{
    AddRowsInBrackets(pStrings);
}

void TranslateStrings_Kinetarium_Latvian(CDataCube* pStrings) noexcept
{
    AddRowsInBrackets(pStrings);
}

void TranslateStrings_Kinetarium_Lithuanian(CDataCube* pStrings) noexcept
{
    AddRowsInBrackets(pStrings);
}

void TranslateStrings_Kinetarium_Norwegian(CDataCube* pStrings) noexcept
{
    AddRowsInBrackets(pStrings);
}

void TranslateStrings_Kinetarium_Portuguese(CDataCube* pStrings) noexcept
{
    AddRowsInBrackets(pStrings);
}

void TranslateStrings_Kinetarium_Russian(CDataCube* pStrings) noexcept
{
    AddRowsInBrackets(pStrings);
}

void TranslateStrings_Kinetarium_Spanish(CDataCube* pStrings) noexcept
{
    AddRowsInBrackets(pStrings);
}

void TranslateStrings_Kinetarium_Swedish(CDataCube* pStrings) noexcept
{
    AddRowsInBrackets(pStrings);
}

void TranslateStrings_Kinetarium_Turkish(CDataCube* pStrings) noexcept
{
    AddRowsInBrackets(pStrings);
}
