#pragma once

#include "classes/windows/window/CWndCommon.h"

#include <windows.h>

#include <string>
#include <vector>

struct CReceivedMessage
{
    UINT uMessage{};
    WPARAM wParam{};
    LPARAM lParam{};
};

// Stands in for the main window: a real window with a backdrop that answers the messages that the view forwards.
class CTestParent final : public CWndCommon
{
public:
    static constexpr LRESULT c_iAnswer = 77;            // to every forwarded message
    static constexpr unsigned char c_byRightToLeft = 1; // the language of that reading direction
    static constexpr int c_iLeft = 90;                  // of the client area on the screen
    static constexpr int c_iTop = 60;
    static constexpr int c_iWidth = 800;
    static constexpr int c_iHeight = 700;

    explicit CTestParent(EnumPicDrawMode eDrawMode = EnumPicDrawMode::Tiled, unsigned char byLanguage = 7);
    CTestParent(const CTestParent&) = delete;
    CTestParent& operator=(const CTestParent&) = delete;
    ~CTestParent() override;

    LRESULT WndProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam);

    const std::vector<CReceivedMessage>& GetReceived() const { return m_received; }
    void ForgetReceived() { m_received.clear(); }
    std::wstring& GetLog() { return m_sLog; }

private:
    std::wstring m_sLog;
    std::vector<CReceivedMessage> m_received;
};
