#include "tests/view/windows/CViewTest.h"
#include "tests/view/windows/SpyFactory.h"

#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>

namespace
{

class WorldViewLifetime : public CViewTest
{
};

// An uninitialised parent, which has no backdrop.
class CBareParent final : public CWndCommon
{
};

constexpr unsigned char c_byEnglish = 7;
constexpr LONG_PTR c_iRightToLeft = WS_EX_LAYOUTRTL | WS_EX_RTLREADING | WS_EX_RIGHT;

} // namespace

TEST_F(WorldViewLifetime, TheViewIsAVisibleChildWithoutSizeUntilTheParentPlacesIt)
{
    CTestParent parent;
    const CWndWorldView view(&parent, {500, 400}, m_atoms, CreateSpyFactory);
    const HWND hWnd = view.GetWindowHandle();
    ASSERT_NE(hWnd, nullptr);
    EXPECT_EQ(GetParent(hWnd), parent.GetWindowHandle());
    RECT rc{};
    GetWindowRect(hWnd, &rc);
    EXPECT_EQ(rc.right, rc.left);
    EXPECT_EQ(rc.bottom, rc.top);
    constexpr LONG_PTR c_iStyle = WS_CHILD | WS_CLIPCHILDREN | WS_VISIBLE;
    EXPECT_EQ(GetWindowLongPtrW(hWnd, GWL_STYLE) & c_iStyle, c_iStyle);
    wchar_t sText[64]{};
    GetClassNameW(hWnd, sText, 64);
    EXPECT_STREQ(sText, L"CWndWorldView");
    GetWindowTextW(hWnd, sText, 64);
    EXPECT_STREQ(sText, L"");
    EXPECT_EQ(view.GetWorldSize(), (CSize<int>{500, 400}));
}

TEST_F(WorldViewLifetime, TheClassRedrawsOnEveryChangeOfSizeAndUsesTheBasesIconAndCursor)
{
    Open({500, 400}, 300, 200);
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    ASSERT_TRUE(GetClassInfoExW(m_pParent->GetInstance(), L"CWndWorldView", &windowClass));
    EXPECT_EQ(windowClass.style, static_cast<UINT>(CS_HREDRAW | CS_VREDRAW));
    EXPECT_EQ(windowClass.cbWndExtra, 8);
    EXPECT_EQ(windowClass.hCursor, m_pParent->GetCursor(false));
    EXPECT_EQ(windowClass.hIcon, m_pParent->GetIcon(true));
    EXPECT_EQ(windowClass.hbrBackground, nullptr);
    EXPECT_EQ(windowClass.lpfnWndProc, &CWndWorldView::WndProcWrapper);
}

TEST_F(WorldViewLifetime, ItIsLaidOutFromRightToLeftWhereItsParentsLanguageIs)
{
    Open({500, 400}, 300, 200, EnumPicDrawMode::Tiled, c_byEnglish);
    EXPECT_EQ(GetWindowLongPtrW(GetViewHandle(), GWL_EXSTYLE) & c_iRightToLeft, 0);
    m_pView.reset();
    Open({500, 400}, 300, 200, EnumPicDrawMode::Tiled, CTestParent::c_byRightToLeft);
    EXPECT_EQ(GetWindowLongPtrW(GetViewHandle(), GWL_EXSTYLE) & c_iRightToLeft, c_iRightToLeft);
}

TEST_F(WorldViewLifetime, WithoutAParentOrABackdropThereIsNoWindowAndNothingFails)
{
    const CBareParent parent;
    for (const CWndCommon* const pParent :
         {static_cast<const CWndCommon*>(nullptr), static_cast<const CWndCommon*>(&parent)})
    {
        CWndWorldView view(pParent, {500, 400}, m_atoms, CreateSpyFactory);
        EXPECT_EQ(view.GetWindowHandle(), nullptr);
        view.SetControlPositions(-1, -1);
        view.OnEraseBackground();
        view.SetWorldBackgroundColour(c_crWorld);
        CSize<int> sizeWorld{500, 400};
        CWString sFactor(L"1");
        CWString sPercentage(L"50%");
        CWString sEmpty;
        // Without an atom set a percentage is refused.
        EXPECT_FALSE(view.InitializeSettings(sizeWorld, false, EnumAtomColourMode::Fixed, 0, sPercentage, 0, sEmpty, 0,
                                             sFactor));
        EXPECT_EQ(GetDirect2DSpy().iFactories, 0);
    }
}

TEST_F(WorldViewLifetime, CreationIsWrittenToTheParentsDebugLog)
{
    Open({500, 400}, 300, 200);
    EXPECT_NE(m_pParent->GetLog().find(L"CWndWorldView"), std::wstring::npos);
    EXPECT_NE(m_pParent->GetLog().find(L"m_hWnd"), std::wstring::npos);
}

TEST_F(WorldViewLifetime, DestroyingTheViewDestroysItsWindow)
{
    Open({500, 400}, 300, 200);
    const HWND hWnd = GetViewHandle();
    m_pView.reset();
    EXPECT_FALSE(IsWindow(hWnd));
}

TEST_F(WorldViewLifetime, BrushesAreReleasedBeforeTheTargetAndTheTargetBeforeTheFactory)
{
    Open({500, 400}, 300, 200);
    Scatter(3, 5);
    ASSERT_TRUE(Start_Speed());
    GetDirect2DSpy().closed.clear();
    m_pView.reset();
    // The fourth brush filled the world.
    EXPECT_EQ(GetDirect2DSpy().closed,
              (std::vector<std::string>{"brush", "brush", "brush", "brush", "target", "factory"}));
}

TEST_F(WorldViewLifetime, AnotherThreadMayAskTheViewToDestroyItsWindow)
{
    Open({500, 400}, 300, 200);
    const HWND hWnd = GetViewHandle();
    EXPECT_EQ(Send(CWndWorldView::c_uDestroyMessage), 0);
    EXPECT_FALSE(IsWindow(hWnd));
    // The object outlives its window.
    m_pView->OnEraseBackground();
    m_pView->SetControlPositions(-1, -1);
    m_pView->SetWorldBackgroundColour(0);
}

TEST_F(WorldViewLifetime, AParentThatIsDestroyedFirstDestroysTheWindow)
{
    Open({500, 400}, 300, 200);
    Scatter(3, 5);
    ASSERT_TRUE(Start_Speed());
    DestroyWindow(m_pParent->GetWindowHandle());
    const int iFrames = GetDirect2DSpy().iBeginDraw;
    m_pView->OnEraseBackground();
    EXPECT_EQ(GetDirect2DSpy().iBeginDraw, iFrames);
    m_pView.reset();
}

TEST_F(WorldViewLifetime, AfterTheWindowIsGoneNothingReachesTheObject)
{
    Open({500, 400}, 300, 200);
    const HWND hWnd = GetViewHandle();
    // The default procedure answers messages after WM_DESTROY: no frame, no forwarding.
    Send(WM_DESTROY);
    m_pParent->ForgetReceived();
    EXPECT_NE(SendMessageW(hWnd, WM_KEYUP, VK_F11, 0), CTestParent::c_iAnswer);
    EXPECT_TRUE(m_pParent->GetReceived().empty());
    const int iFrames = GetDirect2DSpy().iBeginDraw;
    SendMessageW(hWnd, WM_ERASEBKGND, 0, 0);
    EXPECT_EQ(GetDirect2DSpy().iBeginDraw, iFrames);
    DestroyWindow(hWnd);
}

TEST_F(WorldViewLifetime, AWindowWithoutAnObjectGetsTheDefaultAnswers)
{
    Open({500, 400}, 300, 200);
    const HWND hOther = CreateWindowExW(0, L"CWndWorldView", L"", WS_CHILD, 0, 0, 10, 10, m_pParent->GetWindowHandle(),
                                        nullptr, m_pParent->GetInstance(), nullptr);
    ASSERT_NE(hOther, nullptr);
    EXPECT_NE(SendMessageW(hOther, WM_KEYUP, VK_F11, 0), CTestParent::c_iAnswer);
    DestroyWindow(hOther);
}

namespace
{

HRESULT ThrowInsteadOfAFactory(ID2D1Factory**)
{
    throw std::runtime_error("no factory today");
}

} // namespace

// In the system's message dispatch an exception would be lost or end the program, so the method must catch it.
TEST_F(WorldViewLifetime, AnExceptionInAMethodIsReportedAndTheMethodFails)
{
    m_sizeWorld = {500, 400};
    m_pParent = std::make_unique<CTestParent>();
    m_pView = std::make_unique<CWndWorldView>(m_pParent.get(), m_sizeWorld, m_atoms, ThrowInsteadOfAFactory);
    m_pParent->GetLog().clear();
    EXPECT_FALSE(Start_Speed());
    EXPECT_NE(m_pParent->GetLog().find(L"no factory today"), std::wstring::npos);
    EXPECT_NE(m_pParent->GetLog().find(L"InitializeSettings"), std::wstring::npos);
}

// The simulation requests frames continuously. A failed frame is reported, and the next one is drawn.
TEST_F(WorldViewLifetime, AnExceptionInAFrameEndsOnlyThatFrame)
{
    Open({200, 150}, 300, 200);
    Scatter(3, 5);
    ASSERT_TRUE(Start_Speed());
    m_pParent->GetLog().clear();
    GetDirect2DSpy().bThrowInFrame = true;
    EXPECT_EQ(CWndWorldView::WndProcWrapper(GetViewHandle(), WM_ERASEBKGND, 0, 0), 1);
    EXPECT_NE(m_pParent->GetLog().find(L"no frame today"), std::wstring::npos);
    EXPECT_NE(m_pParent->GetLog().find(L"OnEraseBackground"), std::wstring::npos);
    GetDirect2DSpy().bThrowInFrame = false;
    GetDirect2DSpy().ellipses.clear();
    Send(WM_ERASEBKGND);
    EXPECT_EQ(GetDirect2DSpy().ellipses.size(), 3U);
}

namespace
{

LRESULT CALLBACK ThrowInsteadOfAnAnswer(HWND, UINT, WPARAM, LPARAM)
{
    throw std::runtime_error("no answer today");
}

} // namespace

// The window procedure's own guard catches exceptions that leave a handler.
TEST_F(WorldViewLifetime, AnExceptionInAHandlerGivesTheAnswerZero)
{
    Open({200, 150}, 300, 200);
    m_pParent->GetLog().clear();
    const HWND hParent = m_pParent->GetWindowHandle();
    const LONG_PTR iProcedure =
        SetWindowLongPtrW(hParent, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ThrowInsteadOfAnAnswer));
    EXPECT_EQ(CWndWorldView::WndProcWrapper(GetViewHandle(), WM_KEYUP, VK_F11, 0), 0);
    SetWindowLongPtrW(hParent, GWLP_WNDPROC, iProcedure);
    EXPECT_NE(m_pParent->GetLog().find(L"no answer today"), std::wstring::npos);
    EXPECT_NE(m_pParent->GetLog().find(L"CWndWorldView::WndProc"), std::wstring::npos);
}
