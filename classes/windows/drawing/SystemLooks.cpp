#include "classes/windows/drawing/SystemLooks.h"

#include <algorithm>
#include <vector>

namespace
{
// 9 points on a screen of 96 dots per inch, and the largest height that fits into a row.
constexpr LONG c_iUsualHeight = 12;
constexpr LONG c_iLargestHeight = 15;

struct CSharedIcon
{
    HINSTANCE hInstance;
    unsigned short uIconId;
    bool bLarge;
    HICON hIcon;
};
} // namespace

CFontHandle MakeGuiFont()
{
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof(metrics);
    LOGFONTW font{};
    if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0))
    {
        font = metrics.lfMessageFont;
        const LONG iHeight = std::abs(font.lfHeight);
        font.lfHeight = -std::clamp(iHeight, c_iUsualHeight, c_iLargestHeight);
    }
    else
    {
        font.lfHeight = -c_iUsualHeight;
        font.lfWeight = FW_NORMAL;
        font.lfCharSet = DEFAULT_CHARSET;
        lstrcpynW(font.lfFaceName, L"Segoe UI", LF_FACESIZE);
    }
    return CFontHandle(CreateFontIndirectW(&font));
}

CFontHandle MakeBoldFont(HFONT hFont)
{
    LOGFONTW font{};
    if (hFont == nullptr || GetObjectW(hFont, sizeof(font), &font) == 0)
    {
        return {};
    }
    font.lfWeight = FW_BOLD;
    return CFontHandle(CreateFontIndirectW(&font));
}

HICON LoadSharedIcon(HINSTANCE hInstance, unsigned short uIconId, bool bLarge)
{
    static std::vector<CSharedIcon> s_icons;
    const auto found = std::find_if(s_icons.begin(), s_icons.end(), [&](const CSharedIcon& icon) {
        return icon.hInstance == hInstance && icon.uIconId == uIconId && icon.bLarge == bLarge;
    });
    if (found != s_icons.end())
    {
        return found->hIcon;
    }
    const int iWidth = GetSystemMetrics(bLarge ? SM_CXICON : SM_CXSMICON);
    const int iHeight = GetSystemMetrics(bLarge ? SM_CYICON : SM_CYSMICON);
    const HICON hIcon = static_cast<HICON>(
        LoadImageW(hInstance, MAKEINTRESOURCEW(uIconId), IMAGE_ICON, iWidth, iHeight, LR_DEFAULTCOLOR));
    if (hIcon != nullptr)
    {
        s_icons.push_back({hInstance, uIconId, bLarge, hIcon});
    }
    return hIcon;
}

HCURSOR LoadCursorOrSystem(HINSTANCE hInstance, int iCursor, const wchar_t* sSystemCursor)
{
    if (iCursor != 0)
    {
        if (const HCURSOR hCursor = LoadCursorW(hInstance, MAKEINTRESOURCEW(iCursor)); hCursor != nullptr)
        {
            return hCursor;
        }
    }
    return LoadCursorW(nullptr, sSystemCursor);
}

int GetFontHeight(HFONT hFont)
{
    const CMemoryDc dc(nullptr);
    const CSelectObject font(dc.Get(), hFont);
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc.Get(), &metrics);
    return metrics.tmHeight;
}
