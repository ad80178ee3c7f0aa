#include "tests/windows/sequences/WindowReading.h"

#include "classes/windows/system/RectHelpers.h"

#include <string>

namespace
{
bool HasStyle(HWND hWnd, LONG iStyle)
{
    return (GetWindowLongW(hWnd, GWL_STYLE) & iStyle) == iStyle;
}

int ReadNumber(HWND hControl)
{
    return std::stoi(L"0" + GetText(hControl));
}

std::optional<CBarFacts> ReadBar(HWND hView, int iBar, LONG iStyle)
{
    if (!HasStyle(hView, iStyle))
    {
        return std::nullopt;
    }
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(hView, iBar, &info);
    return CBarFacts{info.nMax - info.nMin + 1, static_cast<int>(info.nPage), info.nPos};
}

CViewFacts ReadView(HWND hMain, CKinetarium& application)
{
    const HWND hView = CKinetariumProbe::GetView(application);
    RECT rc{};
    GetWindowRect(hView, &rc);
    MapWindowPoints(nullptr, hMain, reinterpret_cast<POINT*>(&rc), 2);
    return {ToRect(rc), ReadBar(hView, SB_VERT, WS_VSCROLL), ReadBar(hView, SB_HORZ, WS_HSCROLL),
            CKinetariumProbe::GetWorldRect(application)};
}

CSize<int> ReadPanelWorld(CKinetarium& application)
{
    return {ReadNumber(CKinetariumProbe::GetControl(application, L"Width")),
            ReadNumber(CKinetariumProbe::GetControl(application, L"Height"))};
}
} // namespace

CRect GetWindowPlace(HWND hWnd)
{
    RECT rc{};
    GetWindowRect(hWnd, &rc);
    return ToRect(rc);
}

CSize<int> GetPanelWorld(const CRunningApplication& application)
{
    CSize<int> world;
    application.Do([&](CKinetarium& inside) { world = ReadPanelWorld(inside); });
    return world;
}

CWindowFacts ReadWindow(HWND hMain, CKinetarium& application)
{
    CWindowFacts facts;
    facts.bFullScreen = CKinetariumProbe::IsFullScreen(application);
    facts.bMinimised = IsIconic(hMain) != FALSE;
    facts.bMaximised = IsZoomed(hMain) != FALSE && !facts.bFullScreen;
    facts.bTitleBar = HasStyle(hMain, WS_CAPTION);
    facts.bPanel = HasStyle(CKinetariumProbe::GetPanel(application), WS_VISIBLE);
    facts.bStatusBar = HasStyle(CKinetariumProbe::GetStatusBar(application), WS_VISIBLE);
    facts.bStartButton = HasStyle(CKinetariumProbe::GetStartButton(application), WS_VISIBLE);
    facts.bRunning = CKinetariumProbe::HasWorker(application);
    facts.panelWorld = ReadPanelWorld(application);
    facts.world = CKinetariumProbe::GetWorldSize(application);
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    if (!facts.bFullScreen && GetWindowPlacement(hMain, &placement))
    {
        facts.restored = ToRect(placement.rcNormalPosition);
    }
    if (!facts.bMinimised)
    {
        facts.window = GetWindowPlace(hMain);
        facts.view = ReadView(hMain, application);
    }
    if (CKinetariumProbe::GetAtomCount(application) > 0)
    {
        const CPoint<float> atom = CKinetariumProbe::GetFirstAtom(application);
        facts.burst = {static_cast<int>(atom.x), static_cast<int>(atom.y)};
    }
    return facts;
}
