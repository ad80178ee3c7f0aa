#include "tests/sequences/CWindowFacts.h"

#include <cstdlib>
#include <sstream>

namespace
{
void Print(std::ostream& out, bool bValue)
{
    out << (bValue ? "yes" : "no");
}

void Print(std::ostream& out, const CRect& rc)
{
    out << rc.left << ' ' << rc.top << ' ' << rc.right << ' ' << rc.bottom;
}

void Print(std::ostream& out, const CSize<int>& size)
{
    out << size.cx << " x " << size.cy;
}

void Print(std::ostream& out, const CPoint<int>& point)
{
    out << point.x << ", " << point.y;
}

void Print(std::ostream& out, const CBarFacts& bar)
{
    out << "length " << bar.iLength << " page " << bar.iPage << " position " << bar.iPosition;
}

template<class T>
void Print(std::ostream& out, const std::optional<T>& value)
{
    if (value)
    {
        Print(out, *value);
    }
    else
    {
        out << "none";
    }
}

// Collects a line for each pair of values that differ.
class CDifferences
{
public:
    template<class T>
    void Compare(const char* sName, const T& expected, const T& actual)
    {
        if (!(expected == actual))
        {
            Add(sName, expected, actual);
        }
    }

    template<class T>
    void Add(const char* sName, const T& expected, const T& actual)
    {
        m_Text << sName << ": expected ";
        Print(m_Text, expected);
        m_Text << ", is ";
        Print(m_Text, actual);
        m_Text << '\n';
    }

    std::string Get() const { return m_Text.str(); }

private:
    std::ostringstream m_Text;
};

void CompareViews(CDifferences& differences, const CWindowFacts& expected, const CWindowFacts& actual)
{
    if (!expected.view)
    {
        return;
    }
    const CViewFacts view = actual.view.value_or(CViewFacts{});
    differences.Compare("view", expected.view->view, view.view);
    differences.Compare("vertical bar", expected.view->vertical, view.vertical);
    differences.Compare("horizontal bar", expected.view->horizontal, view.horizontal);
    differences.Compare("place of the world", expected.view->world, view.world);
}

void CompareBursts(CDifferences& differences, const CWindowFacts& expected, const CWindowFacts& actual)
{
    if (!expected.burst)
    {
        return;
    }
    const bool bNear = actual.burst && std::abs(expected.burst->x - actual.burst->x) <= c_iBurstTolerance &&
                       std::abs(expected.burst->y - actual.burst->y) <= c_iBurstTolerance;
    if (!bNear)
    {
        differences.Add("burst", expected.burst, actual.burst);
    }
}

void CompareFiles(CDifferences& differences, const CWindowFacts& expected, const CWindowFacts& actual)
{
    differences.Compare("whole file", expected.file.bWhole, actual.file.bWhole);
    differences.Compare("window in the file", expected.file.window, actual.file.window);
    differences.Compare("world in the file", expected.file.world, actual.file.world);
    differences.Compare("another window", expected.other.has_value(), actual.other.has_value());
    if (expected.other && actual.other)
    {
        differences.Compare("the other window", expected.other->window, actual.other->window);
        differences.Compare("the other window's panel", expected.other->panelWorld, actual.other->panelWorld);
    }
}
} // namespace

std::string DescribeDifferences(const CWindowFacts& expected, const CWindowFacts& actual)
{
    CDifferences differences;
    differences.Compare("full screen", expected.bFullScreen, actual.bFullScreen);
    differences.Compare("minimised", expected.bMinimised, actual.bMinimised);
    differences.Compare("maximised", expected.bMaximised, actual.bMaximised);
    differences.Compare("window", expected.window, actual.window);
    differences.Compare("restored rectangle", expected.restored, actual.restored);
    differences.Compare("title bar", expected.bTitleBar, actual.bTitleBar);
    differences.Compare("panel", expected.bPanel, actual.bPanel);
    differences.Compare("status bar", expected.bStatusBar, actual.bStatusBar);
    differences.Compare("start button", expected.bStartButton, actual.bStartButton);
    differences.Compare("running", expected.bRunning, actual.bRunning);
    differences.Compare("world in the panel", expected.panelWorld, actual.panelWorld);
    differences.Compare("world", expected.world, actual.world);
    CompareViews(differences, expected, actual);
    CompareBursts(differences, expected, actual);
    CompareFiles(differences, expected, actual);
    return differences.Get();
}
