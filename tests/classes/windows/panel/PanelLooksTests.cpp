#include "tests/classes/windows/panel/CDataCtrlGroupTest.h"

namespace
{
using PanelLooks = CDataCtrlGroupTest;
} // namespace

TEST_F(PanelLooks, AGreyedRowLooksDifferent)
{
    const short iIndex = Panel().GetCtrlIndex(L"Colour 2 factor");
    const HWND hEntry = Panel().GetCtrlTabHandle(iIndex);
    UpdateWindow(m_Main.GetWindowHandle());
    const COLORREF crInUse = GetShownPixel(hEntry, 40, 5);
    Panel().ShowState_SetState(iIndex, EnumShowState::Greyed);
    m_Main.Pump();
    EXPECT_NE(GetShownPixel(hEntry, 40, 5), crInUse);
}

// At the panel's size in the default window, all controls share one edge, all labels share another, and nothing
// overlaps.
TEST_F(PanelLooks, AtTheDefaultSizeEveryRowIsVisibleAndAligned)
{
    RECT rcClient{};
    GetClientRect(m_hPanel, &rcClient);
    ASSERT_EQ(rcClient.right, 240);
    EXPECT_EQ(GetWindowLongW(m_hPanel, GWL_STYLE) & WS_VSCROLL, 0) << "no scroll bar";
    int iLastBottom = 0;
    for (const short i : m_Main.GetRows())
    {
        const CWString sLabel = Panel().GetLabel(i);
        const HWND hLabel = Panel().GetCtrlHandle(sLabel, 1);
        const HWND hControl = Panel().GetCtrlHandle(sLabel, 0);
        if (hLabel == nullptr)
        {
            continue;
        }
        const RECT rcLabel = InPanel(hLabel);
        EXPECT_EQ(rcLabel.left, 10) << i;
        EXPECT_GE(rcLabel.top, iLastBottom) << i;
        EXPECT_LE(rcLabel.bottom, rcClient.bottom) << i;
        iLastBottom = rcLabel.bottom;
        if (hControl == nullptr)
        {
            continue;
        }
        const RECT rcControl = InPanel(hControl);
        EXPECT_GE(rcControl.left, rcLabel.right) << i;
        if (Panel().GetType(i) == EnumDataCtrlType::ColourButton ||
            Panel().GetType(i) == EnumDataCtrlType::DropDownList)
        {
            EXPECT_EQ(rcControl.left, 144) << i;
            EXPECT_EQ(rcControl.right, 240) << i;
            EXPECT_EQ(rcControl.bottom - rcControl.top, 24) << i;
        }
        EXPECT_GE(rcControl.top, rcLabel.top) << i;
        EXPECT_LE(rcControl.bottom, rcLabel.bottom) << i;
    }
}

TEST_F(PanelLooks, NoLabelIsTruncated)
{
    const CWindowDc dc(m_hPanel);
    const CSelectObject font(dc.Get(), m_Main.GetFont());
    for (const short i : m_Main.GetRows())
    {
        // The longest form, shown in a language without its own translation.
        const std::wstring sText = L"[" + Panel().GetLabel(i).Get() + L"]";
        const HWND hLabel = Panel().GetCtrlHandle(Panel().GetLabel(i), 1);
        if (hLabel == nullptr)
        {
            continue;
        }
        SIZE size{};
        GetTextExtentPoint32W(dc.Get(), sText.c_str(), static_cast<int>(sText.size()), &size);
        const RECT rc = InPanel(hLabel);
        EXPECT_LE(size.cx, rc.right - rc.left) << i;
    }
}

// Every uncovered pixel of the panel continues the main window's texture.
TEST_F(PanelLooks, TheBackdropContinuesThroughThePanelAndItsLabels)
{
    UpdateWindow(m_Main.GetWindowHandle());
    const SIZE size = m_Main.GetBackdrop()->GetSize();
    const auto Expected = [&](HWND hWnd, int x, int y) {
        const RECT rc = CWndCommon::GetBackdropRect(hWnd, m_Main.GetWindowHandle());
        return m_Main.GetBackdrop()->GetPixelColour((x - rc.left) % size.cx, (y - rc.top) % size.cy);
    };
    for (int y = 0; y < 500; y += 7)
    {
        EXPECT_EQ(GetShownPixel(m_hPanel, 3, y), Expected(m_hPanel, 3, y)) << y;
    }
    const HWND hLabel = Panel().GetCtrlHandle(L"Width", 1);
    EXPECT_EQ(GetShownPixel(hLabel, 100, 2), Expected(hLabel, 100, 2));
}

TEST_F(PanelLooks, TheBackdropStaysAlignedWhenThePanelMoves)
{
    MoveWindow(m_hPanel, 101, 73, 240, 536, TRUE);
    m_Main.Pump();
    const SIZE size = m_Main.GetBackdrop()->GetSize();
    for (int y = 0; y < 500; y += 11)
    {
        EXPECT_EQ(GetShownPixel(m_hPanel, 3, y),
                  m_Main.GetBackdrop()->GetPixelColour((101 + 3) % size.cx, (73 + y) % size.cy));
    }
}

TEST_F(PanelLooks, TheFocusOfAnEntryIsVisible)
{
    const HWND hEntry = Control(L"Height");
    const RECT rc = InPanel(hEntry);
    const int x = rc.left + 20;
    const int yFrame = rc.top - 5; // inside the frame of the entry, which is 24 pixels high
    UpdateWindow(m_hPanel);
    int iDifferent = 0;
    COLORREF before[8]{};
    for (int i = 0; i < 8; ++i)
    {
        before[i] = GetShownPixel(m_hPanel, x, yFrame + 2 - i);
    }
    SetFocus(hEntry);
    UpdateWindow(m_hPanel);
    for (int i = 0; i < 8; ++i)
    {
        iDifferent += GetShownPixel(m_hPanel, x, yFrame + 2 - i) != before[i];
    }
    EXPECT_GE(iDifferent, 1);
}

TEST_F(PanelLooks, AClickOnALabelOrOnAnEntrysFrameGivesTheFocusToTheControl)
{
    Click(m_Main, Panel().GetCtrlHandle(L"Max radius", 1));
    EXPECT_EQ(GetFocus(), Control(L"Max radius"));
    const RECT rc = InPanel(Control(L"Width"));
    PostMessageW(m_hPanel, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(rc.left - 3, rc.top));
    m_Main.Pump();
    EXPECT_EQ(GetFocus(), Control(L"Width"));
}
