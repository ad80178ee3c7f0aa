#include "classes/sample/CSampleWindow.h"

#include "classes/sample/SampleTexts.h"
#include "classes/windows/system/MessageTable.h"
#include "classes/windows/system/RectHelpers.h"
#include "classes/windows/system/RegisterOwnClass.h"
#include "classes/windows/system/WndProcForward.h"
#include "classes/windows/window/CMessageBox.h"

#include <commctrl.h>

namespace
{
constexpr const wchar_t* c_sClass = L"CSampleWindow";
constexpr DWORD c_uStyle = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
constexpr unsigned char c_byEnglish = 7;
constexpr short c_iFirstRowId = 100;
constexpr double c_dLabelShare = 0.5;

// In pixels.
constexpr int c_iClientWidth = 360;
constexpr int c_iClientHeight = 250;
constexpr int c_iMargin = 10;
constexpr int c_iButtonWidth = 120;
constexpr int c_iButtonHeight = 28;
} // namespace

bool CSampleWindow::Create(HINSTANCE hInstance)
{
    // The sample has no pictures of its own: the library falls back on its default icons and backdrop.
    if (!Initialize(c_sClass, nullptr, nullptr, nullptr, hInstance, FillSampleTexts, c_byEnglish, 0, 0, 0, 0, 0,
                    EnumPicDrawMode::Tiled) ||
        !CreateMainWindow() || !CreateChildren())
    {
        return false;
    }
    m_bInitialised = true;
    SetControlPositions(-1, -1);
    ShowWindow(m_hWnd, SW_SHOWNORMAL);
    SetFocus(m_TabOrder.GetWindow(0));
    return true;
}

void CSampleWindow::Run()
{
    while (OperateMessagePump(nullptr))
    {
        WaitMessage();
    }
}

bool CSampleWindow::CreateMainWindow()
{
    WNDCLASSEXW record{};
    record.cbSize = sizeof(record);
    record.style = CS_HREDRAW | CS_VREDRAW;
    record.lpfnWndProc = WndProcForward<CSampleWindow>;
    record.hInstance = m_hInstance;
    record.hIcon = m_hIconLarge;
    record.hCursor = m_hCursorNormal;
    record.lpszClassName = c_sClass;
    RECT rc{0, 0, c_iClientWidth, c_iClientHeight};
    AdjustWindowRectEx(&rc, c_uStyle, FALSE, 0);
    if (RegisterOwnClass(record))
    {
        m_hWnd = CreateWindowExW(0, c_sClass, GetText(L"Title").c_str(), c_uStyle, CW_USEDEFAULT, CW_USEDEFAULT,
                                 GetRectWidth(rc), GetRectHeight(rc), nullptr, nullptr, m_hInstance, this);
    }
    return m_hWnd != nullptr;
}

bool CSampleWindow::CreateChildren()
{
    m_hStatusBar = CreateWindowExW(0, STATUSCLASSNAMEW, nullptr, WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0, 0, 0,
                                   m_hWnd, nullptr, m_hInstance, nullptr);
    m_pPanel = std::make_unique<CDataCtrlGroup>(this, c_iFirstRowId, c_dLabelShare, false, nullptr);
    if (m_hStatusBar == nullptr || m_pPanel->GetWindowHandle() == nullptr ||
        !m_Button.Initialize(m_hInstance, this, false, nullptr, GetText(L"Brew"), nullptr, true, nullptr))
    {
        return false;
    }
    SendMessageW(m_hStatusBar, WM_SETFONT, reinterpret_cast<WPARAM>(GetFont()), TRUE);
    AddRows();
    m_TabOrder.AddWindow(m_Button.GetWindowHandle(), L"m_Button");
    return true;
}

void CSampleWindow::AddRows()
{
    struct CRow
    {
        EnumDataCtrlType eType;
        const wchar_t* sKey;
        const wchar_t* sDescription;
        unsigned short uSize;
    };
    constexpr CRow c_rows[] = {
        {EnumDataCtrlType::Heading, L"Tea", L"", 0},
        {EnumDataCtrlType::DropDownList, L"Kind", L"Kind_desc", 0},
        {EnumDataCtrlType::NumberEntry, L"Minutes", L"Minutes_desc", 2},
        {EnumDataCtrlType::Divider, L"divider", L"", 0},
        {EnumDataCtrlType::NumberEntry, L"Cups", L"Cups_desc", 1},
    };
    constexpr COLORREF c_crText = RGB(0xFF, 0xFF, 0xFF);
    constexpr COLORREF c_crShadow = RGB(0, 0, 0);
    for (const CRow& row : c_rows)
    {
        const short iRow = m_pPanel->AddControl(row.eType, EnumShowState::InUse, GetText(row.sKey),
                                                GetText(row.sDescription), row.uSize, 0, c_crText, c_crShadow, true);
        m_TabOrder.AddWindow(m_pPanel->GetCtrlTabHandle(iRow), row.sKey);
    }
    const HWND hKinds = m_pPanel->GetCtrlHandle(GetText(L"Kind"), 0);
    for (const wchar_t* sKind : {L"Green", L"Black"})
    {
        SendMessageW(hKinds, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(GetText(sKind).c_str()));
    }
    SendMessageW(hKinds, CB_SETCURSEL, 0, 0);
    m_pPanel->SetValue(GetText(L"Minutes"), std::int32_t{3});
    m_pPanel->SetValue(GetText(L"Cups"), std::int32_t{4});
}

// The panel is on top, the button below it at the right, the status bar at the bottom.
void CSampleWindow::SetControlPositions(int, int)
{
    SendMessageW(m_hStatusBar, WM_SIZE, 0, 0); // places itself
    RECT rcBar{};
    GetWindowRect(m_hStatusBar, &rcBar);
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    const int iButtonTop = rc.bottom - GetRectHeight(rcBar) - c_iMargin - c_iButtonHeight;
    MoveWindow(m_Button.GetWindowHandle(), rc.right - c_iMargin - c_iButtonWidth, iButtonTop, c_iButtonWidth,
               c_iButtonHeight, TRUE);
    MoveWindow(m_pPanel->GetWindowHandle(), 0, c_iMargin, rc.right - c_iMargin, iButtonTop - 2 * c_iMargin, TRUE);
}

void CSampleWindow::UpdateStatusBar(HWND hControl, const POINT&)
{
    const CWString sText = hControl != nullptr && hControl == m_Button.GetWindowHandle()
                               ? GetText(L"Brew_desc")
                               : m_pPanel->GetDesc(m_pPanel->GetCtrlIndex(hControl));
    SendMessageW(m_hStatusBar, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(sText.c_str()));
}

LRESULT CSampleWindow::WndProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    static constexpr CMessageEntry<CSampleWindow> c_table[] = {
        {WM_SIZE, &CSampleWindow::On_Size},       {WM_ERASEBKGND, &CSampleWindow::On_EraseBackground},
        {WM_NOTIFY, &CSampleWindow::On_Notify},   {WM_KEYUP, &CSampleWindow::On_KeyUp},
        {WM_DESTROY, &CSampleWindow::On_Destroy},
    };
    return DispatchMessage_Table(*this, c_table, hWnd, uMessage, wParam, lParam);
}

std::optional<LRESULT> CSampleWindow::On_Size(WPARAM, LPARAM)
{
    if (m_bInitialised)
    {
        SetControlPositions(-1, -1);
    }
    return 0;
}

std::optional<LRESULT> CSampleWindow::On_EraseBackground(WPARAM wParam, LPARAM)
{
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    m_picBackdrop.SetDrawingRect(&rc);
    m_picBackdrop.DrawTiled(reinterpret_cast<HDC>(wParam), false);
    return 1;
}

std::optional<LRESULT> CSampleWindow::On_Notify(WPARAM, LPARAM lParam)
{
    const NMHDR& header = *reinterpret_cast<const NMHDR*>(lParam);
    if (header.code != c_uButtonClicked || header.hwndFrom != m_Button.GetWindowHandle())
    {
        return std::nullopt;
    }
    Brew();
    return 0;
}

std::optional<LRESULT> CSampleWindow::On_KeyUp(WPARAM wParam, LPARAM)
{
    if (wParam != VK_ESCAPE)
    {
        return std::nullopt;
    }
    PostMessageW(m_hWnd, WM_CLOSE, 0, 0);
    return 0;
}

std::optional<LRESULT> CSampleWindow::On_Destroy(WPARAM, LPARAM)
{
    m_bInitialised = false;
    PostQuitMessage(0);
    return 0;
}

void CSampleWindow::Brew()
{
    CWString sText;
    sText.Format(GetText(L"Result").c_str(), m_pPanel->GetValue_String(GetText(L"Kind")),
                 m_pPanel->GetValue_Int32(GetText(L"Minutes")), m_pPanel->GetValue_Int32(GetText(L"Cups")));
    CMessageBox(this).ShowDialog(sText, GetText(L"Title"), 1, GetText(L"Ok"));
}
