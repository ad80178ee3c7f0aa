#include "app/CKinetarium.h"
#include "tests/windows/CMemoryFault.h"
#include "tests/windows/FaultTesting.h"

#include <atomic>
#include <gtest/gtest.h>
#include <stdexcept>

// An unexpected exception is thrown on the worker or while drawing. The program reports it to its log and must be as
// usable as before.

namespace
{
constexpr std::size_t c_uLogSize = std::size_t{1} << 20;
constexpr std::size_t c_uSomeBytes = 100'000; // only the cells' lists of 20,000 atoms are larger

std::atomic<bool> g_bThrows{false};
std::atomic<int> g_iThrown{0};

// While an object of this class exists, no picture can be created.
class CThrowing
{
public:
    CThrowing()
    {
        g_iThrown = 0;
        g_bThrows = true;
    }
    ~CThrowing() { g_bThrows = false; }
    CThrowing(const CThrowing&) = delete;
    CThrowing& operator=(const CThrowing&) = delete;
};

HBITMAP WINAPI ThrowInsteadOfBitmap(HDC hDc, int cx, int cy)
{
    if (g_bThrows)
    {
        ++g_iThrown;
        throw std::runtime_error("no picture today");
    }
    return CreateBitmap(cx, cy, static_cast<UINT>(GetDeviceCaps(hDc, PLANES)),
                        static_cast<UINT>(GetDeviceCaps(hDc, BITSPIXEL)), nullptr);
}

// The view's frame. Without one of its own the view draws as other windows do.
HBITMAP WINAPI ThrowInsteadOfSection(HDC, const BITMAPINFO*, UINT, void**, HANDLE, DWORD)
{
    if (g_bThrows)
    {
        ++g_iThrown;
        throw std::runtime_error("no picture today");
    }
    return nullptr;
}

std::size_t CountOf(const std::wstring& sText, const std::wstring& sPart)
{
    std::size_t uCount = 0;
    for (std::size_t uPlace = sText.find(sPart); uPlace != std::wstring::npos; uPlace = sText.find(sPart, uPlace + 1))
    {
        ++uCount;
    }
    return uCount;
}

// A debug log that never reallocates while the worker writes to it.
std::wstring MakeLog()
{
    std::wstring sLog;
    sLog.reserve(c_uLogSize);
    return sLog;
}
} // namespace

// The first iteration allocates the lists of the cells.
TEST(UnexpectedExceptions, AnExceptionInTheIterationEndsTheRunAndTheButtonStillStopsAndStarts)
{
    std::wstring sLog = MakeLog();
    {
        CRunningApplication application(false, &sLog);
        application.SetControlText(L"Tot_atoms", L"20000");
        application.Do([&](CKinetarium& inside) {
            const CMemoryFault fault(CMemoryFault::EnumWhere::OtherThreads, c_uSomeBytes);
            CKinetariumProbe::Start(inside);
            EXPECT_TRUE(CRunningApplication::Poll([&] { return CKinetariumProbe::IsWorkerFinished(inside); }));
            EXPECT_EQ(fault.GetCount(), 1u);
            EXPECT_TRUE(CKinetariumProbe::HasWorker(inside));
        });
        EXPECT_EQ(application.GetButtonText(), L"Stop");
        application.PressButton();
        EXPECT_TRUE(application.WaitForWorker(false));
        EXPECT_EQ(application.GetButtonText(), L"Start");
        ExpectUsable(application);
        EXPECT_TRUE(application.Close());
    }
    EXPECT_EQ(CountOf(sLog, L"Exception: std::bad_alloc"), 1u);
}

TEST(UnexpectedExceptions, AnExceptionWhileDrawingEndsOnlyItsFrame)
{
    std::wstring sLog = MakeLog();
    {
        CRunningApplication application(false, &sLog);
        const CReplacedImport replaced("CreateCompatibleBitmap", ThrowInsteadOfBitmap);
        const CReplacedImport replacedFrame("CreateDIBSection", ThrowInsteadOfSection);
        application.SetControlText(L"Tot_atoms", L"8");
        {
            const CThrowing throwing;
            Start(application);
            EXPECT_TRUE(CRunningApplication::Poll([] { return g_iThrown > 10; }));
            SendMessageW(application.GetMain(), WM_SIZE, 0, 0);
            EXPECT_EQ(SendMessageW(application.GetMain(), WM_ERASEBKGND, 0, 0), 1);
            EXPECT_TRUE(HasWorker(application));
        }
        EXPECT_TRUE(WaitForFrames(application));
        Stop(application);
        ExpectUsable(application);
        EXPECT_TRUE(application.Close());
    }
    EXPECT_GT(CountOf(sLog, L"Exception: std::runtime_error \"no picture today\""), 10u);
    EXPECT_GT(CountOf(sLog, L"CWndWorldView::OnEraseBackground"), 1u);
    EXPECT_GT(CountOf(sLog, L"CKinetarium::OnEraseBackground"), 0u);
}
