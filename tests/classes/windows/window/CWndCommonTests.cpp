#include "classes/windows/window/CWndCommon.h"

#include "classes/core/CDataCube.h"
#include "classes/windows/system/ThreadQuit.h"
#include "tests/classes/core/CEnvironmentChange.h"
#include "tests/classes/core/CLibrarySettingsChange.h"
#include "tests/classes/windows/WindowsTestEnvironment.h"

#include <commctrl.h>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace
{
void FillTexts(CDataCube* pTexts, unsigned char byLanguage)
{
    pTexts->DeleteColumn(c_iAll);
    pTexts->AddColumn(L"IDS", c_iColumnTypeWideText, c_iAtEnd, 255, false);
    pTexts->AddColumn(L"Strings", c_iColumnTypeWideText, c_iAtEnd, 255, false);
    pTexts->AddRow(c_iAtEnd, 2, L"Start", byLanguage == 7 ? L"Start" : L"[Start]");
}

// The base class without a window.
class CPlainWindow : public CWndCommon
{
public:
    using CWndCommon::Initialize;
    bool InitializeMain(unsigned char byLanguage = 7, int iPicture = 101)
    {
        return Initialize(L"CPlainWindow", nullptr, HKEY_CURRENT_USER, nullptr, GetModuleHandleW(nullptr), FillTexts,
                          byLanguage, 104, 0, 0, iPicture, iPicture, EnumPicDrawMode::Tiled);
    }
};

void CALLBACK QuitInsideANestedPump(HWND hWnd, UINT, UINT_PTR uId, DWORD)
{
    KillTimer(hWnd, uId);
    auto* pWindow = reinterpret_cast<CTestMainWindow*>(uId);
    PostQuitMessage(0);
    EXPECT_FALSE(pWindow->OperateMessagePump(nullptr)) << "the nested pump sees the quit";
    EXPECT_FALSE(pWindow->OperateMessagePump(nullptr)) << "every later pump sees it too";
}
} // namespace

TEST(WndCommon, ThePumpReturnsTrueWithoutBlockingIfNoMessageWaits)
{
    CTestMainWindow window;
    ASSERT_TRUE(window.Create(300, 200));
    EXPECT_TRUE(window.OperateMessagePump(nullptr));
    EXPECT_TRUE(window.OperateMessagePump(nullptr));
}

TEST(WndCommon, ThePumpEndsWithItsWindowAndStaysEnded)
{
    CTestMainWindow window;
    ASSERT_TRUE(window.Create(300, 200));
    PostMessageW(window.GetWindowHandle(), WM_CLOSE, 0, 0);
    while (window.OperateMessagePump(nullptr))
    {
        WaitMessage();
    }
    EXPECT_EQ(window.GetWindowHandle(), nullptr);
    EXPECT_FALSE(window.OperateMessagePump(nullptr));
    EXPECT_FALSE(window.OperateMessagePump(nullptr));
}

TEST(WndCommon, AQuitInANestedPumpEndsTheOuterPumpToo)
{
    CTestMainWindow window;
    ASSERT_TRUE(window.Create(300, 200));
    SetTimer(window.GetWindowHandle(), reinterpret_cast<UINT_PTR>(&window), 10, QuitInsideANestedPump);
    const ULONGLONG uStart = GetTickCount64();
    bool bGoesOn = true;
    while (bGoesOn && GetTickCount64() - uStart < 10'000)
    {
        bGoesOn = window.OperateMessagePump(nullptr);
        Sleep(1);
    }
    EXPECT_FALSE(bGoesOn);
    // The quit is back in the queue, so that an outer loop of the system would see it too.
    MSG msg{};
    EXPECT_TRUE(PeekMessageW(&msg, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE));
}

// Another thread may wait for the answer; whoever waits for that thread in turn goes on pumping.
TEST(WndCommon, AfterAQuitThePumpStillAnswersTheMessagesThatOtherThreadsSend)
{
    CTestMainWindow window;
    ASSERT_TRUE(window.Create(300, 200));
    PostQuitMessage(0);
    ASSERT_FALSE(window.OperateMessagePump(nullptr));
    std::atomic<bool> bEnded{false};
    bool bAnswered = false;
    std::thread sender([&, hWnd = window.GetWindowHandle()] {
        constexpr UINT c_uPatience = 10000; // ms
        DWORD_PTR uResult = 0;
        bAnswered = SendMessageTimeoutW(hWnd, WM_GETTEXTLENGTH, 0, 0, SMTO_NORMAL, c_uPatience, &uResult) != 0;
        bEnded = true;
    });
    while (!bEnded)
    {
        EXPECT_FALSE(window.OperateMessagePump(nullptr));
    }
    sender.join();
    EXPECT_TRUE(bAnswered);
}

TEST(WndCommon, AThreadThatMakesANewMainWindowStartsOver)
{
    {
        CTestMainWindow first;
        ASSERT_TRUE(first.Create(300, 200));
        PostQuitMessage(0);
        EXPECT_FALSE(first.OperateMessagePump(nullptr));
    }
    CTestMainWindow second;
    ASSERT_TRUE(second.Create(300, 200));
    EXPECT_TRUE(second.OperateMessagePump(nullptr));
}

TEST(WndCommon, AMainWindowGetsIconsCursorsFontTextsAndBackdrop)
{
    CPlainWindow window;
    ASSERT_TRUE(window.InitializeMain());
    EXPECT_NE(window.GetIcon(true), nullptr);
    EXPECT_NE(window.GetIcon(false), nullptr);
    EXPECT_NE(window.GetIcon(true), window.GetIcon(false));
    EXPECT_EQ(window.GetCursor(false), LoadCursorW(nullptr, IDC_ARROW));
    EXPECT_EQ(window.GetCursor(true), LoadCursorW(nullptr, IDC_WAIT));
    EXPECT_NE(window.GetFont(), nullptr);
    ASSERT_NE(window.GetBackdrop(), nullptr);
    EXPECT_EQ(window.GetDrawMode(), EnumPicDrawMode::Tiled);
    EXPECT_EQ(window.GetStringResource().GetLanguage(), 7);
    EXPECT_EQ(window.GetStringResource().Get(L"Start", true).Get(), L"Start");
    EXPECT_FALSE(window.InitializeMain()) << "only once";
}

TEST(WndCommon, AMissingBackdropPictureIsReplacedByATexture)
{
    CPlainWindow window;
    ASSERT_TRUE(window.InitializeMain(7, 31999));
    ASSERT_NE(window.GetBackdrop(), nullptr);
    EXPECT_FALSE(window.GetBackdrop()->IsEmpty());
    EXPECT_FALSE(window.GetBackdrop()->IsSolid());
}

TEST(WndCommon, WithoutClassNameOrInstanceInitialisingFails)
{
    CPlainWindow window;
    const HINSTANCE hInstance = GetModuleHandleW(nullptr);
    EXPECT_FALSE(window.Initialize(nullptr, nullptr, nullptr, nullptr, hInstance, nullptr, 7, 104, 0, 0, 101, 101,
                                   EnumPicDrawMode::Tiled));
    EXPECT_FALSE(window.Initialize(L"a", nullptr, nullptr, nullptr, nullptr, nullptr, 7, 104, 0, 0, 101, 101,
                                   EnumPicDrawMode::Tiled));
    EXPECT_FALSE(window.Initialize(L"a", nullptr, hInstance)) << "a child needs a parent";
}

TEST(WndCommon, AChildInheritsTheParentsLooksButHasItsOwnDrawingRectangle)
{
    CPlainWindow parent;
    ASSERT_TRUE(parent.InitializeMain());
    CPlainWindow child;
    ASSERT_TRUE(child.Initialize(L"Child", &parent, GetModuleHandleW(nullptr)));
    EXPECT_EQ(child.GetFont(), parent.GetFont());
    EXPECT_EQ(child.GetStringResource().Get(L"Start", true).Get(), L"Start");
    const RECT rcParent{0, 0, 100, 100};
    const RECT rcChild{-10, -20, 90, 80};
    parent.GetBackdrop()->SetDrawingRect(&rcParent);
    child.GetBackdrop()->SetDrawingRect(&rcChild);
    RECT rc{};
    parent.GetBackdrop()->GetDrawingRect(&rc, false);
    EXPECT_TRUE(EqualRect(&rc, &rcParent));
}

TEST(WndCommon, TheEnvironmentChoosesTheLanguage)
{
    constexpr const char* c_sVariable = "CLASSES_TEST_LANGUAGE";
    CLibrarySettings settings;
    settings.sLanguageVariable = c_sVariable;
    const CLibrarySettingsChange change(settings);
    const struct
    {
        const char* sValue;
        unsigned char byLanguage;
    } cases[] = {{"11", 11}, {"0", 0}, {"255", 255}, {"256", 7}, {"-1", 7}, {"x", 7}, {"1 ", 7}};
    for (const auto& [sValue, byLanguage] : cases)
    {
        const CEnvironmentChange variable(c_sVariable, sValue);
        CPlainWindow window;
        ASSERT_TRUE(window.InitializeMain());
        EXPECT_EQ(window.GetStringResource().GetLanguage(), byLanguage) << sValue;
    }
}

TEST(WndCommon, WithoutTheNameOfAVariableTheEnvironmentIsNotAsked)
{
    const CLibrarySettingsChange change{CLibrarySettings()};
    const CEnvironmentChange variable("LANGUAGE", "11");
    CPlainWindow window;
    ASSERT_TRUE(window.InitializeMain());
    EXPECT_EQ(window.GetStringResource().GetLanguage(), 7);
}

TEST(WndCommon, TheReadingDirectionIsThatOfTheLanguageAndAChildTakesItsParents)
{
    constexpr unsigned char c_byRightToLeft = 200;
    CLibrarySettings settings;
    settings.pIsRightToLeft = [](unsigned char byLanguage) { return byLanguage == c_byRightToLeft; };
    const CLibrarySettingsChange change(settings);
    for (const unsigned char byLanguage : {c_byRightToLeft, static_cast<unsigned char>(1)})
    {
        CPlainWindow parent;
        ASSERT_TRUE(parent.InitializeMain(byLanguage));
        EXPECT_EQ(parent.GetStringResource().IsRightToLeft(), byLanguage == c_byRightToLeft);
        CPlainWindow child;
        ASSERT_TRUE(child.Initialize(L"Child", &parent, GetModuleHandleW(nullptr)));
        EXPECT_EQ(child.GetStringResource().IsRightToLeft(), byLanguage == c_byRightToLeft);
    }
}

TEST(WndCommon, TheWindowUnderThePointerIsReportedOnlyWhenItChanges)
{
    CTestMainWindow window;
    ASSERT_TRUE(window.Create(984, 661));
    window.AddRows();
    window.m_hovered.clear();
    const HWND hFirst = window.GetPanel().GetCtrlHandle(L"Width", 0);
    const HWND hSecond = window.GetPanel().GetCtrlHandle(L"Height", 0);
    for (const HWND hWnd : {hFirst, hFirst, hSecond, hSecond, hFirst})
    {
        PostMessageW(hWnd, WM_MOUSEMOVE, 0, MAKELPARAM(2, 2));
    }
    window.Pump();
    std::vector<HWND> announced;
    for (const HWND hWnd : window.m_hovered)
    {
        if (hWnd == hFirst || hWnd == hSecond)
        {
            announced.push_back(hWnd); // ignores windows that the real pointer enters
        }
    }
    EXPECT_EQ(announced, (std::vector<HWND>{hFirst, hSecond, hFirst}));
}

TEST(WndCommon, TheClockWritesDateAndTimeAndSendsOnlyChangedTexts)
{
    CTestMainWindow window;
    ASSERT_TRUE(window.Create(984, 661));
    window.Clock(false, false);
    window.AddStatusBar();
    window.Clock(false, false);
    const auto ReadPart = [&](WPARAM uPart) {
        wchar_t sText[128]{};
        SendMessageW(window.StatusBar(), SB_GETTEXTW, uPart, reinterpret_cast<LPARAM>(sText));
        return std::wstring(sText);
    };
    wchar_t sDate[128]{};
    GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, sDate, 128, nullptr);
    EXPECT_EQ(ReadPart(1), sDate);
    EXPECT_FALSE(ReadPart(2).empty());

    SendMessageW(window.StatusBar(), SB_SETTEXTW, 1, reinterpret_cast<LPARAM>(L"untouched"));
    window.Clock(false, false);
    EXPECT_EQ(ReadPart(1), L"untouched") << "the date has not changed, so it was not sent again";
    window.Clock(true, true);
    EXPECT_NE(ReadPart(1), L"untouched") << "another format gives another text";
}

TEST(WndCommon, TheBackdropRectangleOfAChildIsTheMainWindowsClientArea)
{
    CTestMainWindow window;
    ASSERT_TRUE(window.Create(500, 400));
    const HWND hChild = CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 30, 40, 50, 60, window.GetWindowHandle(), nullptr,
                                        nullptr, nullptr);
    const RECT rc = CWndCommon::GetBackdropRect(hChild, window.GetWindowHandle());
    const RECT rcExpected{-30, -40, 470, 360};
    EXPECT_TRUE(EqualRect(&rc, &rcExpected));
}

TEST(WndCommon, AShownMessageIsSentAndAnswered)
{
    CTestMainWindow window;
    ASSERT_TRUE(window.Create(300, 200));
    EXPECT_EQ(CWndCommon::SendMessage_Show(window.GetWindowHandle(), WM_GETTEXTLENGTH, 0, 0), 4) << "\"Test\"";
}
