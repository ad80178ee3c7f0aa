#include "app/CKinetarium.h"
#include "app/CWindowFrameSink.h"
#include "classes/core/CFixedText.h"
#include "classes/core/CFlagScope.h"
#include "classes/core/CrashNote.h"
#include "classes/windows/crash/CCrashReport.h"
#include "classes/windows/window/CMessageBox.h"
#include "diagnostics/Guard.h"
#include "simulation/Parameters.h"
#include "simulation/Population.h"
#include "simulation/RunLoop.h"

// From the panel to a running world, and back to rest.

namespace
{
constexpr const char* c_sNoSimulation = "no simulation";
constexpr DWORD c_dwStopPoll = 10; // ms between two looks at the message queue while the worker ends

constexpr std::array<const wchar_t*, 3> c_sFactorKeys{L"Colour_1_factor", L"Colour_2_factor", L"Colour_3_factor"};
constexpr std::array<const wchar_t*, 3> c_sColourKeys{L"Colour_1", L"Colour_2", L"Colour_3"};
} // namespace

void CKinetarium::StartSimulation(const CPoint<int>* pStart)
{
    Traced({m_pDebugLog, __TIMESTAMP__}, [&] {
        // A start that arrives while a message box of another start is open, or after the window was closed by a
        // message that a stop has dispatched, has nothing to start.
        if (m_pSimulationThread != nullptr || m_bStarting || !m_bInitialised)
        {
            return;
        }
        const CFlagScope starting(m_bStarting);

        std::optional<CStartParameters> parameters = StartSimulation_ReadParameters();
        if (!parameters)
        {
            return;
        }
        StartSimulation_SetWorldSize();
        StartSimulation_WriteBack(*parameters);
        Settings_Save();

        m_pWorldView->SetWorldBackgroundColour(GetButtonColour(L"Background_colour"));
        for (std::size_t i = 0; i < c_sColourKeys.size(); ++i)
        {
            parameters->colours[i] = GetButtonColour(c_sColourKeys[i]);
        }

        Populate(m_Atoms, m_CollisionGrid, m_WorldSize, parameters->totalAtoms, m_MinRadius, m_MaxRadius, pStart,
                 m_Random);
        StartSimulation_Begin(*parameters);
    });
}

std::optional<CKinetarium::CStartParameters> CKinetarium::StartSimulation_ReadParameters()
{
    CStartParameters parameters;
    parameters.totalAtoms = ClampTotalAtoms(m_pDataCtrlGroup->GetValue_Int32(GetText(L"Tot_atoms").c_str()));
    m_MinRadius = ClampRadius(m_pDataCtrlGroup->GetValue_Uint8(GetText(L"Min_radius").c_str()));
    m_MaxRadius = ClampRadius(m_pDataCtrlGroup->GetValue_Uint8(GetText(L"Max_radius").c_str()));
    parameters.colourMode = StartSimulation_ReadColourMode();
    for (std::size_t i = 0; i < c_sFactorKeys.size(); ++i)
    {
        parameters.factors[i] = m_pDataCtrlGroup->GetValue_String(GetText(c_sFactorKeys[i]).c_str());
    }

    if (!StartSimulation_CheckFactors(parameters))
    {
        return std::nullopt;
    }
    SortRadii(m_MinRadius, m_MaxRadius);
    return parameters;
}

EnumAtomColourMode CKinetarium::StartSimulation_ReadColourMode()
{
    const short iList = m_pDataCtrlGroup->GetCtrlIndex(GetText(L"Colour_mode"));
    const LRESULT iSelection = SendMessage_Show(m_pDataCtrlGroup->GetCtrlTabHandle(iList), CB_GETCURSEL, 0, 0);
    return iSelection == static_cast<LRESULT>(EnumAtomColourMode::Speed) ? EnumAtomColourMode::Speed
                                                                         : EnumAtomColourMode::Fixed;
}

bool CKinetarium::StartSimulation_CheckFactors(const CStartParameters& parameters)
{
    const std::vector<CFactorMessage> messages = CheckFactors(parameters.factors, parameters.colourMode);
    for (const CFactorMessage& message : messages)
    {
        CWString sText = GetText(message.key);
        // Only the texts about one factor are formats; the others hold single percent signs.
        if (message.factorNumber != 0)
        {
            sText.Format(GetText(message.key).c_str(), message.factorNumber);
        }
        CMessageBox messageBox(this);
        messageBox.ShowDialog(sText, GetText(message.titleKey), 1, GetText(L"Ok"));
    }
    return messages.empty();
}

void CKinetarium::StartSimulation_SetWorldSize()
{
    if (m_bFullscreen)
    {
        RECT rcClient{};
        GetClientRect(m_hWnd, &rcClient);
        m_WorldSize = {rcClient.right, rcClient.bottom};
        return;
    }
    const CWString sWidth = GetText(L"Width");
    const CWString sHeight = GetText(L"Height");
    m_WorldSize.cx = ClampWorldLength(m_pDataCtrlGroup->GetValue_Int32(sWidth));
    m_WorldSize.cy = ClampWorldLength(m_pDataCtrlGroup->GetValue_Int32(sHeight));
    m_pDataCtrlGroup->SetValue(sWidth, m_WorldSize.cx, 0);
    m_pDataCtrlGroup->SetValue(sHeight, m_WorldSize.cy, 0);
}

void CKinetarium::StartSimulation_WriteBack(const CStartParameters& parameters)
{
    m_pDataCtrlGroup->SetValue(GetText(L"Tot_atoms"), parameters.totalAtoms, 0);
    m_pDataCtrlGroup->SetValue(GetText(L"Min_radius"), m_MinRadius, 0);
    m_pDataCtrlGroup->SetValue(GetText(L"Max_radius"), m_MaxRadius, 0);
    for (std::size_t i = 0; i < c_sFactorKeys.size(); ++i)
    {
        m_pDataCtrlGroup->SetValue(m_pDataCtrlGroup->GetCtrlIndex(GetText(c_sFactorKeys[i])),
                                   parameters.factors[i].c_str(), 0);
    }
}

void CKinetarium::StartSimulation_Begin(CStartParameters& parameters)
{
    SetControlPositions(-1, -1);
    OnEraseBackground();
    SendMessageW(m_pWorldView->GetWindowHandle(), WM_ERASEBKGND, 0, 0);
    m_pWorldView->InitializeSettings(m_WorldSize, m_bFullscreen, parameters.colourMode, parameters.colours[0],
                                     parameters.factors[0], parameters.colours[1], parameters.factors[1],
                                     parameters.colours[2], parameters.factors[2]);
    m_StartButton.SetText(GetText(L"Stop"));
    m_bWorkerFinished = false;
    m_bSimulationRunning = true;
    m_pSimulationThread = std::make_unique<std::thread>([this] { RunSimulation(); });
    StartSimulation_NoteForCrash(parameters);
}

void CKinetarium::StartSimulation_NoteForCrash(const CStartParameters& parameters) const
{
    constexpr std::size_t c_uNoteSize = 200;
    char storage[c_uNoteSize];
    CFixedText note(storage, sizeof storage);
    note.Add("simulation of ").AddNumber(static_cast<std::uint64_t>(m_Atoms.GetCount())).Add(" atoms of radius ");
    note.AddNumber(m_MinRadius).Add(" to ").AddNumber(m_MaxRadius).Add(" in a world of ");
    note.AddNumber(static_cast<std::uint64_t>(m_WorldSize.cx)).Add(" x ");
    note.AddNumber(static_cast<std::uint64_t>(m_WorldSize.cy));
    note.Add(parameters.colourMode == EnumAtomColourMode::Speed ? ", speed mode" : ", fixed mode");
    SetCrashNote(note.Add(m_bFullscreen ? ", full screen" : "").Get());
}

void CKinetarium::RunSimulation()
{
    CCrashReport::PrepareThread();
    CWorkerFinishedEvent finished(m_hSimulationDone.Get(), m_bWorkerFinished);
    Traced({m_pDebugLog, __TIMESTAMP__}, [&] {
        CWindowFrameSink sink(m_pWorldView->GetWindowHandle(), m_hStatusBar);
        RunLoop(m_Atoms, m_CollisionGrid, m_WorldSize, m_Random, m_bSimulationRunning, finished, sink, m_pDebugLog);
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
            // A second click must not arrive meanwhile.
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

// The worker may be blocked in a message to this thread's windows: it can only reach its end if they are dispatched.
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
            // There is no event to wait for; the worker's own flag tells as well.
            if (m_bWorkerFinished)
            {
                return;
            }
            Sleep(1);
        }
        OperateMessagePump(nullptr);
    }
}
