#include "app/CKinetarium.h"
#include "app/CWindowFrameSink.h"
#include "app/FactorMessages.h"
#include "classes/core/CFixedText.h"
#include "classes/core/CFlagScope.h"
#include "classes/core/CrashNote.h"
#include "classes/windows/crash/CCrashReport.h"
#include "classes/windows/window/CMessageBox.h"
#include "diagnostics/Guard.h"
#include "simulation/CRunClock.h"
#include "simulation/Population.h"
#include "simulation/RunLoop.h"

#include <algorithm>

// Starts, runs and stops the simulation.

namespace
{
constexpr const char* c_sNoSimulation = "no simulation";
constexpr DWORD c_dwStopPoll = 10; // ms between two looks at the message queue while the worker ends

// Shows a cursor for the life of this scope, in which no message is dispatched.
class CCursorScope
{
public:
    explicit CCursorScope(HCURSOR hCursor) : m_hBefore(SetCursor(hCursor)) {}
    ~CCursorScope() { SetCursor(m_hBefore); }
    CCursorScope(const CCursorScope&) = delete;
    CCursorScope& operator=(const CCursorScope&) = delete;

private:
    HCURSOR m_hBefore;
};
} // namespace

void CKinetarium::StartSimulation(const CPoint<int>* pStart)
{
    Traced({m_pDebugLog, __TIMESTAMP__}, [&] {
        // A start can arrive while a message box of another start is open. It can also arrive after a message that a
        // stop dispatched has closed the window. Both are ignored.
        if (m_pSimulationThread != nullptr || m_bStarting || !m_bInitialised)
        {
            return;
        }
        const CFlagScope starting(m_bStarting);

        std::optional<CSettings> settings = StartSimulation_ReadParameters();
        if (!settings)
        {
            return;
        }
        StartSimulation_SetWorldSize(*settings);
        StartSimulation_WriteBack(*settings);
        Settings_Save();
        StartSimulation_ReadColours(*settings);

        {
            const CCursorScope wait(m_hCursorWait); // a million atoms take a while
            Populate(m_Atoms, m_CollisionGrid, m_WorldSize, settings->atoms, m_MinRadius, m_MaxRadius, pStart,
                     m_Random);
        }
        StartSimulation_Begin(*settings);
    });
}

// Reads everything except the size of the world and the colours. Keeps the radii even if the factors are invalid.
std::optional<CSettings> CKinetarium::StartSimulation_ReadParameters()
{
    CSettings settings = Settings_GetKept();
    for (const CSettingRow& row : c_SettingRows)
    {
        if (row.eType != EnumSettingType::Length && row.eType != EnumSettingType::Colour)
        {
            Panel_Read(row, settings);
            Settings_Keep(settings);
        }
    }
    if (!StartSimulation_CheckFactors(settings))
    {
        return std::nullopt;
    }
    SortRadii(settings);
    Settings_Keep(settings);
    return settings;
}

bool CKinetarium::StartSimulation_CheckFactors(const CSettings& settings)
{
    const std::vector<CFactorError> errors = CheckFactors(settings.factors, settings.eMode);
    for (const CFactorError& error : errors)
    {
        const CFactorMessage message = GetFactorMessage(error);
        CWString sText = GetText(message.sTextKey);
        // Only the texts about one factor are format strings; the others contain single percent signs.
        if (message.factorNumber != 0)
        {
            sText.Format(GetText(message.sTextKey).c_str(), message.factorNumber);
        }
        CMessageBox messageBox(this);
        messageBox.ShowDialog(sText, GetText(message.sTitleKey), 1, GetText(L"Ok"));
    }
    return errors.empty();
}

void CKinetarium::StartSimulation_SetWorldSize(CSettings& settings)
{
    if (m_bFullscreen)
    {
        settings.world = GetFullScreenSize();
        Settings_Keep(settings);
        return;
    }
    for (const CSettingRow& row : c_SettingRows)
    {
        if (row.eType == EnumSettingType::Length)
        {
            Panel_Read(row, settings);
            Settings_Keep(settings);
        }
    }
}

// Shows the limited and sorted numbers, and the factors. In full screen the size of the world is not shown: it is that
// of the screen, not the user's.
void CKinetarium::StartSimulation_WriteBack(const CSettings& settings)
{
    for (const CSettingRow& row : c_SettingRows)
    {
        const bool bForeign = m_bFullscreen && row.eType == EnumSettingType::Length;
        if (!bForeign && row.eType != EnumSettingType::ColourMode && row.eType != EnumSettingType::Colour)
        {
            Panel_Show(row, settings);
        }
    }
}

void CKinetarium::StartSimulation_ReadColours(CSettings& settings)
{
    for (const CSettingRow& row : c_SettingRows)
    {
        if (row.eType == EnumSettingType::Colour)
        {
            Panel_Read(row, settings);
        }
    }
    m_pWorldView->SetWorldBackgroundColour(settings.background);
}

void CKinetarium::StartSimulation_Begin(const CSettings& settings)
{
    SetControlPositions(-1, -1);
    OnEraseBackground();
    SendMessageW(m_pWorldView->GetWindowHandle(), WM_ERASEBKGND, 0, 0);
    std::array<CWString, c_uColourClassCount> factors;
    std::transform(settings.factors.begin(), settings.factors.end(), factors.begin(),
                   [](const CFactor& factor) { return factor.GetText(); });
    m_pWorldView->InitializeSettings(m_WorldSize, m_bFullscreen, settings.eMode, settings.colours[0], factors[0],
                                     settings.colours[1], factors[1], settings.colours[2], factors[2]);
    m_StartButton.SetText(GetText(L"Stop"));
    // Once the worker sends frames, there is time for one repaint between two of them: where a frame takes long, the
    // button would read "Start" for seconds.
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    m_bWorkerFinished = false;
    m_bSimulationRunning = true;
    m_pSimulationThread = std::make_unique<std::thread>([this] { RunSimulation(); });
    StartSimulation_NoteForCrash(settings);
}

void CKinetarium::StartSimulation_NoteForCrash(const CSettings& settings) const
{
    constexpr std::size_t c_uNoteSize = 200;
    char storage[c_uNoteSize];
    CFixedText note(storage, sizeof storage);
    note.Add("simulation of ").AddNumber(static_cast<std::uint64_t>(m_Atoms.GetCount())).Add(" atoms of radius ");
    note.AddNumber(m_MinRadius).Add(" to ").AddNumber(m_MaxRadius).Add(" in a world of ");
    note.AddNumber(static_cast<std::uint64_t>(m_WorldSize.cx)).Add(" x ");
    note.AddNumber(static_cast<std::uint64_t>(m_WorldSize.cy));
    note.Add(settings.eMode == EnumAtomColourMode::Speed ? ", speed mode" : ", fixed mode");
    SetCrashNote(note.Add(m_bFullscreen ? ", full screen" : "").Get());
}

void CKinetarium::RunSimulation()
{
    CCrashReport::PrepareThread();
    CWorkerFinishedEvent finished(m_hSimulationDone.Get(), m_bWorkerFinished);
    Traced({m_pDebugLog, __TIMESTAMP__}, [&] {
        CWindowFrameSink sink(m_pWorldView->GetWindowHandle(), m_hStatusBar);
        CRunClock clock;
        RunLoop(m_Atoms, m_CollisionGrid, m_WorldSize, m_Random, m_bSimulationRunning, finished, sink, clock,
                m_pDebugLog);
    });
}

void CKinetarium::StopSimulation()
{
    Traced({m_pDebugLog, __TIMESTAMP__}, [&] {
        if (m_pSimulationThread == nullptr || m_StopGate.IsStopping())
        {
            return;
        }
        {
            const CStopGate::CStopping stopping(m_StopGate);
            // Keeps a second click from arriving meanwhile.
            EnableWindow(m_StartButton.GetWindowHandle(), FALSE);
            m_bSimulationRunning = false;
            StopSimulation_WaitForWorker();
            m_pSimulationThread->join();
            m_pSimulationThread.reset();
            SetCrashNote(c_sNoSimulation);
            m_StartButton.SetText(GetText(L"Start"));
            EnableWindow(m_StartButton.GetWindowHandle(), TRUE);
        }
        PostDeferredRequests();
    });
}

// The worker may be blocked in a message to this thread's windows: it can end only if these messages are dispatched.
void CKinetarium::StopSimulation_WaitForWorker()
{
    for (;;)
    {
        const DWORD dwResult = WaitForSingleObject(m_hSimulationDone.Get(), c_dwStopPoll);
        if (dwResult == WAIT_OBJECT_0)
        {
            return;
        }
        if (dwResult == WAIT_FAILED)
        {
            // There is no event to wait for: the worker's own flag tells the same.
            if (m_bWorkerFinished)
            {
                return;
            }
            Sleep(1);
        }
        OperateMessagePump(nullptr);
    }
}
