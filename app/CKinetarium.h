#pragma once

#include "app/CStopGate.h"
#include "app/LayoutRules.h"
#include "classes/core/CKernelHandle.h"
#include "classes/core/CPoint.h"
#include "classes/core/CRandom.h"
#include "classes/core/CRect.h"
#include "classes/core/CSize.h"
#include "classes/core/CWString.h"
#include "classes/windows/button/CWndButton.h"
#include "classes/windows/panel/CDataCtrlGroup.h"
#include "classes/windows/panel/CTextCtrl.h"
#include "classes/windows/system/MessageTable.h"
#include "classes/windows/window/CWndCommon.h"
#include "settings/SettingRows.h"
#include "simulation/CAtoms.h"
#include "simulation/CCollisionGrid.h"
#include "view/CWndWorldView.h"

#include <array>
#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <thread>

// The application: its main window, its settings and the simulation it runs.
//
// The constructor runs the whole program and returns when the window is gone. All methods run on the thread that
// constructs the object, except RunSimulation, which is the body of the worker.
//
// The methods are in several source files, one concern each: CKinetarium.cpp has the lifetime, and CKinetarium_X.cpp
// for X = Window (building the window), Messages (the table of messages, and the handlers without a file of their own),
// Closing, Timers, FullScreen, Layout, Background, StatusBar, Colours, Simulation (start, run, stop) and Settings
// (settings in panel and file).
class CKinetarium : public CWndCommon
{
public:
    // Runs the program. Without a debug log (null) nothing is logged; all else is the same.
    CKinetarium(std::wstring* pDebugLog, HINSTANCE hInstance);
    ~CKinetarium() override;

    CKinetarium(const CKinetarium&) = delete;
    CKinetarium& operator=(const CKinetarium&) = delete;

    // Lays out a client area of cx x cy pixels; if either is -1, the present client area.
    void SetControlPositions(int cx, int cy) override;

    // Shows the description of the control under the pointer, in the status bar and as a tooltip.
    void UpdateStatusBar(HWND hControl, const POINT& point) override;

    static LRESULT CALLBACK WndProcWrapper(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam);

private:
    // nullopt: the system's default handles the message.
    using CMessageResult = std::optional<LRESULT>;

    friend class CKinetariumProbe; // the tests' view of a running application

    // Marks the change from one world to the next for the life of this scope. Its end posts the requests that had to
    // wait.
    class CChangeOfWorld
    {
    public:
        explicit CChangeOfWorld(CKinetarium& application) : m_Application(application)
        {
            m_Changing.emplace(application.m_StopGate);
        }
        ~CChangeOfWorld()
        {
            m_Changing.reset();
            m_Application.PostDeferredRequests();
        }
        CChangeOfWorld(const CChangeOfWorld&) = delete;
        CChangeOfWorld& operator=(const CChangeOfWorld&) = delete;

    private:
        CKinetarium& m_Application;
        std::optional<CStopGate::CChanging> m_Changing;
    };

    // Lifetime and window
    void Run(HINSTANCE hInstance);
    bool InitializeWindow();
    bool InitializeWindow_Create();
    bool InitializeWindow_StatusBar();
    void InitializeWindow_Panel();
    void InitializeWindow_VersionText();
    bool InitializeWindow_StartButton();
    void InitializeWindow_TabOrder();
    static CWString MakeIniPath();

    // Messages
    LRESULT WndProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam);
    CMessageResult On_Size(WPARAM, LPARAM);
    CMessageResult On_EraseBackground(WPARAM, LPARAM);
    CMessageResult On_SetCursor(WPARAM, LPARAM);
    CMessageResult On_GetMinMaxInfo(WPARAM, LPARAM);
    CMessageResult On_Notify(WPARAM, LPARAM);
    CMessageResult On_Command(WPARAM, LPARAM);
    CMessageResult On_LeftButtonUp(WPARAM, LPARAM);
    CMessageResult On_Activate(WPARAM, LPARAM);
    CMessageResult On_SetFocus(WPARAM, LPARAM);
    bool On_ButtonClick(HWND hButton);
    void On_ColourModeChosen();
    void On_ColourModeCancelled();
    void PostDeferredRequests();

    // Closing
    CMessageResult On_Close(WPARAM, LPARAM);
    CMessageResult On_EndSession(WPARAM, LPARAM);
    CMessageResult On_Destroy(WPARAM, LPARAM);
    void SaveWindowRectangle();
    CRect SaveWindowRectangle_Measure();

    // Timers
    void InitializeWindow_Timers();
    CMessageResult On_Timer(WPARAM, LPARAM);
    bool IsDebugLogFull() const;
    void PruneDebugLog(unsigned uKeep);

    // Simulation
    void StartSimulation(const CPoint<int>* pStart);
    std::optional<CSettings> StartSimulation_ReadParameters();
    bool StartSimulation_CheckFactors(const CSettings& settings);
    void StartSimulation_SetWorldSize(CSettings& settings);
    void StartSimulation_WriteBack(const CSettings& settings);
    void StartSimulation_ReadColours(CSettings& settings);
    void StartSimulation_Begin(const CSettings& settings);
    void StartSimulation_NoteForCrash(const CSettings& settings) const;
    void RunSimulation();
    void StopSimulation();
    void StopSimulation_WaitForWorker();

    // Settings: the file, and each row in the panel
    void Settings_Load();
    void Settings_Save();
    CSettings Settings_GetKept() const;
    void Settings_Keep(const CSettings& settings);
    int Settings_ReadInteger(const wchar_t* sKey, int iDefault) const;
    void Settings_Write(const wchar_t* sKey, const CWString& sValue) const;
    short Panel_GetIndex(const CSettingRow& row) const;
    LRESULT Panel_GetSelection(const CSettingRow& row);
    void Panel_Show(const CSettingRow& row, const CSettings& settings);
    void Panel_Read(const CSettingRow& row, CSettings& settings);
    CWString Panel_GetText(const CSettingRow& row);

    // Full screen
    CMessageResult On_KeyUp(WPARAM, LPARAM);
    CMessageResult On_SysCommand(WPARAM, LPARAM);
    CMessageResult On_RightButtonUp(WPARAM, LPARAM);
    CMessageResult On_DeferredFullScreen(WPARAM, LPARAM);
    void ToggleFullscreen();
    void LeaveFullscreen();
    void ToggleFullscreen_Leave();
    bool ToggleFullscreen_Enter();
    CSize<int> GetFullScreenSize() const;

    // Layout and background
    void LayOut_Windowed(HDWP& hPositions, const CSize<int>& client);
    bool FitWindowOnMonitor(RECT* pRect);
    void OnEraseBackground();
    void PaintBackground(const RECT& rcClient);

    // Colours and panel access
    bool SetColour(short iControl);
    COLORREF GetButtonColour(const wchar_t* sKey);
    void SetButtonColour(const wchar_t* sKey, COLORREF crColour);
    CWString GetText(const wchar_t* sKey) const { return m_StringResource.Get(sKey, true); }

    bool m_bFullscreen = false;
    std::atomic<bool> m_bSimulationRunning = false;
    CAtoms m_Atoms;
    std::unique_ptr<CDataCtrlGroup> m_pDataCtrlGroup;
    CRandom m_Random;
    CCollisionGrid m_CollisionGrid;
    CSize<int> m_WorldSize;
    CTextCtrl m_VersionText;
    CWndButton m_StartButton;
    std::unique_ptr<CWndWorldView> m_pWorldView;
    CWString m_sIniPath;
    CKernelHandle m_hSimulationDone; // manual-reset event, signalled while no worker runs
    std::atomic<bool> m_bWorkerFinished = true;
    std::unique_ptr<std::thread> m_pSimulationThread;
    unsigned char m_MinRadius = 3;
    unsigned char m_MaxRadius = 5;

    std::optional<LRESULT> m_OpenedMode; // what stood in the list of colour modes when it was opened
    HWND m_hKeptFocus = nullptr;         // the child with the focus when the window stopped being the active one
    bool m_bStarting = false;
    CStopGate m_StopGate;
    WINDOWPLACEMENT m_WindowPlacement{}; // of the framed window, while in full screen
    RECT m_rcLastClient{};
};

static_assert(sizeof(std::atomic<bool>) == 1 && std::atomic<bool>::is_always_lock_free,
              "the worker polls the run flag in every pass: it must be a plain byte to read");
