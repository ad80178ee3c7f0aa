#include "tests/windows/CKinetariumProbe.h"

#include "app/CKinetarium.h"

bool CKinetariumProbe::HasWorker(const CKinetarium& application)
{
    return application.m_pSimulationThread != nullptr;
}
bool CKinetariumProbe::IsStopping(const CKinetarium& application)
{
    return application.m_StopGate.IsStopping();
}
bool CKinetariumProbe::MustRequestsWait(const CKinetarium& application)
{
    return application.m_StopGate.MustWait();
}
bool CKinetariumProbe::IsRunFlagSet(const CKinetarium& application)
{
    return application.m_bSimulationRunning;
}
bool CKinetariumProbe::IsWorkerFinished(const CKinetarium& application)
{
    return application.m_bWorkerFinished;
}
bool CKinetariumProbe::IsFullScreen(const CKinetarium& application)
{
    return application.m_bFullscreen;
}
CPoint<float> CKinetariumProbe::GetFirstAtom(CKinetarium& application)
{
    return {application.m_Atoms[0].x, application.m_Atoms[0].y};
}
const CAtoms& CKinetariumProbe::GetAtoms(const CKinetarium& application)
{
    return application.m_Atoms;
}
int CKinetariumProbe::GetAtomCount(const CKinetarium& application)
{
    return application.m_Atoms.GetCount();
}
CSize<int> CKinetariumProbe::GetWorldSize(const CKinetarium& application)
{
    return application.m_WorldSize;
}
int CKinetariumProbe::GetMinRadius(const CKinetarium& application)
{
    return application.m_MinRadius;
}
int CKinetariumProbe::GetMaxRadius(const CKinetarium& application)
{
    return application.m_MaxRadius;
}
CRect CKinetariumProbe::GetWorldRect(const CKinetarium& application)
{
    return application.m_pWorldView->GetWorldRect();
}
CWString CKinetariumProbe::GetIniPath(const CKinetarium& application)
{
    return application.m_sIniPath;
}
CWString CKinetariumProbe::GetText(const CKinetarium& application, const wchar_t* sKey)
{
    return application.GetText(sKey);
}
HWND CKinetariumProbe::GetView(const CKinetarium& application)
{
    return application.m_pWorldView->GetWindowHandle();
}
HWND CKinetariumProbe::GetPanel(const CKinetarium& application)
{
    return application.m_pDataCtrlGroup->GetWindowHandle();
}
HWND CKinetariumProbe::GetStartButton(const CKinetarium& application)
{
    return application.m_StartButton.GetWindowHandle();
}
HWND CKinetariumProbe::GetStatusBar(const CKinetarium& application)
{
    return application.m_hStatusBar;
}
HWND CKinetariumProbe::GetControl(const CKinetarium& application, const wchar_t* sKey)
{
    return application.m_pDataCtrlGroup->GetCtrlHandle(application.GetText(sKey), 0);
}
COLORREF CKinetariumProbe::GetColour(CKinetarium& application, const wchar_t* sKey)
{
    return application.GetButtonColour(sKey);
}
void CKinetariumProbe::SetColour(CKinetarium& application, const wchar_t* sKey, COLORREF crColour)
{
    application.SetButtonColour(sKey, crColour);
}
void CKinetariumProbe::SetBusy(CKinetarium& application, bool bBusy)
{
    application.m_bBusy = bBusy;
}
bool CKinetariumProbe::FitWindowOnMonitor(CKinetarium& application, RECT* pRect)
{
    return application.FitWindowOnMonitor(pRect);
}
void CKinetariumProbe::LoseFinishedEvent(CKinetarium& application)
{
    application.m_hSimulationDone.Reset();
}
void CKinetariumProbe::Start(CKinetarium& application)
{
    application.StartSimulation(nullptr);
}
void CKinetariumProbe::Stop(CKinetarium& application)
{
    application.StopSimulation();
}
void CKinetariumProbe::Describe(CKinetarium& application, HWND hControl, const POINT& point)
{
    application.UpdateStatusBar(hControl, point);
}
