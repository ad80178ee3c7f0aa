#include "tests/classes/windows/panel/CDataCtrlGroupTest.h"

#include <initializer_list>

namespace
{
using DataCtrlGroup = CDataCtrlGroupTest;
} // namespace

TEST_F(DataCtrlGroup, RowsAreFoundByTheirLabelAndByTheirWindows)
{
    ASSERT_EQ(Panel().GetCount(), 17);
    EXPECT_EQ(Panel().GetCtrlIndex(L"World view"), 0);
    EXPECT_EQ(Panel().GetCtrlIndex(L"Colour 3 factor"), 16);
    EXPECT_EQ(Panel().GetCtrlIndex(L"colour 3 factor"), -1) << "labels are case-sensitive";
    EXPECT_EQ(Panel().GetCtrlIndex(CWString()), -1);
    for (const short i : m_Main.GetRows())
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

TEST_F(DataCtrlGroup, HeadingsAndDividersHaveNoFocusableControl)
{
    for (const short iIndex : std::initializer_list<short>{0, 4, 5, 9})
    {
        EXPECT_EQ(Panel().GetCtrlTabHandle(iIndex), nullptr) << iIndex;
    }
    for (const short iIndex : std::initializer_list<short>{1, 2, 3, 6, 7, 8, 10, 11, 12, 13, 14, 15, 16})
    {
        EXPECT_NE(Panel().GetCtrlTabHandle(iIndex), nullptr) << iIndex;
    }
    EXPECT_EQ(Panel().GetCtrlTabHandle(-1), nullptr);
    EXPECT_EQ(Panel().GetCtrlTabHandle(17), nullptr);
}

TEST_F(DataCtrlGroup, OnlyColourRowsHaveAButton)
{
    for (const short i : m_Main.GetRows())
    {
        const bool bColour = i == 3 || i == 11 || i == 13 || i == 15;
        EXPECT_EQ(Panel().GetButton(i) != nullptr, bColour) << i;
    }
    EXPECT_EQ(Panel().GetButton(-1), nullptr);
    EXPECT_EQ(Panel().GetButton(17), nullptr);
}

TEST_F(DataCtrlGroup, NumbersAreReadBackUnchanged)
{
    Panel().SetValue(L"Width", std::int32_t{512});
    EXPECT_EQ(Panel().GetValue_Int32(L"Width"), 512);
    EXPECT_EQ(Panel().GetValue_String(L"Width").Get(), L"512");
    Panel().SetValue(L"Tot atoms", std::uint32_t{4294967295u});
    EXPECT_EQ(Panel().GetValue_Uint32(L"Tot atoms"), 4294967295u);
    EXPECT_EQ(Panel().GetValue_Int32(L"Tot atoms"), 2147483647) << "saturates at the type's range";
    Panel().SetValue(L"Min radius", static_cast<std::uint8_t>(300 % 256));
    EXPECT_EQ(Panel().GetValue_Uint8(L"Min radius"), 44);
    Panel().SetValue(L"Width", std::int32_t{-5});
    EXPECT_EQ(Panel().GetValue_Int32(L"Width"), -5) << "only typed text is restricted";
    EXPECT_EQ(Panel().GetValue_Uint32(L"Width"), 0u);
}

TEST_F(DataCtrlGroup, ATextIsReadAsTheNumberOfItsLeadingDigits)
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
    EXPECT_EQ(Panel().GetValue_Int32(L"Colour mode"), -1) << "nothing is selected yet";
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

TEST_F(DataCtrlGroup, AClickOnAColourButtonIsForwardedToTheMainWindow)
{
    Click(m_Main, Control(L"Colour 2"));
    ASSERT_EQ(m_Main.m_notices.size(), 1u);
    EXPECT_EQ(m_Main.m_notices[0].hFrom, Panel().GetButton(13)->GetWindowHandle());
    SetFocus(Control(L"Colour 3"));
    PressKey(m_Main, VK_SPACE);
    PressKey(m_Main, VK_RETURN);
    EXPECT_EQ(m_Main.m_notices.size(), 3u);
}

TEST_F(DataCtrlGroup, AGreyedRowIsDisabledAndCanBeEnabledAgain)
{
    const short iIndex = Panel().GetCtrlIndex(L"Colour 2 factor");
    const HWND hEntry = Panel().GetCtrlTabHandle(iIndex);
    SetFocus(hEntry);
    Panel().ShowState_SetState(iIndex, EnumShowState::Greyed);
    EXPECT_FALSE(IsWindowEnabled(hEntry));
    EXPECT_NE(GetFocus(), hEntry) << "the focus leaves a disabled window";
    EXPECT_NE(GetFocus(), nullptr);
    EXPECT_EQ(Panel().ShowState_GetState(iIndex), EnumShowState::Greyed);
    EXPECT_TRUE(IsWindowEnabled(Control(L"Colour 1 factor")));
    Panel().ShowState_SetState(iIndex, EnumShowState::InUse);
    EXPECT_TRUE(IsWindowEnabled(hEntry));
    Panel().ShowState_SetState(-1, EnumShowState::Greyed);
    Panel().ShowState_SetState(99, EnumShowState::Greyed);
}

TEST(DataCtrlGroupAlone, WithoutAParentItIsEmptyAndEveryCallIsSafe)
{
    CDataCtrlGroup panel(nullptr, 200, 0.6, false, nullptr);
    EXPECT_EQ(panel.GetWindowHandle(), nullptr);
    EXPECT_EQ(panel.AddControl(EnumDataCtrlType::NumberEntry, EnumShowState::InUse, L"a", L"", 1, 0, 0, 0, true), -1);
    EXPECT_EQ(panel.GetValue_Int32(L"a"), 0);
}
