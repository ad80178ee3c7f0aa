// Tests the information for screen readers, through the system's own accessibility interface.
#include "classes/windows/system/Handles.h"
#include "tests/classes/windows/WindowsTestEnvironment.h"

#include <oleauto.h>

#include <oleacc.h>

#include <gtest/gtest.h>

#include <initializer_list>

namespace
{
std::wstring TakeText(BSTR sText)
{
    std::wstring sResult = sText != nullptr ? sText : L"";
    SysFreeString(sText);
    return sResult;
}

VARIANT Self()
{
    VARIANT id{};
    id.vt = VT_I4;
    id.lVal = CHILDID_SELF;
    return id;
}

class Accessibility : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_Main.Create(984, 661));
        m_Main.AddRows();
        ASSERT_TRUE(m_Main.AddButton());
    }

    static CComPtr<IAccessible> Get(HWND hWnd)
    {
        CComPtr<IAccessible> pObject;
        AccessibleObjectFromWindow(hWnd, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                   reinterpret_cast<void**>(pObject.Receive()));
        return pObject;
    }

    static std::wstring NameOf(HWND hWnd)
    {
        const CComPtr<IAccessible> pObject = Get(hWnd);
        BSTR sName = nullptr;
        if (pObject)
        {
            pObject->get_accName(Self(), &sName);
        }
        return TakeText(sName);
    }

    CTestMainWindow m_Main;
};
} // namespace

TEST_F(Accessibility, ColourButtonsAndTheStartButtonReportTheirNameRoleAndState)
{
    CDataCtrlGroup& panel = m_Main.GetPanel();
    EXPECT_EQ(NameOf(m_Main.GetStartButton().GetWindowHandle()), L"Start");
    panel.GetButton(11)->SetBackground(RGB(0x12, 0xAB, 0x0F), 0, true, true, true);
    for (const short i : std::initializer_list<short>{3, 11, 13, 15})
    {
        EXPECT_EQ(NameOf(panel.GetCtrlTabHandle(i)), panel.GetLabel(i).Get());
        const CComPtr<IAccessible> pObject = Get(panel.GetCtrlTabHandle(i));
        ASSERT_TRUE(pObject);
        BSTR sText = nullptr;
        EXPECT_EQ(pObject->get_accDescription(Self(), &sText), S_OK);
        EXPECT_EQ(TakeText(sText), panel.GetDesc(i).Get());
        VARIANT role{};
        ASSERT_EQ(pObject->get_accRole(Self(), &role), S_OK);
        EXPECT_EQ(role.lVal, ROLE_SYSTEM_PUSHBUTTON);
        VARIANT state{};
        ASSERT_EQ(pObject->get_accState(Self(), &state), S_OK);
        EXPECT_EQ(state.lVal & STATE_SYSTEM_UNAVAILABLE, 0);
        EXPECT_NE(state.lVal & STATE_SYSTEM_FOCUSABLE, 0);
    }
    BSTR sValue = nullptr;
    EXPECT_EQ(Get(panel.GetCtrlTabHandle(11))->get_accValue(Self(), &sValue), S_OK);
    EXPECT_EQ(TakeText(sValue), L"#12AB0F");
}

TEST_F(Accessibility, TheDefaultActionPressesTheButton)
{
    const CComPtr<IAccessible> pObject = Get(m_Main.GetStartButton().GetWindowHandle());
    ASSERT_TRUE(pObject);
    EXPECT_EQ(pObject->accDoDefaultAction(Self()), S_OK);
    m_Main.Pump();
    ASSERT_EQ(m_Main.m_notices.size(), 1u);
    EXPECT_EQ(m_Main.m_notices[0].hFrom, m_Main.GetStartButton().GetWindowHandle());
}

TEST_F(Accessibility, AGreyedButtonReportsThatItIsUnavailable)
{
    CDataCtrlGroup& panel = m_Main.GetPanel();
    panel.ShowState_SetState(13, EnumShowState::Greyed);
    VARIANT state{};
    ASSERT_EQ(Get(panel.GetCtrlTabHandle(13))->get_accState(Self(), &state), S_OK);
    EXPECT_NE(state.lVal & STATE_SYSTEM_UNAVAILABLE, 0);
}

TEST_F(Accessibility, AnObjectThatOutlivesItsButtonFailsAndDoesNotAccessTheButton)
{
    CComPtr<IAccessible> pObject;
    {
        CWndButton button;
        ASSERT_TRUE(
            button.Initialize(GetModuleHandleW(nullptr), &m_Main, false, nullptr, L"Gone", nullptr, true, nullptr));
        pObject = Get(button.GetWindowHandle());
        ASSERT_TRUE(pObject);
    }
    BSTR sName = nullptr;
    EXPECT_TRUE(FAILED(pObject->get_accName(Self(), &sName)));
    EXPECT_EQ(sName, nullptr);
    EXPECT_TRUE(FAILED(pObject->accDoDefaultAction(Self())));
}

// Screen readers name an entry or list after the static text directly before it among its siblings.
TEST_F(Accessibility, EachEntryAndListDirectlyFollowsAVisibleLabelWithItsName)
{
    CDataCtrlGroup& panel = m_Main.GetPanel();
    for (const short i : m_Main.GetRows())
    {
        const HWND hControl = panel.GetCtrlTabHandle(i);
        if (hControl == nullptr)
        {
            continue;
        }
        const HWND hBefore = ::GetWindow(hControl, GW_HWNDPREV);
        wchar_t sClass[32]{};
        GetClassNameW(hBefore, sClass, 32);
        EXPECT_EQ(lstrcmpiW(sClass, L"Static"), 0) << i;
        EXPECT_TRUE(IsWindowVisible(hBefore)) << i;
        EXPECT_EQ(GetText(hBefore), panel.GetLabel(i).Get()) << i;
    }
}

TEST_F(Accessibility, TheNameOfEveryEntryIsItsLabel)
{
    CDataCtrlGroup& panel = m_Main.GetPanel();
    for (const short i : std::initializer_list<short>{1, 2, 6, 7, 8, 12, 14, 16})
    {
        EXPECT_EQ(NameOf(panel.GetCtrlTabHandle(i)), panel.GetLabel(i).Get()) << i;
    }
}

TEST_F(Accessibility, TheNameOfTheListIsItsLabel)
{
    CDataCtrlGroup& panel = m_Main.GetPanel();
    EXPECT_EQ(NameOf(panel.GetCtrlHandle(L"Colour mode", 0)), L"Colour mode");
}
