#pragma once

#include "tests/windows/CKinetariumProbe.h"

#include <chrono>
#include <functional>
#include <string>
#include <thread>
#include <windows.h>

// Runs the whole application on a thread of its own, as its entry point would, and closes it at the end.
//
// All reading happens on the application's thread, between two of its messages.
class CRunningApplication
{
public:
    static constexpr std::chrono::seconds c_Patience{20}; // far longer than any step takes, even under load

    // Deletes the settings file first unless bKeepSettings. The log may be null.
    explicit CRunningApplication(bool bKeepSettings = false, std::wstring* pDebugLog = nullptr);
    ~CRunningApplication();
    CRunningApplication(const CRunningApplication&) = delete;
    CRunningApplication& operator=(const CRunningApplication&) = delete;

    HWND GetMain() const { return m_hMain; }
    bool IsRunning() const { return IsWindow(m_hMain) != FALSE; }

    // Runs the body on the application's thread and returns when it is done. Does nothing after the window is gone.
    void Do(const std::function<void(CKinetarium&)>& body) const;

    // Queues the body behind the messages that wait for the application now, and returns at once.
    void DoLater(std::function<void(CKinetarium&)> body) const;

    // Waits until the messages that the application has now, and those that it posts to itself, are handled and no
    // change of the world goes on; false if that does not come in time.
    bool WaitForRest() const;

    // Polls the condition on the application's thread until it holds; false if it does not hold in time.
    bool WaitUntil(const std::function<bool(CKinetarium&)>& condition) const;

    // Like WaitUntil, but on the caller's thread.
    static bool Poll(const std::function<bool()>& condition);

    bool WaitForWorker(bool bExpected) const;
    HWND FindControl(const wchar_t* sKey) const;
    std::wstring GetControlText(const wchar_t* sKey) const;
    void SetControlText(const wchar_t* sKey, const wchar_t* sText) const;
    std::wstring GetButtonText() const;

    // Presses the Start/Stop button like a click.
    void PressButton() const;

    // Clicks into the world, at a point of the main window's client area.
    void ClickWorld(int x, int y) const;

    // Closes the window like the title bar's button and waits for the end of the run; false if it did not end.
    bool Close();

    // Waits for the end of the run that something else has begun to end; false if it does not come in time.
    bool WaitForEnd();

    static std::wstring GetSettingsPath();
    static std::wstring ReadSetting(const wchar_t* sKey);
    static void WriteSetting(const wchar_t* sKey, const wchar_t* sValue);

private:
    static LRESULT CALLBACK InvokerProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam);
    void ThreadBody(std::wstring* pDebugLog, HANDLE hReady);

    HWND m_hInvoker = nullptr;
    HWND m_hMain = nullptr;
    HANDLE m_hEnded = nullptr;
    DWORD m_dwThreadId = 0;
    std::thread m_Thread;
};

// The text of any window of this process.
std::wstring GetText(HWND hWnd);
