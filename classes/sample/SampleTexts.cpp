#include "classes/sample/SampleTexts.h"

#include "classes/core/CDataCube.h"

void FillSampleTexts(CDataCube* pTexts, unsigned char)
{
    constexpr int c_iWidth = 255; // characters
    constexpr int c_iCells = 2;
    constexpr const wchar_t* c_texts[][c_iCells] = {
        {L"Title", L"Teapot"},
        {L"Tea", L"Tea"},
        {L"Kind", L"Kind"},
        {L"Kind_desc", L"Which tea goes into the pot"},
        {L"Green", L"Green"},
        {L"Black", L"Black"},
        {L"Minutes", L"Minutes"},
        {L"Minutes_desc", L"How long the tea draws"},
        {L"Cups", L"Cups"},
        {L"Cups_desc", L"How many cups the pot holds"},
        {L"Brew", L"Brew"},
        {L"Brew_desc", L"Says what will be brewed"},
        {L"Result", L"%s tea, %i minutes, %i cups."},
        {L"Ok", L"OK"},
    };
    pTexts->AddColumn(L"Key", c_iColumnTypeWideText, c_iAtEnd, c_iWidth, false);
    pTexts->AddColumn(L"Text", c_iColumnTypeWideText, c_iAtEnd, c_iWidth, false);
    for (const auto& [sKey, sText] : c_texts)
    {
        pTexts->AddRow(c_iAtEnd, c_iCells, sKey, sText);
    }
}
