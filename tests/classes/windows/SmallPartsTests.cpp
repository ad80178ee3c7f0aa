// Tests the parts of the library that consist of one or two functions.
#include "classes/core/CKernelHandle.h"
#include "classes/windows/drawing/RoundedRect.h"
#include "classes/windows/panel/CTextCtrl.h"
#include "classes/windows/system/CDisplayMonitors.h"
#include "classes/windows/system/Handles.h"
#include "classes/windows/system/MessageTable.h"
#include "classes/windows/system/RectHelpers.h"
#include "classes/windows/system/ShowCreateWindow.h"
#include "classes/windows/system/ShowSetTimer.h"
#include "classes/windows/system/WndProcForward.h"
#include "classes/windows/window/CWndToolTip.h"
#include "tests/classes/windows/WindowsTestEnvironment.h"

#include <commctrl.h>

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>

TEST(RectHelpers, MovingKeepsTheSizeAndIgnoresNull)
{
    RECT rc{1, 2, 11, 22};
    MoveRect(&rc, 5, -7);
    const RECT rcMoved{6, -5, 16, 15};
    EXPECT_TRUE(EqualRect(&rc, &rcMoved));
    EXPECT_EQ(GetRectWidth(rc), 10);
    EXPECT_EQ(GetRectHeight(rc), 20);
    MoveRect(nullptr, 1, 1);
}

TEST(RectHelpers, OnlyTheInclusiveTestAcceptsTheRightAndBottomEdges)
{
    const RECT rc{0, 0, 10, 10};
    EXPECT_TRUE(PointInRect(rc, {0, 0}));
    EXPECT_TRUE(PointInRect(rc, {9, 9}));
    EXPECT_FALSE(PointInRect(rc, {10, 5}));
    EXPECT_TRUE(PointInRect_Inclusive(rc, {10, 10}));
    EXPECT_FALSE(PointInRect_Inclusive(rc, {11, 10}));
    EXPECT_EQ(ToRect(RECT{1, 2, 3, 4}), ToRect(ToRECT(ToRect(RECT{1, 2, 3, 4}))));
}

TEST(DisplayMonitors, TheListHasOneMainMonitorThatBeginsAtTheOrigin)
{
    CDisplayMonitors monitors;
    std::wstring sLog;
    ASSERT_TRUE(monitors.GetDisplayMonitors(&sLog));
    ASSERT_GE(monitors.GetCount(), 1);
    int iMain = 0;
    for (const CDisplayMonitor& monitor : monitors.GetList())
    {
        EXPECT_GT(GetRectWidth(monitor.rc), 0);
        if (!monitor.bMain)
        {
            continue;
        }
        ++iMain;
        EXPECT_EQ(monitor.rc.left, 0);
        EXPECT_EQ(monitor.rc.top, 0);
        EXPECT_EQ(GetRectWidth(monitor.rc), GetSystemMetrics(SM_CXSCREEN));
        EXPECT_EQ(GetRectHeight(monitor.rc), GetSystemMetrics(SM_CYSCREEN)) << "the full area includes the task bar";
    }
    EXPECT_EQ(iMain, 1);
    EXPECT_NE(sLog.find(L"main"), std::wstring::npos);
    ASSERT_TRUE(monitors.GetDisplayMonitors(nullptr));
    EXPECT_EQ(static_cast<std::size_t>(monitors.GetCount()), monitors.GetList().size()) << "the list is replaced";
    EXPECT_THROW(static_cast<void>(monitors.GetMonitor(monitors.GetCount())), std::out_of_range);
}

TEST(ShowSetTimer, ItSetsTheTimerAndNamesItInTheLogIfThereIsOne)
{
    CTestMainWindow window;
    ASSERT_TRUE(window.Create(300, 200));
    std::wstring sLog;
    EXPECT_NE(ShowSetTimer(window.GetWindowHandle(), 5, 10, nullptr, &sLog, &window, L"CLOCK_TIMER"), 0u);
    EXPECT_NE(sLog.find(L"CLOCK_TIMER"), std::wstring::npos);
    EXPECT_NE(sLog.find(L"10 ms"), std::wstring::npos);
    EXPECT_TRUE(KillTimer(window.GetWindowHandle(), 5));
    EXPECT_NE(ShowSetTimer(window.GetWindowHandle(), 5, 10, nullptr, nullptr, nullptr, nullptr), 0u);
    EXPECT_TRUE(KillTimer(window.GetWindowHandle(), 5));
}

TEST(ShowCreateWindow, ItWritesClassAndMember)
{
    std::wstring sLog;
    ShowCreateWindow(&sLog, &sLog, L"CWndWorldView", L"m_hWnd", nullptr, nullptr);
    EXPECT_NE(sLog.find(L"CWndWorldView.m_hWnd"), std::wstring::npos);
    EXPECT_EQ(sLog.back(), L'\n');
    ShowCreateWindow(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
}

TEST(Handles, AMovedFromHandleIsEmptyAndTheOldObjectIsClosed)
{
    CBrushHandle first(CreateSolidBrush(0));
    const HBRUSH hFirst = first.Get();
    CBrushHandle second(std::move(first));
    EXPECT_EQ(second.Get(), hFirst);
    second = CBrushHandle(CreateSolidBrush(1));
    EXPECT_EQ(GetObjectType(hFirst), 0u) << "deleted";
}

TEST(Handles, AKernelHandleIsClosedOnceByItsLastOwner)
{
    CKernelHandle first(CreateEventW(nullptr, TRUE, TRUE, nullptr));
    const HANDLE hEvent = first.Get();
    CKernelHandle second(std::move(first));
    EXPECT_FALSE(first); // NOLINT(bugprone-use-after-move): the empty state is tested here
    EXPECT_EQ(second.Get(), hEvent);
    EXPECT_EQ(WaitForSingleObject(hEvent, 0), WAIT_OBJECT_0);
    second = CKernelHandle();
    EXPECT_FALSE(second);
    EXPECT_EQ(WaitForSingleObject(hEvent, 0), WAIT_FAILED) << "closed";
}

TEST(Handles, AnInvalidKernelHandleIsAnEmptyOne)
{
    const CKernelHandle none(INVALID_HANDLE_VALUE);
    EXPECT_FALSE(none);
    EXPECT_EQ(none.Get(), nullptr);
}

TEST(Handles, ThePreviousObjectIsSelectedAgain)
{
    const CMemoryDc dc(nullptr);
    const CBrushHandle brush(CreateSolidBrush(RGB(1, 2, 3)));
    const HGDIOBJ hBefore = GetCurrentObject(dc.Get(), OBJ_BRUSH);
    {
        const CSelectObject selected(dc.Get(), brush.Get());
        EXPECT_EQ(GetCurrentObject(dc.Get(), OBJ_BRUSH), brush.Get());
    }
    EXPECT_EQ(GetCurrentObject(dc.Get(), OBJ_BRUSH), hBefore);
}

namespace
{
struct CTableUser
{
    std::optional<LRESULT> OnFirst(WPARAM wParam, LPARAM) { return static_cast<LRESULT>(wParam) + 1; }
    std::optional<LRESULT> OnPass(WPARAM, LPARAM) { return std::nullopt; }
};

constexpr CMessageEntry<CTableUser> c_table[] = {{WM_USER, &CTableUser::OnFirst},
                                                 {WM_GETTEXTLENGTH, &CTableUser::OnPass}};

// A class with throwing handlers. Code between the program and the system must expect them.
struct CThrower
{
    LRESULT WndProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
    {
        if (uMessage == WM_USER)
        {
            throw std::runtime_error("thrown on purpose");
        }
        if (uMessage == WM_USER + 1)
        {
            throw 42;
        }
        return DefWindowProcW(hWnd, uMessage, wParam, lParam);
    }
    std::wstring* GetDebugLog() { return &sLog; }
    std::wstring sLog;
};
} // namespace

TEST(MessageTable, AHandlersAnswerIsReturnedAndWithoutAHandlerTheSystemAnswers)
{
    CTestMainWindow window;
    ASSERT_TRUE(window.Create(300, 200));
    CTableUser user;
    EXPECT_EQ(DispatchMessage_Table(user, c_table, window.GetWindowHandle(), WM_USER, 4, 0), 5);
    EXPECT_EQ(DispatchMessage_Table(user, c_table, window.GetWindowHandle(), WM_GETTEXTLENGTH, 0, 0), 4);
    EXPECT_EQ(DispatchMessage_Table(user, c_table, window.GetWindowHandle(), WM_USER + 9, 0, 0), 0);
}

TEST(WndProcForward, AnExceptionInAHandlerIsReportedAndDoesNotEscape)
{
    CThrower thrower;
    WNDCLASSEXW record{};
    record.cbSize = sizeof(record);
    record.lpfnWndProc = WndProcForward<CThrower>;
    record.hInstance = GetModuleHandleW(nullptr);
    record.lpszClassName = L"CThrower";
    RegisterClassExW(&record);
    const HWND hWnd =
        CreateWindowExW(0, L"CThrower", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, record.hInstance, &thrower);
    ASSERT_NE(hWnd, nullptr);
    // Calls the procedure directly: an escaping exception would end the test program.
    EXPECT_EQ(WndProcForward<CThrower>(hWnd, WM_USER, 0, 0), 0);
    EXPECT_NE(thrower.sLog.find(L"thrown on purpose"), std::wstring::npos);
    thrower.sLog.clear();
    EXPECT_EQ(WndProcForward<CThrower>(hWnd, WM_USER + 1, 0, 0), 0);
    EXPECT_FALSE(thrower.sLog.empty());
    DestroyWindow(hWnd);
    EXPECT_EQ(WndProcForward<CThrower>(nullptr, WM_USER, 0, 0), 0) << "without a window the system answers";
}

TEST(RoundedRect, TheMiddleIsFullTheOutsideEmptyAndTheCornersAreSmoothAndSymmetric)
{
    EXPECT_EQ(GetRoundedCoverage(10, 10, 20, 20, 5), 1.0);
    EXPECT_EQ(GetRoundedCoverage(0, 10, 20, 20, 5), 1.0) << "the straight edge";
    EXPECT_EQ(GetRoundedCoverage(0, 0, 20, 20, 5), 0.0);
    EXPECT_EQ(GetRoundedCoverage(-1, 10, 20, 20, 5), 0.0);
    EXPECT_EQ(GetRoundedCoverage(20, 10, 20, 20, 5), 0.0);
    for (int y = 0; y < 5; ++y)
    {
        for (int x = 0; x < 5; ++x)
        {
            const double dCoverage = GetRoundedCoverage(x, y, 20, 20, 5);
            EXPECT_DOUBLE_EQ(GetRoundedCoverage(19 - x, y, 20, 20, 5), dCoverage);
            EXPECT_DOUBLE_EQ(GetRoundedCoverage(x, 19 - y, 20, 20, 5), dCoverage);
            EXPECT_DOUBLE_EQ(GetRoundedCoverage(y, x, 20, 20, 5), dCoverage);
        }
    }
}

TEST(TextCtrl, ARightAlignedTextMayExtendToTheLeftOfItsRectangle)
{
    CTextCtrl text;
    const CMemoryDc dc(nullptr);
    const RECT rc{950, 600, 1000, 665};
    text.SetDrawingRect(&rc);
    EXPECT_FALSE(text.Draw(dc.Get())) << "no text yet";
    text.SetText(L"v2.0.0     a text much wider than fifty pixels");
    text.SetTextFormat(3, 5, 1, true);
    const RECT rcText = text.GetTextRect(dc.Get());
    EXPECT_LT(rcText.left, rc.left);
    EXPECT_LE(rcText.right, rc.right);
    EXPECT_GE(rcText.top, rc.top);
    EXPECT_LE(rcText.bottom, rc.bottom);
    EXPECT_NEAR(rcText.top + rcText.bottom, rc.top + rc.bottom, 1);
    EXPECT_TRUE(text.Draw(dc.Get()));
    EXPECT_FALSE(text.Draw(nullptr));

    text.SetTextFormat(1, 4, 1, false);
    const RECT rcCut = text.GetTextRect(dc.Get());
    EXPECT_GE(rcCut.left, rc.left);
    EXPECT_LE(rcCut.right, rc.right);
    EXPECT_EQ(rcCut.top, rc.top);
    text.SetDrawingRect(nullptr);
    EXPECT_FALSE(text.Draw(dc.Get()));
}

TEST(WndToolTip, OnlyTheLastGivenControlHasATip)
{
    CTestMainWindow window;
    ASSERT_TRUE(window.Create(984, 661));
    window.AddRows();
    CWndToolTip toolTip(0, nullptr, HKEY_LOCAL_MACHINE);
    const HWND hFirst = window.GetPanel().GetCtrlHandle(L"Width", 0);
    const HWND hSecond = window.GetPanel().GetCtrlHandle(L"Height", 0);
    toolTip.ShowToolTip(L"The width", window.GetWindowHandle(), hFirst);
    ASSERT_NE(toolTip.GetWindowHandle(), nullptr);
    EXPECT_EQ(SendMessageW(toolTip.GetWindowHandle(), TTM_GETTOOLCOUNT, 0, 0), 1);
    EXPECT_EQ(toolTip.GetControl(), hFirst);
    toolTip.ShowToolTip(L"The height\nin pixels", window.GetWindowHandle(), hSecond);
    EXPECT_EQ(SendMessageW(toolTip.GetWindowHandle(), TTM_GETTOOLCOUNT, 0, 0), 1);

    wchar_t sText[128]{};
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof(tool);
    tool.hwnd = window.GetWindowHandle();
    tool.uId = reinterpret_cast<UINT_PTR>(hSecond);
    tool.lpszText = sText;
    SendMessageW(toolTip.GetWindowHandle(), TTM_GETTEXTW, 128, reinterpret_cast<LPARAM>(&tool));
    EXPECT_STREQ(sText, L"The height\nin pixels");

    toolTip.ShowToolTip(CWString(), window.GetWindowHandle(), hSecond);
    EXPECT_EQ(SendMessageW(toolTip.GetWindowHandle(), TTM_GETTOOLCOUNT, 0, 0), 0);
    toolTip.ShowToolTip(L"nobody", window.GetWindowHandle(), nullptr);
    EXPECT_EQ(toolTip.GetControl(), nullptr);
}
