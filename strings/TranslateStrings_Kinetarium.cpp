#include "strings/TranslateStrings_Kinetarium.h"

#include "classes/core/CDataCube.h"
#include "diagnostics/Guard.h"
#include "strings/Languages.h"
#include "strings/StringTable.h"

#include <string>

namespace
{

// Width of the columns for a caller that shows the table, in characters.
constexpr int c_iColumnWidth = 255;

constexpr int c_iCellsPerRow = 2;

// Adds all rows, each text between sBefore and sAfter. Errors go to no log: there is no window here that has one.
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

// Adds the English texts. The site is that of the calling filler.
void AddRows(CDataCube* pStrings, const CTraceSite& site = {nullptr, __TIMESTAMP__})
{
    FillRows(pStrings, L"", L"", site);
}

// Adds the texts of a language without a translation: the brackets mark them for a translator.
void AddRowsInBrackets(CDataCube* pStrings, const CTraceSite& site = {nullptr, __TIMESTAMP__})
{
    FillRows(pStrings, L"[", L"]", site);
}

} // namespace

void TranslateStrings_Kinetarium(CDataCube* pStrings, unsigned char uLanguage) noexcept
{
    Guarded({nullptr, __TIMESTAMP__}, [&] {
        if (pStrings == nullptr)
        {
            return;
        }
        pStrings->DeleteColumn(c_iAll);
        pStrings->AddColumn(L"IDS", c_iColumnTypeWideText, c_iAtEnd, c_iColumnWidth, false);
        pStrings->AddColumn(L"Strings", c_iColumnTypeWideText, c_iAtEnd, c_iColumnWidth, false);
        Languages_Find(uLanguage).pFill(pStrings);
    });
}

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
