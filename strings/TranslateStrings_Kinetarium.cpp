#include "strings/TranslateStrings_Kinetarium.h"

#include "classes/core/CDataCube.h"
#include "diagnostics/Guard.h"
#include "strings/Languages.h"

namespace
{

// Width of the columns for a caller that shows the table, in characters.
constexpr int c_iColumnWidth = 255;

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
