#include "classes/core/PanelLayout.h"

#include <algorithm>

namespace
{
// All in pixels. Thirteen settings, two headings and two dividers come to 479 and fit the panel of the default window.
constexpr int c_iHeadingHeight = 28;
constexpr int c_iDividerHeight = 15;
constexpr int c_iControlHeight = 24;
constexpr int c_iTopSpace = 1;
constexpr int c_iBottomSpace = 2;
constexpr int c_iLabelLeft = 10; // keeps labels away from a window that ends where the panel begins
constexpr int c_iLabelGap = 6;   // between a label and its control

int GetRowHeight(EnumDataCtrlType eType)
{
    switch (eType)
    {
    case EnumDataCtrlType::Heading:
        return c_iHeadingHeight;
    case EnumDataCtrlType::Divider:
        return c_iDividerHeight;
    default:
        return c_iSettingHeight;
    }
}

CRect MakeRect(int iLeft, int iTop, int iRight, int iBottom)
{
    CRect rc;
    rc.left = iLeft;
    rc.top = iTop;
    rc.right = std::max(iLeft, iRight);
    rc.bottom = iBottom;
    return rc;
}

CPanelRow PlaceRow(EnumDataCtrlType eType, int iTop, int iWidth, int iControlLeft)
{
    CPanelRow row;
    row.rcRow = MakeRect(0, iTop, iWidth, iTop + GetRowHeight(eType));
    if (eType == EnumDataCtrlType::Divider)
    {
        return row;
    }
    if (eType == EnumDataCtrlType::Heading)
    {
        row.rcLabel = MakeRect(c_iLabelLeft, iTop, iWidth, row.rcRow.bottom);
        return row;
    }
    const int iControlTop = iTop + (c_iSettingHeight - c_iControlHeight) / 2;
    row.rcLabel = MakeRect(c_iLabelLeft, iControlTop, iControlLeft - c_iLabelGap, iControlTop + c_iControlHeight);
    row.rcControl = MakeRect(iControlLeft, iControlTop, iWidth, iControlTop + c_iControlHeight);
    return row;
}
} // namespace

CPanelLayout LayOutPanel(const std::vector<EnumDataCtrlType>& types, int iWidth, double dLabelShare)
{
    CPanelLayout layout;
    layout.rows.reserve(types.size());
    const int iControlLeft = static_cast<int>(iWidth * std::clamp(dLabelShare, 0.0, 1.0));
    int iTop = c_iTopSpace;
    for (const EnumDataCtrlType eType : types)
    {
        layout.rows.push_back(PlaceRow(eType, iTop, iWidth, iControlLeft));
        iTop = layout.rows.back().rcRow.bottom;
    }
    layout.iHeight = iTop + c_iBottomSpace;
    return layout;
}

int ClampScrollPosition(int iWanted, int iContent, int iPage)
{
    return std::clamp(iWanted, 0, std::max(iContent - iPage, 0));
}

int ScrollIntoView(int iPosition, int iPage, int iContent, int iTop, int iBottom)
{
    int iResult = iPosition;
    if (iBottom > iResult + iPage)
    {
        iResult = iBottom - iPage;
    }
    if (iTop < iResult)
    {
        iResult = iTop;
    }
    return ClampScrollPosition(iResult, iContent, iPage);
}
