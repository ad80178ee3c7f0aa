#include "app/CKinetarium.h"
#include "app/ControlTable.h"
#include "classes/windows/system/ModuleFolder.h"
#include "classes/windows/system/RegisterOwnClass.h"
#include "classes/windows/window/CWndToolTip.h"
#include "diagnostics/Guard.h"
#include "settings/SettingsFile.h"
#include "strings/TranslateStrings_Kinetarium.h"

#include <commctrl.h>
#include <string_view>

namespace
{
constexpr const wchar_t* c_sWindowClass = L"CKinetarium";
constexpr const wchar_t* c_sCaption = L"Kinetarium";
constexpr const wchar_t* c_sVersion = L"v" KINETARIUM_VERSION L"     Watch matter move";

constexpr unsigned char c_byLanguageEnglish = 7;
constexpr unsigned short c_uIconResource = 104;
constexpr int c_iBackdropResource = 101;

constexpr COLORREF c_crBackground = 0xD0D8C8; // red 0xC8, green 0xD8, blue 0xD0
constexpr COLORREF c_crControlText = 0xFFFFFF;
constexpr COLORREF c_crControlShadow = 0;

constexpr short c_iFirstControlId = 200;
constexpr double c_dLabelShare = 0.6; // of the panel's width
} // namespace

bool CKinetarium::InitializeWindow()
{
    return Traced({m_pDebugLog, __TIMESTAMP__}, false, [&] {
        if (!CWndCommon::Initialize(c_sWindowClass, m_pDebugLog, HKEY_LOCAL_MACHINE, nullptr, m_hInstance,
                                    TranslateStrings_Kinetarium, c_byLanguageEnglish, c_uIconResource, 0, 0,
                                    c_iBackdropResource, c_iBackdropResource, EnumPicDrawMode::Tiled))
        {
            return false;
        }
        m_bInitialised = false;
        m_bBusy = true;
        SetCursor(m_hCursorWait);

        if (!InitializeWindow_Create() || !InitializeWindow_StatusBar())
        {
            return false;
        }
        m_pToolTip = std::make_unique<CWndToolTip>(0u, nullptr, HKEY_LOCAL_MACHINE);
        InitializeWindow_Panel();
        Settings_Load();
        InitializeWindow_VersionText();
        if (!InitializeWindow_StartButton())
        {
            return false;
        }

        m_pWorldView = std::make_unique<CWndWorldView>(this, m_WorldSize, m_Atoms);
        const CSettingRow& background = GetSettingRow(EnumSetting::BackgroundColour);
        m_pWorldView->SetWorldBackgroundColour(m_pDataCtrlGroup->GetValue_Uint32(GetText(background.sPanelKey)));
        m_hSimulationDone = CKernelHandle(CreateEventW(nullptr, TRUE, TRUE, nullptr));
        InitializeWindow_TabOrder();

        m_bInitialised = true;
        SetControlPositions(-1, -1); // the status bar takes a text only for a part that it has
        UpdateStatusBarClock(false, false);
        ShowWindow(m_hWnd, SW_SHOWNORMAL);
        SetForegroundWindow(m_hWnd);
        InitializeWindow_Timers();

        m_bBusy = false;
        SetCursor(m_hCursorNormal);
        EnableWindow(m_hWnd, TRUE);
        return true;
    });
}

CWString CKinetarium::MakeIniPath()
{
    CWString sIniPath = GetModuleFolder();
    if (!sIniPath.IsEmpty())
    {
        sIniPath += SettingsFile::c_sFileName;
    }
    return sIniPath;
}

bool CKinetarium::InitializeWindow_Create()
{
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = WndProcWrapper;
    windowClass.cbWndExtra = sizeof(LONG_PTR);
    windowClass.hInstance = m_hInstance;
    windowClass.hIcon = m_hIconLarge;
    windowClass.hCursor = m_hCursorNormal;
    windowClass.lpszClassName = c_sWindowClass;
    windowClass.hIconSm = m_hIconSmall;
    if (!RegisterOwnClass(windowClass))
    {
        return false;
    }

    m_sIniPath = MakeIniPath();
    RECT rcWindow{};
    FitWindowOnMonitor(&rcWindow);

    m_hWnd = CreateWindowExW(0, c_sWindowClass, c_sCaption, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, rcWindow.left,
                             rcWindow.top, rcWindow.right - rcWindow.left, rcWindow.bottom - rcWindow.top, nullptr,
                             nullptr, m_hInstance, nullptr);
    if (m_hWnd == nullptr)
    {
        return false;
    }
    SetWindowLongPtrW(m_hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));

    m_crBackground = c_crBackground;
    m_crSecond = c_crControlShadow;
    m_crForeground = c_crControlText;
    m_bControlFlag = true;
    return true;
}

void CKinetarium::InitializeWindow_Panel()
{
    m_pDataCtrlGroup = std::make_unique<CDataCtrlGroup>(this, c_iFirstControlId, c_dLabelShare, false, nullptr);
    for (const CControlRow& row : GetControlTable())
    {
        const short iControl =
            m_pDataCtrlGroup->AddControl(row.type, row.showState, GetText(row.key), GetText(row.description), row.size,
                                         row.flag, m_crForeground, m_crSecond, m_bControlFlag);
        if (std::wstring_view(row.key) == GetSettingRow(EnumSetting::ColourMode).sPanelKey)
        {
            const HWND hList = m_pDataCtrlGroup->GetCtrlTabHandle(iControl);
            // The index of an item is the number of its mode.
            for (const wchar_t* sMode : {L"Fixed", L"Speed"})
            {
                SendMessage_Show(hList, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(GetText(sMode).c_str()));
            }
        }
        else if (row.type == EnumDataCtrlType::ColourButton)
        {
            m_pDataCtrlGroup->SetValue(iControl, L"", 0); // a colour button shows only its colour
        }
    }
}

void CKinetarium::InitializeWindow_VersionText()
{
    m_VersionText.SetText(c_sVersion);
    m_VersionText.SetFont(GetFont(), false);
    m_VersionText.SetTextColour(m_crForeground);
    m_VersionText.SetShadow(m_bControlFlag, m_crSecond);
    m_VersionText.SetTextFormat(3, 5, 1, true);
}

bool CKinetarium::InitializeWindow_StartButton()
{
    if (!m_StartButton.Initialize(m_hInstance, this, m_StringResource.IsRightToLeft(), GetBackdrop(), GetText(L"Start"),
                                  nullptr, true, nullptr))
    {
        return false;
    }
    SendMessageW(m_StartButton.GetWindowHandle(), WM_SETFONT, reinterpret_cast<WPARAM>(GetFont()), TRUE);
    m_StartButton.SetBackground(m_crBackground, m_crBackground, true, true, true);
    return true;
}

void CKinetarium::InitializeWindow_TabOrder()
{
    m_TabOrder.AddWindow(m_StartButton.GetWindowHandle(), L"m_StartButton");
    short iControl = 0;
    for (const CControlRow& row : GetControlTable())
    {
        const bool bTakesFocus = row.showState < EnumShowState::Greyed && row.type != EnumDataCtrlType::Heading &&
                                 row.type != EnumDataCtrlType::Divider;
        if (bTakesFocus)
        {
            m_TabOrder.AddWindow(m_pDataCtrlGroup->GetCtrlTabHandle(iControl), row.key);
        }
        ++iControl;
    }
}
