#include "tests/fuzz/CFuzzInput.h"
#include "tests/fuzz/FuzzTarget.h"
#include "view/WorldPlacement.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace
{

// World, view and bars as the program has them: a settings file may ask for any world before the first start.
struct CCase
{
    CSize<int> world;
    CSize<int> view;
    CSize<int> bars;
};

// The fewest scroll bars with which the user can reach the whole world.
bool IsEnough(const CScrollBarsShown& shown, const CCase& c)
{
    const std::int64_t width = std::int64_t{c.view.cx} - (shown.bVertical ? c.bars.cx : 0);
    const std::int64_t height = std::int64_t{c.view.cy} - (shown.bHorizontal ? c.bars.cy : 0);
    return (shown.bHorizontal || c.world.cx <= width) && (shown.bVertical || c.world.cy <= height);
}

CScrollBarsShown FindFewestBars(const CCase& c)
{
    for (const CScrollBarsShown shown :
         {CScrollBarsShown{false, false}, CScrollBarsShown{true, false}, CScrollBarsShown{false, true}})
    {
        if (IsEnough(shown, c))
        {
            return shown;
        }
    }
    return {true, true};
}

// The system keeps every position between the minimum and the last page.
int KeepAsTheSystemDoes(const CScrollBarState& bar, int iPosition)
{
    const std::int64_t last = std::max<std::int64_t>(std::int64_t{bar.iMax} - std::max(bar.iPage - 1, 0), bar.iMin);
    return static_cast<int>(std::clamp<std::int64_t>(iPosition, bar.iMin, last));
}

void CheckFittedBar(const CScrollBarState& bar, int iWorld, int iClient)
{
    Require(bar.iMin == 0 && bar.iMax == std::max(iWorld - 1, 0) && bar.iPage == iClient, "a bar has another range");
    Require(bar.iPosition >= 0 && bar.iPosition <= bar.iMax, "a position is out of its range");
    Require(KeepAsTheSystemDoes(bar, bar.iPosition) == bar.iPosition || iClient == 0,
            "a position lies behind the last page");
    Require(FitScrollBar(bar, iWorld, iClient) == bar, "a fitted bar is not fitting");
}

// One direction of a placed world: a scrolled world covers the client area, any other world is centred.
void CheckPlacedDirection(int iLow, int iHigh, int iWorld, int iClient, bool bScrolled)
{
    Require(std::int64_t{iHigh} - iLow == iWorld, "the world has another size");
    const std::int64_t before = iLow;
    const std::int64_t behind = std::int64_t{iClient} - iHigh;
    if (bScrolled && iWorld >= iClient)
    {
        Require(before <= 0 && behind <= 0, "a scrolled world leaves a gap");
    }
    else if (!bScrolled)
    {
        Require(before - behind >= -1 && before - behind <= 1, "the world is not in the middle");
    }
}

// A user at the scroll bars and the edges of the window, until the input ends.
class CScrollingUser
{
public:
    explicit CScrollingUser(const CCase& c) : m_Case(c) { Fit(); }

    void Act(int iRequest, int iAmount, bool bVertical)
    {
        CScrollBarState& bar = bVertical ? m_VerticalBar : m_HorizontalBar;
        constexpr int c_iWheel = 100;
        constexpr int c_iResize = 101;
        bar.iTrackPosition = iAmount;
        if (iRequest == c_iResize)
        {
            (bVertical ? m_Case.view.cy : m_Case.view.cx) = std::max(iAmount, 0);
        }
        else if (iRequest == c_iWheel)
        {
            const int iDelta = static_cast<short>(iAmount);
            const int iPosition = GetWheelPosition(bar.iPosition, iDelta);
            const std::int64_t iExpected = std::int64_t{bar.iPosition} - iDelta / 2;
            Require(iPosition == std::clamp<std::int64_t>(iExpected, std::numeric_limits<int>::min(),
                                                          std::numeric_limits<int>::max()),
                    "the wheel moves otherwise");
            bar.iPosition = KeepAsTheSystemDoes(bar, iPosition);
        }
        else
        {
            Request(bar, static_cast<unsigned>(iRequest));
        }
        Fit();
    }

private:
    static void Request(CScrollBarState& bar, unsigned uRequest)
    {
        const std::optional<int> position = GetScrolledPosition(bar, uRequest, c_WorldScrollRule);
        const bool bTracking = uRequest == static_cast<unsigned>(EnumScrollRequest::ThumbTrack);
        Require(!position || bTracking || (*position >= bar.iMin && *position <= bar.iMax),
                "a request leads out of the range");
        bar.iPosition = KeepAsTheSystemDoes(bar, position.value_or(bar.iPosition));
    }

    void Fit()
    {
        CScrolledView view;
        view.shown = GetScrollBarsShown(m_Case.world, m_Case.view, m_Case.bars);
        Require(view.shown == FindFewestBars(m_Case), "other bars are shown");
        view.sizeClient.cx = std::max(m_Case.view.cx - (view.shown.bVertical ? m_Case.bars.cx : 0), 0);
        view.sizeClient.cy = std::max(m_Case.view.cy - (view.shown.bHorizontal ? m_Case.bars.cy : 0), 0);
        m_HorizontalBar = FitScrollBar(m_HorizontalBar, m_Case.world.cx, view.sizeClient.cx);
        m_VerticalBar = FitScrollBar(m_VerticalBar, m_Case.world.cy, view.sizeClient.cy);
        CheckFittedBar(m_HorizontalBar, m_Case.world.cx, view.sizeClient.cx);
        CheckFittedBar(m_VerticalBar, m_Case.world.cy, view.sizeClient.cy);
        view.iHorizontalPosition = m_HorizontalBar.iPosition;
        view.iVerticalPosition = m_VerticalBar.iPosition;
        const CRect rc = PlaceWorld_Scrolled(m_Case.world, view);
        // A client area of less than one pixel cannot show a gap.
        CheckPlacedDirection(rc.left, rc.right, m_Case.world.cx, std::max(view.sizeClient.cx, 1),
                             view.shown.bHorizontal);
        CheckPlacedDirection(rc.top, rc.bottom, m_Case.world.cy, std::max(view.sizeClient.cy, 1), view.shown.bVertical);
    }

    CCase m_Case;
    CScrollBarState m_HorizontalBar;
    CScrollBarState m_VerticalBar;
};

// The rules return for any numbers.
void TryExtremes(const CCase& c, CFuzzInput input)
{
    CScrollBarState bar;
    bar.iMin = input.TakeInt();
    bar.iMax = input.TakeInt();
    bar.iPage = input.TakeInt();
    bar.iPosition = input.TakeInt();
    bar.iTrackPosition = input.TakeInt();
    GetScrolledPosition(bar, static_cast<unsigned>(input.TakeInt()), c_WorldScrollRule);
    GetWheelPosition(bar.iPosition, bar.iMin);
    FitScrollBar(bar, c.world.cx, c.view.cx);
    GetScrollBarsShown(c.world, c.view, c.bars);
    PlaceWorld_Centred(c.world, c.view);
    PlaceWorld_Scrolled(c.world, {{true, false}, c.view, bar.iPosition, bar.iPage});
    PlaceWorld_Scrolled(c.world, {{false, true}, c.view, bar.iPosition, bar.iPage});
}

} // namespace

// Numbers: world, view, scroll bars, and then any number of steps: a request or a new size, an amount, and whether it
// is vertical.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t uCount)
{
    constexpr int c_iMostSteps = 200;
    CFuzzInput input(pBytes, uCount);
    CCase c;
    for (CSize<int>* const pSize : {&c.world, &c.view, &c.bars})
    {
        pSize->cx = input.TakeInt();
        pSize->cy = input.TakeInt();
    }
    TryExtremes(c, input);
    const auto isLength = [](const CSize<int>& size) { return size.cx >= 0 && size.cy >= 0; };
    if (!isLength(c.world) || !isLength(c.view) || !isLength(c.bars))
    {
        return 0;
    }
    const CRect rc = PlaceWorld_Centred(c.world, c.view);
    CheckPlacedDirection(rc.left, rc.right, c.world.cx, c.view.cx, false);
    CheckPlacedDirection(rc.top, rc.bottom, c.world.cy, c.view.cy, false);
    CScrollingUser user(c);
    for (int iStep = 0; iStep < c_iMostSteps && !input.IsAtEnd(); ++iStep)
    {
        const int iRequest = input.TakeInt();
        const int iAmount = input.TakeInt();
        user.Act(iRequest, iAmount, input.TakeInt() != 0);
    }
    return 0;
}
