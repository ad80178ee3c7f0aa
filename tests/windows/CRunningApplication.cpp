#include "tests/windows/CRunningApplication.h"

#include "app/CKinetarium.h"
#include "app/LibrarySettings_Kinetarium.h"
#include "settings/SettingsFile.h"

#include <gtest/gtest.h>

#include <future>
#include <memory>

namespace
{
constexpr const wchar_t* c_sInvokerClass = L"KinetariumTestInvoker";
constexpr UINT c_uInvoke = WM_APP;
constexpr UINT c_uInvokeLater = WM_APP + 1;
constexpr std::chrono::milliseconds c_Pause{5};
constexpr DWORD c_dwPatience = 20000; // ms

struct CInvocation
{
    const std::function<void(CKinetarium&)>* body;
    HWND hMain;
};

struct CLaterInvocation
{
    std::function<void(CKinetarium&)> body;
    HWND hMain;
};

// Does nothing after the window is gone.
void Invoke(const std::function<void(CKinetarium&)>& body, HWND hMain)
{
    auto* pApplication = reinterpret_cast<CKinetarium*>(GetWindowLongPtrW(hMain, GWLP_USERDATA));
    if (pApplication != nullptr)
    {
        body(*pApplication);
    }
}

BOOL CALLBACK FindMainWindow(HWND hWnd, LPARAM lParam)
{
    wchar_t sClass[32] = L"";
    GetClassNameW(hWnd, sClass, static_cast<int>(std::size(sClass)));
    if (std::wstring_view(sClass) != L"CKinetarium")
    {
        return TRUE;
    }
    *reinterpret_cast<HWND*>(lParam) = hWnd;
    return FALSE;
}
} // namespace

std::wstring GetText(HWND hWnd)
{
    std::wstring sText(static_cast<std::size_t>(GetWindowTextLengthW(hWnd)) + 1, L'\0');
    sText.resize(
        static_cast<std::size_t>(SendMessageW(hWnd, WM_GETTEXT, sText.size(), reinterpret_cast<LPARAM>(sText.data()))));
    return sText;
}

CRunningApplication::CRunningApplication(bool bKeepSettings, std::wstring* pDebugLog)
{
    if (!bKeepSettings)
    {
        DeleteFileW(GetSettingsPath().c_str());
    }
    SetLibrarySettings(GetLibrarySettings_Kinetarium());
    m_hEnded = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    const HANDLE hReady = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    m_Thread = std::thread([=, this] { ThreadBody(pDebugLog, hReady); });
    WaitForSingleObject(hReady, c_dwPatience);
    CloseHandle(hReady);

    // The window becomes visible at the end of its creation.
    Poll([&] {
        EnumThreadWindows(m_dwThreadId, FindMainWindow, reinterpret_cast<LPARAM>(&m_hMain));
        return m_hMain != nullptr && IsWindowVisible(m_hMain);
    });
    WaitUntil([](CKinetarium&) { return true; });
}

CRunningApplication::~CRunningApplication()
{
    EXPECT_TRUE(Close()) << "the application did not end";
    CloseHandle(m_hEnded);
}

void CRunningApplication::ThreadBody(std::wstring* pDebugLog, HANDLE hReady)
{
    m_dwThreadId = GetCurrentThreadId();
    WNDCLASSW invokerClass{};
    invokerClass.lpfnWndProc = InvokerProc;
    invokerClass.lpszClassName = c_sInvokerClass;
    RegisterClassW(&invokerClass);
    m_hInvoker = CreateWindowW(c_sInvokerClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    SetEvent(hReady);
    {
        const CKinetarium application(pDebugLog, GetModuleHandleW(nullptr));
    }
    DestroyWindow(m_hInvoker);
    SetEvent(m_hEnded);
}

LRESULT CALLBACK CRunningApplication::InvokerProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    if (uMessage == c_uInvoke)
    {
        const auto* pInvocation = reinterpret_cast<const CInvocation*>(lParam);
        Invoke(*pInvocation->body, pInvocation->hMain);
        return 0;
    }
    if (uMessage == c_uInvokeLater)
    {
        const std::unique_ptr<CLaterInvocation> pInvocation(reinterpret_cast<CLaterInvocation*>(lParam));
        Invoke(pInvocation->body, pInvocation->hMain);
        return 0;
    }
    return DefWindowProcW(hWnd, uMessage, wParam, lParam);
}

void CRunningApplication::Do(const std::function<void(CKinetarium&)>& body) const
{
    const CInvocation invocation{&body, m_hMain};
    SendMessageW(m_hInvoker, c_uInvoke, 0, reinterpret_cast<LPARAM>(&invocation));
}

void CRunningApplication::DoLater(std::function<void(CKinetarium&)> body) const
{
    auto pInvocation = std::make_unique<CLaterInvocation>(CLaterInvocation{std::move(body), m_hMain});
    if (PostMessageW(m_hInvoker, c_uInvokeLater, 0, reinterpret_cast<LPARAM>(pInvocation.get())))
    {
        static_cast<void>(pInvocation.release()); // the handler of the message deletes it
    }
}

bool CRunningApplication::WaitForRest() const
{
    // What a change posts to itself at its end stands in the queue before a question that comes after it.
    bool bRestedBefore = false;
    const auto deadline = std::chrono::steady_clock::now() + c_Patience;
    while (std::chrono::steady_clock::now() < deadline)
    {
        const auto pAnswer = std::make_shared<std::promise<bool>>();
        std::future<bool> atRest = pAnswer->get_future();
        DoLater([pAnswer](CKinetarium& application) {
            pAnswer->set_value(!CKinetariumProbe::MustRequestsWait(application));
        });
        if (atRest.wait_until(deadline) != std::future_status::ready)
        {
            return false;
        }
        const bool bAtRest = atRest.get();
        if (bAtRest && bRestedBefore)
        {
            return true;
        }
        bRestedBefore = bAtRest;
    }
    return false;
}

bool CRunningApplication::Poll(const std::function<bool()>& condition)
{
    const auto deadline = std::chrono::steady_clock::now() + c_Patience;
    while (!condition())
    {
        if (std::chrono::steady_clock::now() > deadline)
        {
            return false;
        }
        std::this_thread::sleep_for(c_Pause);
    }
    return true;
}

bool CRunningApplication::WaitUntil(const std::function<bool(CKinetarium&)>& condition) const
{
    return Poll([&] {
        bool bHolds = false;
        Do([&](CKinetarium& application) { bHolds = condition(application); });
        return bHolds;
    });
}

bool CRunningApplication::WaitForWorker(bool bExpected) const
{
    return WaitUntil([&](CKinetarium& application) {
        return CKinetariumProbe::HasWorker(application) == bExpected && !CKinetariumProbe::IsStopping(application);
    });
}

HWND CRunningApplication::FindControl(const wchar_t* sKey) const
{
    HWND hControl = nullptr;
    Do([&](CKinetarium& application) { hControl = CKinetariumProbe::GetControl(application, sKey); });
    return hControl;
}

std::wstring CRunningApplication::GetControlText(const wchar_t* sKey) const
{
    return GetText(FindControl(sKey));
}

void CRunningApplication::SetControlText(const wchar_t* sKey, const wchar_t* sText) const
{
    SendMessageW(FindControl(sKey), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(sText));
}

std::wstring CRunningApplication::GetButtonText() const
{
    HWND hButton = nullptr;
    Do([&](CKinetarium& application) { hButton = CKinetariumProbe::GetStartButton(application); });
    return GetText(hButton);
}

void CRunningApplication::PressButton() const
{
    HWND hButton = nullptr;
    Do([&](CKinetarium& application) { hButton = CKinetariumProbe::GetStartButton(application); });
    PostMessageW(hButton, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    PostMessageW(hButton, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
}

void CRunningApplication::ClickWorld(int x, int y) const
{
    PostMessageW(m_hMain, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
}

bool CRunningApplication::Close()
{
    if (!m_Thread.joinable())
    {
        return true;
    }
    PostMessageW(m_hMain, WM_CLOSE, 0, 0);
    return WaitForEnd();
}

bool CRunningApplication::WaitForEnd()
{
    if (WaitForSingleObject(m_hEnded, c_dwPatience) != WAIT_OBJECT_0)
    {
        m_Thread.detach();
        return false;
    }
    m_Thread.join();
    return true;
}

std::wstring CRunningApplication::GetSettingsPath()
{
    wchar_t sPath[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, sPath, MAX_PATH);
    std::wstring sFolder(sPath);
    return sFolder.substr(0, sFolder.rfind(L'\\') + 1) + SettingsFile::c_sFileName;
}

std::wstring CRunningApplication::ReadSetting(const wchar_t* sKey)
{
    wchar_t sValue[64] = L"";
    GetPrivateProfileStringW(SettingsFile::c_sSection, sKey, L"<missing>", sValue,
                             static_cast<DWORD>(std::size(sValue)), GetSettingsPath().c_str());
    return sValue;
}

void CRunningApplication::WriteSetting(const wchar_t* sKey, const wchar_t* sValue)
{
    WritePrivateProfileStringW(SettingsFile::c_sSection, sKey, sValue, GetSettingsPath().c_str());
}
