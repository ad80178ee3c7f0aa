#include "tests/classes/windows/CTestMainWindow.h"

#include "classes/core/CLibrarySettings.h"
#include "classes/windows/drawing/OffScreenDrawing.h"
#include "classes/windows/system/Handles.h"
#include "classes/windows/system/RectHelpers.h"
#include "classes/windows/system/WndProcForward.h"

#include <commctrl.h>
#include <uxtheme.h>

#include <array>
#include <cstddef>
#include <numeric>
#include <stdexcept>

namespace
{
constexpr const wchar_t* c_sClass = L"CTestMainWindow";
constexpr COLORREF c_crSage = RGB(0xC8, 0xD8, 0xD0);

struct CRow
{
    EnumDataCtrlType eType;
    const wchar_t* sLabel;
    unsigned short uSize;
    unsigned char byFlag;
};

constexpr CRow c_rows[] = {
    {EnumDataCtrlType::Heading, L"World view", 0, 1},
    {EnumDataCtrlType::NumberEntry, L"Width", 4, 0},
    {EnumDataCtrlType::NumberEntry, L"Height", 4, 0},
    {EnumDataCtrlType::ColourButton, L"Background colour", 5, 1},
    {EnumDataCtrlType::Divider, L"<divider_1>", 0, 1},
    {EnumDataCtrlType::Heading, L"Atoms", 0, 1},
    {EnumDataCtrlType::NumberEntry, L"Tot atoms", 7, 0},
    {EnumDataCtrlType::NumberEntry, L"Min radius", 2, 0},
    {EnumDataCtrlType::NumberEntry, L"Max radius", 2, 0},
    {EnumDataCtrlType::Divider, L"<divider_2>", 0, 1},
    {EnumDataCtrlType::DropDownList, L"Colour mode", 10, 0},
    {EnumDataCtrlType::ColourButton, L"Colour 1", 5, 0},
    {EnumDataCtrlType::FactorEntry, L"Colour 1 factor", 10, 0},
    {EnumDataCtrlType::ColourButton, L"Colour 2", 5, 0},
    {EnumDataCtrlType::FactorEntry, L"Colour 2 factor", 10, 0},
    {EnumDataCtrlType::ColourButton, L"Colour 3", 5, 0},
    {EnumDataCtrlType::FactorEntry, L"Colour 3 factor", 10, 0},
};

constexpr std::array<unsigned, 2> c_keys{VK_F11, VK_ESCAPE};

CLibrarySettings GetTestSettings()
{
    CLibrarySettings settings;
    settings.sProgramName = "Test";
    settings.mainWindowKeys = c_keys;
    settings.crButtonFace = c_crSage;
    return settings;
}

void RegisterOnce(HINSTANCE hInstance)
{
    WNDCLASSEXW record{};
    record.cbSize = sizeof(record);
    record.style = CS_HREDRAW | CS_VREDRAW;
    record.lpfnWndProc = WndProcForward<CTestMainWindow>;
    record.hInstance = hInstance;
    record.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    record.lpszClassName = c_sClass;
    RegisterClassExW(&record);
}
} // namespace

CTestMainWindow::CTestMainWindow() = default;

CTestMainWindow::~CTestMainWindow()
{
    m_pPanel.reset();
    if (m_hWnd != nullptr && IsWindow(m_hWnd))
    {
        WndProc_SetObject(m_hWnd, nullptr);
        DestroyWindow(m_hWnd);
    }
    m_hWnd = nullptr;
}

bool CTestMainWindow::Create(int iWidth, int iHeight)
{
    SetLibrarySettings(GetTestSettings());
    const HINSTANCE hInstance = GetModuleHandleW(nullptr);
    if (!Initialize(c_sClass, nullptr, nullptr, nullptr, hInstance, nullptr, 7, 104, 0, 0, 101, 101,
                    EnumPicDrawMode::Tiled))
    {
        return false;
    }
    RegisterOnce(hInstance);
    const DWORD uStyle = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
    RECT rc{0, 0, iWidth, iHeight};
    AdjustWindowRectEx(&rc, uStyle, FALSE, 0);
    m_hWnd = CreateWindowExW(0, c_sClass, L"Test", uStyle, 0, 0, GetRectWidth(rc), GetRectHeight(rc), nullptr, nullptr,
                             hInstance, this);
    if (m_hWnd == nullptr)
    {
        return false;
    }
    m_pPanel = std::make_unique<CDataCtrlGroup>(this, static_cast<short>(200), 0.6, false, nullptr);
    if (m_pPanel->GetWindowHandle() == nullptr)
    {
        return false;
    }
    m_bInitialised = true;
    ShowWindow(m_hWnd, SW_SHOWNORMAL);
    SetForegroundWindow(m_hWnd);
    Pump();
    return true;
}

void CTestMainWindow::AddRows()
{
    for (const CRow& row : c_rows)
    {
        const CWString sDesc = row.uSize == 0 ? CWString() : CWString(row.sLabel) + L" description";
        m_pPanel->AddControl(row.eType, EnumShowState::InUse, row.sLabel, sDesc, row.uSize, row.byFlag, 0xFFFFFF, 0,
                             true);
    }
    const HWND hList = m_pPanel->GetCtrlHandle(L"Colour mode", 0);
    SendMessageW(hList, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"Fixed"));
    SendMessageW(hList, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"Speed"));
    for (const short i : GetRows())
    {
        m_TabOrder.AddWindow(m_pPanel->GetCtrlTabHandle(i), m_pPanel->GetLabel(i).c_str());
    }
    SetControlPositions(-1, -1);
    Pump();
}

void CTestMainWindow::AddStatusBar()
{
    m_hStatusBar = CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, m_hWnd, nullptr,
                                   m_hInstance, nullptr);
    SendMessageW(m_hStatusBar, WM_SETFONT, reinterpret_cast<WPARAM>(m_hFontGui), TRUE);
    SetWindowTheme(m_hStatusBar, L" ", L" ");
    SendMessageW(m_hStatusBar, SB_SETBKCOLOR, 0, c_crSage);
    SetControlPositions(-1, -1);
}

bool CTestMainWindow::AddButton()
{
    if (!m_Button.Initialize(m_hInstance, this, false, GetBackdrop(), L"Start", nullptr, true, nullptr))
    {
        return false;
    }
    m_Button.SetBackground(c_crSage, c_crSage, true, true, true);
    SetControlPositions(-1, -1);
    Pump();
    return true;
}

void CTestMainWindow::Pump()
{
    constexpr int c_iRounds = 4;
    for (int i = 0; i < c_iRounds; ++i)
    {
        OperateMessagePump(nullptr);
    }
}

std::vector<short> CTestMainWindow::GetRows() const
{
    std::vector<short> rows(static_cast<std::size_t>(m_pPanel->GetCount()));
    std::iota(rows.begin(), rows.end(), short{0});
    return rows;
}

void CTestMainWindow::SetControlPositions(int, int)
{
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    if (m_pPanel)
    {
        MoveWindow(m_pPanel->GetWindowHandle(), rc.right - 250, 60, 240, rc.bottom - 125, TRUE);
    }
    if (m_Button.GetWindowHandle() != nullptr)
    {
        MoveWindow(m_Button.GetWindowHandle(), rc.right - 140, 10, 130, 25, TRUE);
    }
    if (m_hStatusBar == nullptr)
    {
        return;
    }
    const int parts[] = {static_cast<int>(rc.right) - m_byMargin - 158, static_cast<int>(rc.right) - m_byMargin - 76,
                         -1};
    SendMessageW(m_hStatusBar, SB_SETPARTS, 3, reinterpret_cast<LPARAM>(parts));
    MoveWindow(m_hStatusBar, 0, rc.bottom, 0, 0, TRUE);
}

void CTestMainWindow::UpdateStatusBar(HWND hControl, const POINT&)
{
    m_hovered.push_back(hControl);
    if (m_hStatusBar != nullptr && m_pPanel)
    {
        SendMessageW(m_hStatusBar, SB_SETTEXTW, 0,
                     reinterpret_cast<LPARAM>(m_pPanel->GetDesc(m_pPanel->GetCtrlIndex(hControl)).c_str()));
    }
}

LRESULT CTestMainWindow::WndProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    switch (uMessage)
    {
    case WM_DESTROY:
        m_hWnd = nullptr;
        PostQuitMessage(0);
        return 0;
    case WM_SIZE:
        if (m_bInitialised)
        {
            SetControlPositions(-1, -1);
        }
        return 0;
    case WM_ERASEBKGND:
    {
        RECT rc{};
        GetClientRect(hWnd, &rc);
        m_picBackdrop.SetDrawingRect(&rc);
        DrawOffScreen(reinterpret_cast<HDC>(wParam), rc,
                      [this](HDC hDc) { m_picBackdrop.DrawByMode(hDc, m_eDrawMode); });
        return 1;
    }
    case WM_NOTIFY:
    {
        const NMHDR& header = *reinterpret_cast<const NMHDR*>(lParam);
        if (header.code != c_uButtonClicked)
        {
            break;
        }
        m_notices.push_back({header.code, header.hwndFrom});
        if (m_bThrowOnNotify)
        {
            throw std::runtime_error("thrown on purpose");
        }
        return 0;
    }
    case WM_COMMAND:
        m_commands.push_back({HIWORD(wParam), reinterpret_cast<HWND>(lParam)});
        return 0;
    case WM_KEYUP:
        m_keysUp.push_back(wParam);
        return 0;
    default:
        break;
    }
    return DefWindowProcW(hWnd, uMessage, wParam, lParam);
}
