#include "classes/windows/CDataCtrlGroup.h"

#include "tests/classes/windows/WindowsTestEnvironment.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace
{
constexpr int c_iDefaultClientHeight = 661; // of the program's window of 1000 x 700
constexpr int c_iLowClientHeight = 400;

// Turned towards the user: negative.
WPARAM WheelParameter(int iDelta)
{
    return MAKEWPARAM(0, static_cast<WORD>(static_cast<short>(iDelta)));
}

class DataCtrlGroup : public testing::Test
{
protected:
    void SetUp() override { Start(c_iDefaultClientHeight); }

    void Start(int iHeight)
    {
        ASSERT_TRUE(m_Main.Create(984, iHeight));
        m_Main.AddRows();
        m_hPanel = Panel().GetWindowHandle();
    }

    CDataCtrlGroup& Panel() { return m_Main.GetPanel(); }
    HWND Control(const wchar_t* sLabel) { return Panel().GetCtrlHandle(sLabel, 0); }

    RECT InPanel(HWND hWnd) const
    {
        RECT rc{};
        GetWindowRect(hWnd, &rc);
        MapWindowPoints(nullptr, m_hPanel, reinterpret_cast<POINT*>(&rc), 2);
        return rc;
    }

    CTestMainWindow m_Main;
    HWND m_hPanel = nullptr;
};

class LowDataCtrlGroup : public DataCtrlGroup
{
protected:
    void SetUp() override { Start(c_iLowClientHeight); }
    bool IsInView(HWND hWnd) const
    {
        RECT rcClient{};
        GetClientRect(m_hPanel, &rcClient);
        const RECT rc = InPanel(hWnd);
        return rc.top >= 0 && rc.bottom <= rcClient.bottom;
    }
};
} // namespace

TEST_F(DataCtrlGroup, RowsAreFoundByTheirLabelAndByTheirWindows)
{
    ASSERT_EQ(Panel().GetCount(), 17);
    EXPECT_EQ(Panel().GetCtrlIndex(L"World view"), 0);
    EXPECT_EQ(Panel().GetCtrlIndex(L"Colour 3 factor"), 16);
    EXPECT_EQ(Panel().GetCtrlIndex(L"colour 3 factor"), -1) << "letter for letter";
    EXPECT_EQ(Panel().GetCtrlIndex(CWString()), -1);
    for (short i = 0; i < Panel().GetCount(); ++i)
    {
        const CWString sLabel = Panel().GetLabel(i);
        EXPECT_EQ(Panel().GetCtrlIndex(sLabel), i);
        for (const int iPart : {0, 1})
        {
            const HWND hWnd = Panel().GetCtrlHandle(sLabel, iPart);
            EXPECT_EQ(Panel().GetCtrlIndex(hWnd), hWnd != nullptr ? i : -1);
        }
    }
    EXPECT_EQ(Panel().GetCtrlIndex(m_hPanel), -1);
    EXPECT_EQ(Panel().GetCtrlIndex(HWND{nullptr}), -1);
    EXPECT_EQ(Panel().GetCtrlHandle(L"Width", 2), nullptr);
    EXPECT_EQ(Panel().GetCtrlHandle(L"none", 0), nullptr);
}

TEST_F(DataCtrlGroup, HeadingsAndDividersHaveNothingThatTakesTheFocus)
{
    for (const short iIndex : std::initializer_list<short>{0, 4, 5, 9})
        EXPECT_EQ(Panel().GetCtrlTabHandle(iIndex), nullptr) << iIndex;
    for (const short iIndex : std::initializer_list<short>{1, 2, 3, 6, 7, 8, 10, 11, 12, 13, 14, 15, 16})
        EXPECT_NE(Panel().GetCtrlTabHandle(iIndex), nullptr) << iIndex;
    EXPECT_EQ(Panel().GetCtrlTabHandle(-1), nullptr);
    EXPECT_EQ(Panel().GetCtrlTabHandle(17), nullptr);
}

TEST_F(DataCtrlGroup, OnlyColourRowsHaveAButton)
{
    for (short i = -1; i <= Panel().GetCount(); ++i)
    {
        const bool bColour = i == 3 || i == 11 || i == 13 || i == 15;
        EXPECT_EQ(Panel().GetButton(i) != nullptr, bColour) << i;
    }
}

TEST_F(DataCtrlGroup, NumbersComeBackAsTheyWereSet)
{
    Panel().SetValue(L"Width", std::int32_t{512});
    EXPECT_EQ(Panel().GetValue_Int32(L"Width"), 512);
    EXPECT_EQ(Panel().GetValue_String(L"Width").Get(), L"512");
    Panel().SetValue(L"Tot atoms", std::uint32_t{4294967295u});
    EXPECT_EQ(Panel().GetValue_Uint32(L"Tot atoms"), 4294967295u);
    EXPECT_EQ(Panel().GetValue_Int32(L"Tot atoms"), 2147483647) << "kept within the type's range";
    Panel().SetValue(L"Min radius", static_cast<std::uint8_t>(300 % 256));
    EXPECT_EQ(Panel().GetValue_Uint8(L"Min radius"), 44);
    Panel().SetValue(L"Width", std::int32_t{-5});
    EXPECT_EQ(Panel().GetValue_Int32(L"Width"), -5) << "only what the user types is restricted";
    EXPECT_EQ(Panel().GetValue_Uint32(L"Width"), 0u);
}

TEST_F(DataCtrlGroup, ATextThatIsNoNumberCountsAsItsLeadingDigits)
{
    const short iIndex = Panel().GetCtrlIndex(L"Colour 1 factor");
    const struct
    {
        const wchar_t* sText;
        std::int32_t iValue;
    } cases[] = {{L"", 0}, {L"abc", 0}, {L"12abc", 12}, {L" 7", 7}, {L"99999999999999999999", 2147483647}};
    for (const auto& [sText, iValue] : cases)
    {
        ASSERT_TRUE(Panel().SetValue(iIndex, sText, 0));
        EXPECT_EQ(Panel().GetValue_Int32(L"Colour 1 factor"), iValue) << sText;
    }
    EXPECT_EQ(Panel().GetValue_Uint8(L"Colour 1 factor"), 255);
    EXPECT_EQ(Panel().GetValue_Int32(L"none"), 0);
    EXPECT_TRUE(Panel().GetValue_String(L"none").IsEmpty());
    EXPECT_FALSE(Panel().SetValue(-1, L"x", 0));
    EXPECT_FALSE(Panel().SetValue(0, L"x", 0)) << "a heading holds no value";
}

TEST_F(DataCtrlGroup, ValuesSetByTheProgramMayBeLongerThanTheRowsSize)
{
    Panel().SetValue(Panel().GetCtrlIndex(L"Colour 1 factor"), L"123456789012345", 0);
    EXPECT_EQ(Panel().GetValue_String(L"Colour 1 factor").Get(), L"123456789012345");
    Panel().SetValue(L"Width", std::int32_t{20000});
    EXPECT_EQ(Panel().GetValue_Int32(L"Width"), 20000);
}

TEST_F(DataCtrlGroup, AListIsSetByItsTextAndReadAsItsIndex)
{
    const short iIndex = Panel().GetCtrlIndex(L"Colour mode");
    EXPECT_EQ(Panel().GetValue_Int32(L"Colour mode"), -1) << "nothing is chosen yet";
    EXPECT_TRUE(Panel().SetValue(iIndex, L"Speed", 0));
    EXPECT_EQ(Panel().GetValue_Int32(L"Colour mode"), 1);
    EXPECT_EQ(Panel().GetValue_String(L"Colour mode").Get(), L"Speed");
    EXPECT_FALSE(Panel().SetValue(iIndex, L"Neither", 0));
    EXPECT_EQ(Panel().GetValue_Int32(L"Colour mode"), 1) << "an unknown text changes nothing";
}

TEST_F(DataCtrlGroup, AColourButtonsNumberIsItsColour)
{
    CWndButton* const pButton = Panel().GetButton(3);
    pButton->SetBackground(0x123456, 0x123456, true, true, true);
    EXPECT_EQ(Panel().GetValue_Uint32(L"Background colour"), 0x123456u);
    Panel().SetValue(3, L"", 0);
    EXPECT_EQ(GetText(pButton->GetWindowHandle()), L"");
}

TEST_F(DataCtrlGroup, AColourButtonsClickIsHandedOnToTheMainWindow)
{
    Click(m_Main, Control(L"Colour 2"));
    ASSERT_EQ(m_Main.m_notices.size(), 1u);
    EXPECT_EQ(m_Main.m_notices[0].hFrom, Panel().GetButton(13)->GetWindowHandle());
    SetFocus(Control(L"Colour 3"));
    PressKey(m_Main, VK_SPACE);
    PressKey(m_Main, VK_RETURN);
    EXPECT_EQ(m_Main.m_notices.size(), 3u);
}

TEST_F(DataCtrlGroup, AGreyedRowIsDisabledAndComesBack)
{
    const short iIndex = Panel().GetCtrlIndex(L"Colour 2 factor");
    const HWND hEntry = Panel().GetCtrlTabHandle(iIndex);
    SetFocus(hEntry);
    Panel().ShowState_SetState(iIndex, EnumShowState::Greyed);
    EXPECT_FALSE(IsWindowEnabled(hEntry));
    EXPECT_NE(GetFocus(), hEntry) << "the focus does not stay where no key arrives";
    EXPECT_NE(GetFocus(), nullptr);
    EXPECT_EQ(Panel().ShowState_GetState(iIndex), EnumShowState::Greyed);
    EXPECT_TRUE(IsWindowEnabled(Control(L"Colour 1 factor")));
    Panel().ShowState_SetState(iIndex, EnumShowState::InUse);
    EXPECT_TRUE(IsWindowEnabled(hEntry));
    Panel().ShowState_SetState(-1, EnumShowState::Greyed);
    Panel().ShowState_SetState(99, EnumShowState::Greyed);
}

TEST_F(DataCtrlGroup, AGreyedRowLooksDifferent)
{
    const short iIndex = Panel().GetCtrlIndex(L"Colour 2 factor");
    const HWND hEntry = Panel().GetCtrlTabHandle(iIndex);
    UpdateWindow(m_Main.GetWindowHandle());
    const COLORREF crInUse = GetShownPixel(hEntry, 40, 5);
    Panel().ShowState_SetState(iIndex, EnumShowState::Greyed);
    m_Main.Pump();
    EXPECT_NE(GetShownPixel(hEntry, 40, 5), crInUse);
}

// One edge for all controls, one for all labels, and nothing overlapping: at the panel's size in the default window.
TEST_F(DataCtrlGroup, AtTheDefaultSizeEverythingIsInViewAndAligned)
{
    RECT rcClient{};
    GetClientRect(m_hPanel, &rcClient);
    ASSERT_EQ(rcClient.right, 240);
    EXPECT_EQ(GetWindowLongW(m_hPanel, GWL_STYLE) & WS_VSCROLL, 0) << "no scroll bar";
    int iLastBottom = 0;
    for (short i = 0; i < Panel().GetCount(); ++i)
    {
        const CWString sLabel = Panel().GetLabel(i);
        const HWND hLabel = Panel().GetCtrlHandle(sLabel, 1);
        const HWND hControl = Panel().GetCtrlHandle(sLabel, 0);
        if (hLabel == nullptr)
            continue;
        const RECT rcLabel = InPanel(hLabel);
        EXPECT_EQ(rcLabel.left, 10) << i;
        EXPECT_GE(rcLabel.top, iLastBottom) << i;
        EXPECT_LE(rcLabel.bottom, rcClient.bottom) << i;
        iLastBottom = rcLabel.bottom;
        if (hControl == nullptr)
            continue;
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

TEST_F(DataCtrlGroup, NoLabelIsCutOff)
{
    const CWindowDc dc(m_hPanel);
    const CSelectObject font(dc.Get(), m_Main.GetFont());
    for (short i = 0; i < Panel().GetCount(); ++i)
    {
        // The longest form that a language without a translation of its own shows.
        const std::wstring sText = L"[" + Panel().GetLabel(i).Get() + L"]";
        const HWND hLabel = Panel().GetCtrlHandle(Panel().GetLabel(i), 1);
        if (hLabel == nullptr)
            continue;
        SIZE size{};
        GetTextExtentPoint32W(dc.Get(), sText.c_str(), static_cast<int>(sText.size()), &size);
        const RECT rc = InPanel(hLabel);
        EXPECT_LE(size.cx, rc.right - rc.left) << i;
    }
}

// Every pixel of the panel that no control covers continues the main window's texture.
TEST_F(DataCtrlGroup, TheBackdropGoesOnThroughThePanelAndItsLabels)
{
    UpdateWindow(m_Main.GetWindowHandle());
    const SIZE size = m_Main.GetBackdrop()->GetSize();
    const auto Expected = [&](HWND hWnd, int x, int y) {
        const RECT rc = CWndCommon::GetBackdropRect(hWnd, m_Main.GetWindowHandle());
        return m_Main.GetBackdrop()->GetPixelColour((x - rc.left) % size.cx, (y - rc.top) % size.cy);
    };
    for (int y = 0; y < 500; y += 7)
        EXPECT_EQ(GetShownPixel(m_hPanel, 3, y), Expected(m_hPanel, 3, y)) << y;
    const HWND hLabel = Panel().GetCtrlHandle(L"Width", 1);
    EXPECT_EQ(GetShownPixel(hLabel, 100, 2), Expected(hLabel, 100, 2));
}

TEST_F(DataCtrlGroup, TheBackdropStaysAlignedWhenThePanelIsMoved)
{
    MoveWindow(m_hPanel, 101, 73, 240, 536, TRUE);
    m_Main.Pump();
    const SIZE size = m_Main.GetBackdrop()->GetSize();
    for (int y = 0; y < 500; y += 11)
        EXPECT_EQ(GetShownPixel(m_hPanel, 3, y),
                  m_Main.GetBackdrop()->GetPixelColour((101 + 3) % size.cx, (73 + y) % size.cy));
}

TEST_F(DataCtrlGroup, TheFocusOfAnEntryIsVisible)
{
    const HWND hEntry = Control(L"Height");
    const RECT rc = InPanel(hEntry);
    const int x = rc.left + 20;
    const int yFrame = rc.top - 5; // inside the entry's frame, which is 24 pixels high
    UpdateWindow(m_hPanel);
    int iDifferent = 0;
    COLORREF before[8]{};
    for (int i = 0; i < 8; ++i)
        before[i] = GetShownPixel(m_hPanel, x, yFrame + 2 - i);
    SetFocus(hEntry);
    UpdateWindow(m_hPanel);
    for (int i = 0; i < 8; ++i)
        iDifferent += GetShownPixel(m_hPanel, x, yFrame + 2 - i) != before[i];
    EXPECT_GE(iDifferent, 1);
}

TEST_F(DataCtrlGroup, AClickOnALabelOrOnAnEntrysFrameGivesTheFocusToTheControl)
{
    Click(m_Main, Panel().GetCtrlHandle(L"Max radius", 1));
    EXPECT_EQ(GetFocus(), Control(L"Max radius"));
    const RECT rc = InPanel(Control(L"Width"));
    PostMessageW(m_hPanel, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(rc.left - 3, rc.top));
    m_Main.Pump();
    EXPECT_EQ(GetFocus(), Control(L"Width"));
}

TEST_F(LowDataCtrlGroup, APanelLowerThanItsRowsHasAScrollBarThatDoesNotCoverThem)
{
    EXPECT_NE(GetWindowLongW(m_hPanel, GWL_STYLE) & WS_VSCROLL, 0);
    RECT rcClient{};
    GetClientRect(m_hPanel, &rcClient);
    EXPECT_LT(rcClient.right, 240);
    for (short i = 0; i < Panel().GetCount(); ++i)
    {
        const HWND hControl = Panel().GetCtrlTabHandle(i);
        EXPECT_TRUE(hControl == nullptr || InPanel(hControl).right < rcClient.right) << i;
    }
}

TEST_F(LowDataCtrlGroup, TheFocusScrollsARowIntoView)
{
    EXPECT_FALSE(IsInView(Control(L"Colour 3 factor")));
    SetFocus(Control(L"Colour 3 factor"));
    EXPECT_TRUE(IsInView(Control(L"Colour 3 factor")));
    SetFocus(Control(L"Background colour"));
    EXPECT_TRUE(IsInView(Control(L"Background colour"))) << "a button as well as an entry";
    SetFocus(Control(L"Colour mode"));
    EXPECT_TRUE(IsInView(Control(L"Colour mode")));
    SetFocus(Control(L"Width"));
    EXPECT_TRUE(IsInView(Panel().GetCtrlHandle(L"World view", 1))) << "the first row brings its heading along";
}

TEST_F(LowDataCtrlGroup, TheWheelScrollsWhateverItIsTurnedOver)
{
    const WPARAM wDown = WheelParameter(-WHEEL_DELTA);
    const WPARAM wUp = WheelParameter(WHEEL_DELTA);
    for (const HWND hWnd : {m_hPanel, Control(L"Width"), Control(L"Background colour"), Control(L"Colour mode"),
                            Panel().GetCtrlHandle(L"Height", 1), Panel().GetCtrlHandle(L"Atoms", 1)})
    {
        EXPECT_EQ(GetScrollPos(m_hPanel, SB_VERT), 0);
        SendMessageW(hWnd, WM_MOUSEWHEEL, wDown, 0);
        EXPECT_GT(GetScrollPos(m_hPanel, SB_VERT), 0);
        SendMessageW(hWnd, WM_MOUSEWHEEL, wUp, 0);
    }
    Panel().SetValue(Panel().GetCtrlIndex(L"Colour mode"), L"Fixed", 0);
    SendMessageW(Control(L"Colour mode"), WM_MOUSEWHEEL, wDown, 0);
    EXPECT_EQ(Panel().GetValue_Int32(L"Colour mode"), 0) << "the wheel never changes a closed list";
}

TEST_F(LowDataCtrlGroup, FineWheelMovementsAddUp)
{
    const WPARAM wTenth = WheelParameter(-WHEEL_DELTA / 10);
    const WPARAM wWhole = WheelParameter(-WHEEL_DELTA);
    for (int i = 0; i < 10; ++i)
        SendMessageW(m_hPanel, WM_MOUSEWHEEL, wTenth, 0);
    const int iByTenths = GetScrollPos(m_hPanel, SB_VERT);
    SendMessageW(m_hPanel, WM_VSCROLL, SB_TOP, 0);
    SendMessageW(m_hPanel, WM_MOUSEWHEEL, wWhole, 0);
    EXPECT_EQ(GetScrollPos(m_hPanel, SB_VERT), iByTenths);
}

TEST_F(LowDataCtrlGroup, TheScrollBarReachesBothEndsAndNoFurther)
{
    RECT rcClient{};
    GetClientRect(m_hPanel, &rcClient);
    SendMessageW(m_hPanel, WM_VSCROLL, SB_BOTTOM, 0);
    EXPECT_EQ(GetScrollPos(m_hPanel, SB_VERT), Panel().GetContentHeight() - rcClient.bottom);
    EXPECT_TRUE(IsInView(Control(L"Colour 3 factor")));
    SendMessageW(m_hPanel, WM_VSCROLL, SB_LINEDOWN, 0);
    SendMessageW(m_hPanel, WM_VSCROLL, SB_PAGEDOWN, 0);
    EXPECT_EQ(GetScrollPos(m_hPanel, SB_VERT), Panel().GetContentHeight() - rcClient.bottom);
    SendMessageW(m_hPanel, WM_VSCROLL, SB_PAGEUP, 0);
    SendMessageW(m_hPanel, WM_VSCROLL, SB_PAGEUP, 0);
    SendMessageW(m_hPanel, WM_VSCROLL, SB_LINEUP, 0);
    EXPECT_EQ(GetScrollPos(m_hPanel, SB_VERT), 0);
}

TEST_F(LowDataCtrlGroup, GrownHighEnoughItScrollsBackAndLosesItsBar)
{
    SetFocus(Control(L"Colour 3 factor"));
    ASSERT_GT(GetScrollPos(m_hPanel, SB_VERT), 0);
    MoveWindow(m_hPanel, 700, 60, 240, 600, TRUE);
    m_Main.Pump();
    EXPECT_EQ(GetWindowLongW(m_hPanel, GWL_STYLE) & WS_VSCROLL, 0);
    EXPECT_TRUE(IsInView(Control(L"Width")));
    EXPECT_EQ(InPanel(Control(L"Colour 1")).right, 240);
}

// The smallest window there is leaves the panel 25 pixels, or none at all.
TEST_F(LowDataCtrlGroup, ItBearsAnySize)
{
    for (const int iHeight : {25, 1, 0, -10, 3000})
    {
        MoveWindow(m_hPanel, 0, 0, 240, iHeight, TRUE);
        m_Main.Pump();
        SetFocus(Control(L"Colour 3 factor"));
        SetFocus(Control(L"Width"));
        MoveWindow(m_hPanel, 0, 0, iHeight, 240, TRUE);
        m_Main.Pump();
    }
    EXPECT_TRUE(IsWindow(m_hPanel));
}

TEST(DataCtrlGroupAlone, WithoutAParentItIsEmptyAndHarmless)
{
    CDataCtrlGroup panel(nullptr, 200, 0.6, false, nullptr);
    EXPECT_EQ(panel.GetWindowHandle(), nullptr);
    EXPECT_EQ(panel.AddControl(EnumDataCtrlType::NumberEntry, EnumShowState::InUse, L"a", L"", 1, 0, 0, 0, true), -1);
    EXPECT_EQ(panel.GetValue_Int32(L"a"), 0);
}
