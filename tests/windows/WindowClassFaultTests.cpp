#include "app/CKinetarium.h"
#include "tests/windows/FaultTesting.h"

#include <gtest/gtest.h>

// The names of the program's window classes are already registered: by an earlier application in the same process, or
// by foreign code.

namespace
{
constexpr const wchar_t* c_sMainClass = L"CKinetarium";
constexpr const wchar_t* c_sViewClass = L"CWndWorldView";
constexpr const wchar_t* c_sPanelClass = L"CDataCtrlGroup";

void RegisterForeignClass(const wchar_t* sName)
{
    WNDCLASSEXW record{};
    record.cbSize = sizeof record;
    record.lpfnWndProc = DefWindowProcW;
    record.hInstance = GetModuleHandleW(nullptr);
    record.lpszClassName = sName;
    UnregisterClassW(sName, record.hInstance);
    ASSERT_NE(RegisterClassExW(&record), 0);
}
} // namespace

// A second application in the same process finds the classes of the first.
TEST(WindowClassFaults, ItsOwnWindowClassesMayExistAlready)
{
    for (int i = 0; i < 2; ++i)
    {
        CRunningApplication application;
        ExpectUsable(application);
        EXPECT_TRUE(application.Close());
    }
}

// A library in the process may have used the names.
TEST(WindowClassFaults, ForeignWindowClassesOfTheSameNamesAreReplaced)
{
    for (const wchar_t* sName : {c_sMainClass, c_sViewClass, c_sButtonClass, c_sPanelClass})
    {
        RegisterForeignClass(sName);
    }
    CRunningApplication application;
    EXPECT_EQ(application.GetControlText(L"Width"), L"512");
    ExpectUsable(application);
    EXPECT_TRUE(application.Close());
}

TEST(WindowClassFaults, AForeignWindowOfTheMainWindowsClassEndsTheProgramAndTheNextOneRuns)
{
    RegisterForeignClass(c_sMainClass);
    const HWND hForeign =
        CreateWindowW(c_sMainClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(hForeign, nullptr);
    EXPECT_TRUE(RunsToItsEnd());
    DestroyWindow(hForeign);
    CRunningApplication application;
    ExpectUsable(application);
    EXPECT_TRUE(application.Close());
}
