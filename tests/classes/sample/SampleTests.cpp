// The sample program from outside, as its user meets it.
#include "tests/endtoend/CDrivenProgram.h"
#include "tests/endtoend/UserInput.h"
#include "tests/endtoend/WaitUntil.h"
#include "tests/endtoend/WindowSearch.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <array>
#include <filesystem>

namespace
{
constexpr auto c_Patience = std::chrono::milliseconds(20000);

std::filesystem::path GetSampleProgram()
{
    std::array<wchar_t, MAX_PATH> path{};
    GetModuleFileNameW(nullptr, path.data(), MAX_PATH);
    return std::filesystem::path(path.data()).parent_path().parent_path() / "sample" / "classes-sample.exe";
}

class ClassesSample : public testing::Test
{
protected:
    ClassesSample() : m_program(GetSampleProgram())
    {
        m_hMain = WaitUntil("the sample's window", c_Patience, [&] {
            return FindTopWindow([&](HWND hWnd) {
                DWORD uProcessId = 0;
                GetWindowThreadProcessId(hWnd, &uProcessId);
                return uProcessId == m_program.GetProcessId() && ClassOf(hWnd) == L"CSampleWindow" &&
                       IsWindowVisible(hWnd);
            });
        });
    }

    CDrivenProgram m_program;
    HWND m_hMain = nullptr;
};
} // namespace

TEST_F(ClassesSample, ShowsAPanelAButtonAndAStatusBarWithItsOwnTexts)
{
    EXPECT_EQ(ReadText(m_hMain), L"Teapot");
    EXPECT_NE(FindDescendantByClass(m_hMain, L"CDataCtrlGroup"), nullptr);
    EXPECT_NE(FindDescendantByClass(m_hMain, L"msctls_statusbar32"), nullptr);
    const HWND hButton = FindDescendantByClass(m_hMain, L"CWndButton");
    ASSERT_NE(hButton, nullptr);
    EXPECT_EQ(ReadText(hButton), L"Brew");
}

TEST_F(ClassesSample, ItsButtonShowsAMessageAndEscapeClosesTheWindow)
{
    const HWND hButton = FindDescendantByClass(m_hMain, L"CWndButton");
    PostMessageW(hButton, BM_CLICK, 0, 0);
    const HWND hDialog = WaitUntil("the message", c_Patience, [&] { return FindDialogOf(m_hMain); });
    EXPECT_NE(FindDescendant(hDialog, [](HWND h) { return ReadText(h) == L"Green tea, 3 minutes, 4 cups."; }), nullptr);
    PostMessageW(hDialog, WM_COMMAND, IDOK, 0);
    WaitUntil("the end of the message", c_Patience, [&] { return FindDialogOf(m_hMain) == nullptr; });

    PostMessageW(hButton, WM_KEYUP, VK_ESCAPE, 0);
    EXPECT_EQ(m_program.WaitForExit(c_Patience), 0U);
}
