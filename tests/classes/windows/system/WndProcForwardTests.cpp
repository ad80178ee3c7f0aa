#include "classes/windows/system/WndProcForward.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace
{
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
