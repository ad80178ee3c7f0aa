#pragma once

#include "classes/core/CPoint.h"
#include "classes/core/CRect.h"
#include "classes/core/CSize.h"
#include "classes/core/CWString.h"

#include <windows.h>

class CAtoms;
class CKinetarium;

// Gives tests access to the private parts of a running application. Call it on the application's own thread
// (CRunningApplication::Do).
class CKinetariumProbe
{
public:
    static bool HasWorker(const CKinetarium& application);
    static bool IsStopping(const CKinetarium& application);
    static bool MustRequestsWait(const CKinetarium& application);
    static bool IsRunFlagSet(const CKinetarium& application);
    static bool IsWorkerFinished(const CKinetarium& application);
    static bool IsFullScreen(const CKinetarium& application);
    // The worker must be held, or not exist.
    static CPoint<float> GetFirstAtom(CKinetarium& application);
    // The worker must be held, or not exist.
    static const CAtoms& GetAtoms(const CKinetarium& application);
    static int GetAtomCount(const CKinetarium& application);
    static CSize<int> GetWorldSize(const CKinetarium& application);
    static int GetMinRadius(const CKinetarium& application);
    static int GetMaxRadius(const CKinetarium& application);
    // Rectangle of the world in client coordinates of the view.
    static CRect GetWorldRect(const CKinetarium& application);
    static CWString GetIniPath(const CKinetarium& application);
    static CWString GetText(const CKinetarium& application, const wchar_t* sKey);
    static HWND GetView(const CKinetarium& application);
    static HWND GetPanel(const CKinetarium& application);
    static HWND GetStartButton(const CKinetarium& application);
    static HWND GetStatusBar(const CKinetarium& application);
    static HWND GetControl(const CKinetarium& application, const wchar_t* sKey);
    static COLORREF GetColour(CKinetarium& application, const wchar_t* sKey);
    static void SetColour(CKinetarium& application, const wchar_t* sKey, COLORREF crColour);
    static void Start(CKinetarium& application);
    static void Stop(CKinetarium& application);
    static void SetBusy(CKinetarium& application, bool bBusy);
    static bool FitWindowOnMonitor(CKinetarium& application, RECT* pRect);
    // As if the system had refused to create the finished event.
    static void LoseFinishedEvent(CKinetarium& application);
    static void Describe(CKinetarium& application, HWND hControl, const POINT& point);
};
