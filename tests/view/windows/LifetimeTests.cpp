#include "tests/view/windows/CViewTest.h"

#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>

namespace
{

class WorldViewLifetime : public CViewTest
{
};

// A parent that was never set up: it has no backdrop.
class CBareParent final : public CWndCommon
{
};

constexpr unsigned char c_byEnglish = 7;
constexpr unsigned char c_byArabic = 1;
constexpr LONG_PTR c_iRightToLeft = WS_EX_LAYOUTRTL | WS_EX_RTLREADING | WS_EX_RIGHT;

} // namespace

TEST_F(WorldViewLifetime, TheViewIsAVisibleChildWithoutSizeUntilTheParentPlacesIt)
{
    CTestParent parent;
    const CWndWorldView view(&parent, {500, 400}, m_atoms, CreateSpyFactory);
    const HWND hWnd = view.GetWindowHandle();
    ASSERT_NE(nullptr, hWnd);
    EXPECT_EQ(parent.GetWindowHandle(), GetParent(hWnd));
    RECT rc{};
    GetWindowRect(hWnd, &rc);
    EXPECT_EQ(rc.left, rc.right);
    EXPECT_EQ(rc.top, rc.bottom);
    constexpr LONG_PTR c_iStyle = WS_CHILD | WS_CLIPCHILDREN | WS_VISIBLE;
    EXPECT_EQ(c_iStyle, GetWindowLongPtrW(hWnd, GWL_STYLE) & c_iStyle);
    wchar_t sText[64]{};
    GetClassNameW(hWnd, sText, 64);
    EXPECT_STREQ(L"CWndWorldView", sText);
    GetWindowTextW(hWnd, sText, 64);
    EXPECT_STREQ(L"", sText);
    EXPECT_EQ((CSize<int>{500, 400}), view.GetWorldSize());
}

TEST_F(WorldViewLifetime, TheClassRedrawsOnEveryChangeOfSizeAndTakesItsLooksFromTheBase)
{
    Open({500, 400}, 300, 200);
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    ASSERT_TRUE(GetClassInfoExW(m_pParent->GetInstance(), L"CWndWorldView", &windowClass));
    EXPECT_EQ(static_cast<UINT>(CS_HREDRAW | CS_VREDRAW), windowClass.style);
    EXPECT_EQ(8, windowClass.cbWndExtra);
    EXPECT_EQ(m_pParent->GetCursor(false), windowClass.hCursor);
    EXPECT_EQ(m_pParent->GetIcon(true), windowClass.hIcon);
    EXPECT_EQ(nullptr, windowClass.hbrBackground);
    EXPECT_EQ(&CWndWorldView::WndProcWrapper, windowClass.lpfnWndProc);
}

TEST_F(WorldViewLifetime, OnlyArabicIsLaidOutFromRightToLeft)
{
    Open({500, 400}, 300, 200, EnumPicDrawMode::Tiled, c_byEnglish);
    EXPECT_EQ(0, GetWindowLongPtrW(GetViewHandle(), GWL_EXSTYLE) & c_iRightToLeft);
    m_pView.reset();
    Open({500, 400}, 300, 200, EnumPicDrawMode::Tiled, c_byArabic);
    EXPECT_EQ(c_iRightToLeft, GetWindowLongPtrW(GetViewHandle(), GWL_EXSTYLE) & c_iRightToLeft);
}

TEST_F(WorldViewLifetime, WithoutAParentOrABackdropThereIsNoWindowAndNothingFails)
{
    const CBareParent parent;
    for (const CWndCommon* const pParent :
         {static_cast<const CWndCommon*>(nullptr), static_cast<const CWndCommon*>(&parent)})
    {
        CWndWorldView view(pParent, {500, 400}, m_atoms, CreateSpyFactory);
        EXPECT_EQ(nullptr, view.GetWindowHandle());
        view.SetControlPositions(-1, -1);
        view.OnEraseBackground();
        view.SetWorldBackgroundColour(c_crWorld);
        CSize<int> sizeWorld{500, 400};
        CWString sFactor(L"1");
        CWString sPercentage(L"50%");
        CWString sEmpty;
        // There is no atom set: a percentage of it means nothing.
        EXPECT_FALSE(view.InitializeSettings(sizeWorld, false, EnumAtomColourMode::Fixed, 0, sPercentage, 0, sEmpty, 0,
                                             sFactor));
        EXPECT_EQ(0, GetDirect2DSpy().iFactories);
    }
}

TEST_F(WorldViewLifetime, CreationIsWrittenToTheParentsDebugLog)
{
    Open({500, 400}, 300, 200);
    EXPECT_NE(std::wstring::npos, m_pParent->GetLog().find(L"CWndWorldView"));
    EXPECT_NE(std::wstring::npos, m_pParent->GetLog().find(L"m_hWnd"));
}

TEST_F(WorldViewLifetime, TheEndOfTheViewDestroysItsWindow)
{
    Open({500, 400}, 300, 200);
    const HWND hWnd = GetViewHandle();
    m_pView.reset();
    EXPECT_FALSE(IsWindow(hWnd));
}

TEST_F(WorldViewLifetime, BrushesGoBeforeTheTargetAndTheTargetBeforeTheFactory)
{
    Open({500, 400}, 300, 200);
    Scatter(3, 5);
    ASSERT_TRUE(Start_Speed());
    GetDirect2DSpy().closed.clear();
    m_pView.reset();
    // The fourth brush is the one with which the world picture was filled.
    EXPECT_EQ((std::vector<std::string>{"brush", "brush", "brush", "brush", "target", "factory"}),
              GetDirect2DSpy().closed);
}

TEST_F(WorldViewLifetime, AnotherThreadMayAskTheViewToDestroyItsWindow)
{
    Open({500, 400}, 300, 200);
    const HWND hWnd = GetViewHandle();
    EXPECT_EQ(0, Send(CWndWorldView::c_uDestroyMessage));
    EXPECT_FALSE(IsWindow(hWnd));
    // The object outlives its window.
    m_pView->OnEraseBackground();
    m_pView->SetControlPositions(-1, -1);
    m_pView->SetWorldBackgroundColour(0);
}

TEST_F(WorldViewLifetime, AParentThatGoesFirstTakesTheWindowAlong)
{
    Open({500, 400}, 300, 200);
    Scatter(3, 5);
    ASSERT_TRUE(Start_Speed());
    DestroyWindow(m_pParent->GetWindowHandle());
    const int iFrames = GetDirect2DSpy().iBeginDraw;
    m_pView->OnEraseBackground();
    EXPECT_EQ(iFrames, GetDirect2DSpy().iBeginDraw);
    m_pView.reset();
}

TEST_F(WorldViewLifetime, AfterTheWindowIsGoneNothingReachesTheObject)
{
    Open({500, 400}, 300, 200);
    const HWND hWnd = GetViewHandle();
    // What the system sends after WM_DESTROY is answered by the default procedure: no frame, no forwarding.
    Send(WM_DESTROY);
    m_pParent->ForgetReceived();
    EXPECT_NE(CTestParent::c_iAnswer, SendMessageW(hWnd, WM_KEYUP, VK_F11, 0));
    EXPECT_TRUE(m_pParent->GetReceived().empty());
    const int iFrames = GetDirect2DSpy().iBeginDraw;
    SendMessageW(hWnd, WM_ERASEBKGND, 0, 0);
    EXPECT_EQ(iFrames, GetDirect2DSpy().iBeginDraw);
    DestroyWindow(hWnd);
}

TEST_F(WorldViewLifetime, AWindowWithoutAnObjectGetsTheDefaultAnswers)
{
    Open({500, 400}, 300, 200);
    const HWND hOther = CreateWindowExW(0, L"CWndWorldView", L"", WS_CHILD, 0, 0, 10, 10, m_pParent->GetWindowHandle(),
                                        nullptr, m_pParent->GetInstance(), nullptr);
    ASSERT_NE(nullptr, hOther);
    EXPECT_NE(CTestParent::c_iAnswer, SendMessageW(hOther, WM_KEYUP, VK_F11, 0));
    DestroyWindow(hOther);
}

namespace
{

HRESULT ThrowInsteadOfAFactory(ID2D1Factory**)
{
    throw std::runtime_error("no factory today");
}

} // namespace

// Under the system's own message dispatch an exception would vanish or end the program: it must end in the method.
TEST_F(WorldViewLifetime, WhatIsThrownInsideAMethodIsReportedAndBecomesItsFailure)
{
    m_sizeWorld = {500, 400};
    m_pParent = std::make_unique<CTestParent>();
    m_pView = std::make_unique<CWndWorldView>(m_pParent.get(), m_sizeWorld, m_atoms, ThrowInsteadOfAFactory);
    m_pParent->GetLog().clear();
    EXPECT_FALSE(Start_Speed());
    EXPECT_NE(std::wstring::npos, m_pParent->GetLog().find(L"no factory today"));
    EXPECT_NE(std::wstring::npos, m_pParent->GetLog().find(L"InitializeSettings"));
}

// The simulation asks for frames without end: one that fails is reported, and the next one is drawn.
TEST_F(WorldViewLifetime, WhatIsThrownInsideAFrameEndsThatFrameOnly)
{
    Open({200, 150}, 300, 200);
    Scatter(3, 5);
    ASSERT_TRUE(Start_Speed());
    m_pParent->GetLog().clear();
    GetDirect2DSpy().bThrowInFrame = true;
    EXPECT_EQ(1, CWndWorldView::WndProcWrapper(GetViewHandle(), WM_ERASEBKGND, 0, 0));
    EXPECT_NE(std::wstring::npos, m_pParent->GetLog().find(L"no frame today"));
    EXPECT_NE(std::wstring::npos, m_pParent->GetLog().find(L"OnEraseBackground"));
    GetDirect2DSpy().bThrowInFrame = false;
    GetDirect2DSpy().ellipses.clear();
    Send(WM_ERASEBKGND);
    EXPECT_EQ(3U, GetDirect2DSpy().ellipses.size());
}

namespace
{

LRESULT CALLBACK ThrowInsteadOfAnAnswer(HWND, UINT, WPARAM, LPARAM)
{
    throw std::runtime_error("no answer today");
}

} // namespace

// The last guard of the window procedure itself, for what a handler lets through.
TEST_F(WorldViewLifetime, WhatAHandlerThrowsBecomesTheAnswerZero)
{
    Open({200, 150}, 300, 200);
    m_pParent->GetLog().clear();
    const HWND hParent = m_pParent->GetWindowHandle();
    const LONG_PTR iProcedure =
        SetWindowLongPtrW(hParent, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ThrowInsteadOfAnAnswer));
    EXPECT_EQ(0, CWndWorldView::WndProcWrapper(GetViewHandle(), WM_KEYUP, VK_F11, 0));
    SetWindowLongPtrW(hParent, GWLP_WNDPROC, iProcedure);
    EXPECT_NE(std::wstring::npos, m_pParent->GetLog().find(L"no answer today"));
    EXPECT_NE(std::wstring::npos, m_pParent->GetLog().find(L"CWndWorldView::WndProc"));
}
