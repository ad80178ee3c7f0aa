#include "tests/windows/CRunningApplication.h"
#include "tests/windows/MessageBoxProbe.h"

#include <gtest/gtest.h>

#include <ostream>

// A message box and the colour dialog run message loops of their own, and the main window stays active behind them. The
// system can still send it messages that the user cannot (the end of the session), and other programs can post any
// message.

namespace
{
constexpr LPARAM c_iKeyReleased = static_cast<LPARAM>(0xC0000001);

struct CIntruder
{
    const char* sName;
    UINT uMessage;
    WPARAM wParam;
    LPARAM lParam;
    bool bTogglesFullScreen;
    bool bEndsWorker;
};

void PrintTo(const CIntruder& intruder, std::ostream* pStream)
{
    *pStream << intruder.sName;
}

const CIntruder c_Intruders[] = {
    {"Click", WM_LBUTTONUP, 0, MAKELPARAM(300, 300), false, false},
    {"F11", WM_KEYUP, VK_F11, c_iKeyReleased, true, false},
    {"RightClick", WM_RBUTTONUP, 0, MAKELPARAM(1, 1), true, false},
    {"SessionEnd", WM_ENDSESSION, TRUE, 0, false, true},
};

class ModalMessages : public testing::TestWithParam<CIntruder>
{
protected:
    void Intrude(const CRunningApplication& application) const
    {
        SendMessageW(application.GetMain(), GetParam().uMessage, GetParam().wParam, GetParam().lParam);
    }

    static bool IsFullScreen(const CRunningApplication& application)
    {
        bool bFullScreen = false;
        application.Do([&](CKinetarium& inside) { bFullScreen = CKinetariumProbe::IsFullScreen(inside); });
        return bFullScreen;
    }
};

std::string GetName(const testing::TestParamInfo<CIntruder>& info)
{
    return info.param.sName;
}
} // namespace

// A start waits for the message box, so nothing else may start or open a second one meanwhile.
TEST_P(ModalMessages, BehindAMessageBoxNothingStartsAndNoSecondOneOpens)
{
    CRunningApplication application;
    application.SetControlText(L"Tot_atoms", L"6");
    application.Do([](CKinetarium& inside) { CKinetariumProbe::Start(inside); });
    application.SetControlText(L"Colour_1_factor", L"x");
    application.ClickWorld(300, 300); // stops the run, and cannot start another
    const CShownMessage message = WaitForMessageBox(application.GetMain());
    ASSERT_NE(message.hWnd, nullptr);

    Intrude(application);
    EXPECT_EQ(FindPopup(application.GetMain()), message.hWnd);
    EXPECT_EQ(IsFullScreen(application), GetParam().bTogglesFullScreen);
    EXPECT_TRUE(CloseMessageBox(message));
    EXPECT_TRUE(application.WaitForWorker(false));
    EXPECT_EQ(FindPopup(application.GetMain()), nullptr);
    EXPECT_TRUE(application.Close());
}

TEST_P(ModalMessages, BehindAColourDialogTheyActAsUsual)
{
    CRunningApplication application;
    application.SetControlText(L"Tot_atoms", L"6");
    application.Do([](CKinetarium& inside) { CKinetariumProbe::Start(inside); });
    const HWND hButton = application.FindControl(L"Colour_2");
    PostMessageW(hButton, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    PostMessageW(hButton, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    ASSERT_TRUE(CRunningApplication::Poll([&] { return FindPopup(application.GetMain()) != nullptr; }));

    Intrude(application);
    EXPECT_EQ(IsFullScreen(application), GetParam().bTogglesFullScreen);
    EXPECT_TRUE(application.WaitForWorker(!GetParam().bEndsWorker));
    EXPECT_EQ(CRunningApplication::ReadSetting(L"Tot_atoms"), L"6");
    // Closing the window also ends the dialog and the worker.
    EXPECT_TRUE(application.Close());
}

INSTANTIATE_TEST_SUITE_P(FromOutside, ModalMessages, testing::ValuesIn(c_Intruders), GetName);
