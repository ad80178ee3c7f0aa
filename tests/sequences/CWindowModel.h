#pragma once

#include "tests/sequences/CStep.h"
#include "tests/sequences/CWindowFacts.h"

#include <optional>

// What the model must know of the system, in pixels.
struct CScreenMeasures
{
    CRect monitor;
    CRect maximised;            // a maximised window on the screen
    CSize<int> maximisedClient; // its client area
    CSize<int> frame;           // what a framed window has more than its client area
    CSize<int> bars;            // width of a vertical scroll bar, height of a horizontal one
};

// The settings with which a sequence begins: they are in the file before the program starts.
constexpr CRect c_FirstWindow{100, 80, 900, 680};
constexpr CSize<int> c_FirstWorld{400, 300};
constexpr int c_iAtoms = 1; // alone it starts exactly where the click was
constexpr int c_iAtomRadius = 5;

// A step as the window is to get it.
struct CTakenStep
{
    CStep step;
    CPoint<int> point; // of a click, in client pixels of the main window
};

// Predicts what the program's window shows after each step. It states the rules a second time, as the user sees them,
// and calls nothing of the program: a fault of the program's own decisions must not reach the prediction.
class CWindowModel
{
public:
    explicit CWindowModel(const CScreenMeasures& screen);

    // Nothing, without an effect on the model, if nobody can do this to the window as it is now.
    std::optional<CTakenStep> Take(const CStep& step);

    bool CanTake(const CStep& step) const;

    CWindowFacts GetFacts() const;

private:
    bool HasView() const;
    bool IsNormal() const { return !m_bFullScreen && !m_bMinimised && !m_bMaximised; }
    bool CanTakeMeanwhile(const CStep& step) const;
    bool CanTakeNow(EnumAction eAction) const;
    void TakeWindowState(const CStep& step);
    void TakeFullScreen(EnumAction eAction);
    void TakeSimulation(const CTakenStep& taken);
    void TakeInput(const CStep& step);
    void TakeProcess(const CStep& step);

    void Restore();
    void SetFullScreen(bool bFullScreen);
    void BeginWorld();
    void StartAt(const CPoint<int>& point);
    void Scroll(int CPoint<int>::*pDirection, int iDelta);
    void ScrollByRequest(int CPoint<int>::*pDirection, int iRequest);
    void Save();

    CSize<int> GetClient() const;
    CViewFacts GetView() const;
    CPoint<int> GetPointInView(const CStep& step) const;

    CScreenMeasures m_Screen;
    bool m_bFullScreen = false;
    bool m_bMinimised = false;
    bool m_bMaximised = false; // also while it is hidden by full screen or by being minimised
    bool m_bRunning = false;
    CRect m_Normal = c_FirstWindow;
    CSize<int> m_PanelWorld = c_FirstWorld;
    CSize<int> m_World = c_FirstWorld;
    CPoint<int> m_Scrolled;
    std::optional<CPoint<int>> m_Burst;
    CFileFacts m_File{false, c_FirstWindow, c_FirstWorld};
    std::optional<COtherWindowFacts> m_Other;

    // The step that was not taken in the middle of another one, and those that were taken in the middle of it.
    std::optional<EnumAction> m_eFirst;
    bool m_bFirstFoundMinimised = false;
    bool m_bFirstFoundView = false;
    bool m_bGroupEnded = false;
    int m_iMeanwhile = 0;
    CViewFacts m_FirstView;
};
