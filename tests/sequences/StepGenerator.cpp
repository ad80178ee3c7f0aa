#include "tests/sequences/StepGenerator.h"

#include <random>

namespace
{
// How often an action is chosen, compared with the others.
struct CWeight
{
    EnumAction eAction;
    int iWeight;
};

constexpr CWeight c_Weights[] = {
    {EnumAction::Minimise, 7},
    {EnumAction::Restore, 10},
    {EnumAction::Maximise, 7},
    {EnumAction::ShowMaximised, 4},
    {EnumAction::ShowRestored, 3},
    {EnumAction::PlaceMaximised, 4},
    {EnumAction::FullScreenKey, 7},
    {EnumAction::Escape, 6},
    {EnumAction::RightClick, 3},
    {EnumAction::TitleDoubleClick, 3},
    {EnumAction::Resize, 8},
    {EnumAction::Wheel, 5},
    {EnumAction::ScrollVertically, 6},
    {EnumAction::ScrollHorizontally, 6},
    {EnumAction::Click, 8},
    {EnumAction::Start, 6},
    {EnumAction::Stop, 4},
    {EnumAction::SetWorldSize, 8},
    {EnumAction::Reopen, 1},
    {EnumAction::EndSession, 1},
    {EnumAction::SecondWindow, 1},
};

constexpr int c_iMeanwhilePercent = 25;
constexpr int c_iPercent = 100;

// The distributions of the standard library differ between its makers; the engine does not.
class CDice
{
public:
    explicit CDice(std::uint64_t uSeed) : m_Engine(uSeed) {}

    // Both ends are possible.
    int Throw(int iLow, int iHigh)
    {
        return iLow + static_cast<int>(m_Engine() % static_cast<std::uint64_t>(iHigh - iLow + 1));
    }

private:
    std::mt19937_64 m_Engine;
};

EnumAction ThrowAction(CDice& dice)
{
    int iSum = 0;
    for (const CWeight& row : c_Weights)
    {
        iSum += row.iWeight;
    }
    int iThrown = dice.Throw(1, iSum);
    for (const CWeight& row : c_Weights)
    {
        iThrown -= row.iWeight;
        if (iThrown <= 0)
        {
            return row.eAction;
        }
    }
    return EnumAction::Restore;
}

// Smaller than any view, about as large as a view, or larger than the screen.
int ThrowLength(CDice& dice, int iScreenLength)
{
    switch (dice.Throw(1, 3))
    {
    case 1:
        return dice.Throw(50, 250);
    case 2:
        return dice.Throw(250, iScreenLength);
    default:
        return dice.Throw(iScreenLength, 2 * iScreenLength);
    }
}

// Wholly on the screen, so that the next start takes it as it is.
std::array<int, 4> ThrowWindow(CDice& dice, const CRect& monitor)
{
    constexpr int c_iShortest = 160; // the program sets 150 as a limit
    const int iWidth = dice.Throw(c_iShortest, monitor.GetWidth());
    const int iHeight = dice.Throw(c_iShortest, monitor.GetHeight());
    const int iLeft = monitor.left + dice.Throw(0, monitor.GetWidth() - iWidth);
    const int iTop = monitor.top + dice.Throw(0, monitor.GetHeight() - iHeight);
    return {iLeft, iTop, iLeft + iWidth, iTop + iHeight};
}

std::array<int, 4> ThrowValues(CDice& dice, EnumAction eAction, const CRect& monitor)
{
    constexpr int c_iNotch = 120;
    constexpr int c_iMostNotches = 8;
    constexpr std::array<int, 6> c_Requests{0, 1, 2, 3, 6, 7}; // arrows, pages, ends
    switch (eAction)
    {
    case EnumAction::RightClick:
    case EnumAction::Click:
    {
        const int x = dice.Throw(30, 970);
        return {x, dice.Throw(30, 970)};
    }
    case EnumAction::Resize:
        return ThrowWindow(dice, monitor);
    case EnumAction::Wheel:
        return {c_iNotch * dice.Throw(-c_iMostNotches, c_iMostNotches)};
    case EnumAction::ScrollVertically:
    case EnumAction::ScrollHorizontally:
        return {c_Requests[static_cast<std::size_t>(dice.Throw(0, static_cast<int>(c_Requests.size()) - 1))]};
    case EnumAction::SetWorldSize:
    case EnumAction::SecondWindow:
    {
        const int cx = ThrowLength(dice, monitor.GetWidth());
        return {cx, ThrowLength(dice, monitor.GetHeight())};
    }
    default:
        return {};
    }
}
} // namespace

std::vector<CStep> GenerateSteps(std::uint64_t uSeed, const CScreenMeasures& screen)
{
    CDice dice(uSeed);
    CWindowModel model(screen);
    // Short ones are more usual: a fault shows after few steps, so many short sequences find more than few long ones.
    const auto uLength = static_cast<std::size_t>(dice.Throw(c_iFewestSteps, dice.Throw(c_iFewestSteps, c_iMostSteps)));
    std::vector<CStep> steps;
    while (steps.size() < uLength)
    {
        CStep step{ThrowAction(dice)};
        step.values = ThrowValues(dice, step.eAction, screen.monitor);
        step.bMeanwhile = dice.Throw(1, c_iPercent) <= c_iMeanwhilePercent;
        step.bMeanwhile = step.bMeanwhile && model.CanTake(step);
        if (model.Take(step))
        {
            steps.push_back(step);
        }
    }
    return steps;
}
