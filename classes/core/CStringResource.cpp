#include "classes/core/CStringResource.h"

#include "classes/core/CDataCube.h"

#include <algorithm>

namespace
{

constexpr int c_iKeyColumn = 0;
constexpr int c_iTextColumn = 1;

} // namespace

void CStringResource::Initialize(TranslateFunction pTranslate, unsigned char uLanguage, bool bRightToLeft)
{
    CDataCube table;
    if (pTranslate != nullptr)
    {
        pTranslate(&table, uLanguage);
    }

    std::vector<Entry> entries;
    entries.reserve(static_cast<std::size_t>(table.GetRowCount()));
    for (int iRow = 0; iRow < table.GetRowCount(); ++iRow)
    {
        entries.emplace_back(table.GetCell(iRow, c_iKeyColumn).Get(), table.GetCell(iRow, c_iTextColumn));
    }
    // A stable sort keeps the first of several equal keys first.
    std::stable_sort(entries.begin(), entries.end(),
                     [](const Entry& first, const Entry& second) { return first.first < second.first; });
    m_Entries = std::move(entries);
    m_uLanguage = uLanguage;
    m_bRightToLeft = bRightToLeft;
}

CWString CStringResource::Get(const wchar_t* sKey, bool bKeyIfMissing) const
{
    const std::wstring_view sWanted = sKey != nullptr ? sKey : L"";
    if (sWanted.empty())
    {
        return {};
    }
    const auto found = std::lower_bound(m_Entries.begin(), m_Entries.end(), sWanted,
                                        [](const Entry& entry, std::wstring_view s) { return entry.first < s; });
    if (found != m_Entries.end() && found->first == sWanted)
    {
        return found->second;
    }
    return bKeyIfMissing ? CWString(sWanted) : CWString();
}
