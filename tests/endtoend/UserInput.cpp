#include "tests/endtoend/UserInput.h"

#include "tests/endtoend/WaitUntil.h"

#include <initializer_list>
#include <stdexcept>
#include <vector>

namespace
{
constexpr auto c_patience = std::chrono::milliseconds(5000);
constexpr UINT c_uAnswerMilliseconds = 2000; // a program that is busy for longer counts as hanging
constexpr LONG c_iAbsoluteRange = 65535;     // the last pixel of the screen in units of absolute mouse input

void Send(std::vector<INPUT> inputs)
{
    const auto uCount = static_cast<UINT>(inputs.size());
    if (SendInput(uCount, inputs.data(), sizeof(INPUT)) != uCount)
    {
        throw std::runtime_error("the system does not accept input");
    }
}

// Rounded up, because the system rounds down when it converts back to pixels.
LONG ToAbsolute(LONG iPixel, int iScreenMetric)
{
    const LONG iLast = GetSystemMetrics(iScreenMetric) - 1;
    return (iPixel * c_iAbsoluteRange + iLast - 1) / iLast;
}

// Every input event carries its position, so that a late report of an earlier movement cannot shift it.
void SendMouse(POINT point, std::initializer_list<DWORD> flags)
{
    std::vector<INPUT> inputs;
    for (const DWORD uFlags : flags)
    {
        INPUT input{};
        input.type = INPUT_MOUSE;
        input.mi.dwFlags = uFlags | MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
        input.mi.dx = ToAbsolute(point.x, SM_CXSCREEN);
        input.mi.dy = ToAbsolute(point.y, SM_CYSCREEN);
        inputs.push_back(input);
    }
    Send(inputs);
}

bool IsMouseAt(POINT point)
{
    POINT now{};
    return GetCursorPos(&now) != FALSE && labs(now.x - point.x) <= 1 && labs(now.y - point.y) <= 1;
}
} // namespace

// Wine reports a movement to the display, and the display reports it back to Wine. For a few milliseconds an older
// position can return.
void MoveMouse(POINT point)
{
    constexpr int c_iPollsAtRest = 4;
    int iAtRest = 0;
    const std::string sPlace = std::to_string(point.x) + ", " + std::to_string(point.y);
    WaitUntil("the mouse to arrive at " + sPlace, c_patience, [&] {
        iAtRest = IsMouseAt(point) ? iAtRest + 1 : 0;
        if (iAtRest == 0)
        {
            SendMouse(point, {0});
        }
        return iAtRest == c_iPollsAtRest;
    });
}

void ClickLeft(POINT point)
{
    MoveMouse(point);
    SendMouse(point, {MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP});
}

void ClickRight(POINT point)
{
    MoveMouse(point);
    SendMouse(point, {MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP});
}

void PressKey(WORD uKey)
{
    INPUT down{};
    down.type = INPUT_KEYBOARD;
    down.ki.wVk = uKey;
    INPUT up = down;
    up.ki.dwFlags = KEYEVENTF_KEYUP;
    Send({down, up});
}

void BringToFront(HWND hWindow)
{
    if (GetForegroundWindow() == hWindow)
    {
        return;
    }
    SetForegroundWindow(hWindow);
    WaitUntil("the window to come to the front", c_patience, [&] { return GetForegroundWindow() == hWindow; });
}

std::wstring ReadText(HWND hWindow)
{
    constexpr std::size_t c_uLongest = 1024;
    std::wstring sText(c_uLongest, L'\0');
    DWORD_PTR uLength = 0;
    if (SendMessageTimeoutW(hWindow, WM_GETTEXT, sText.size(), reinterpret_cast<LPARAM>(sText.data()), SMTO_ABORTIFHUNG,
                            c_uAnswerMilliseconds, &uLength) == 0)
    {
        return {};
    }
    sText.resize(uLength);
    return sText;
}

std::string Narrow(const std::wstring& sText)
{
    std::string sResult;
    for (const wchar_t c : sText)
    {
        constexpr wchar_t c_cLastAscii = 0x7E;
        sResult += c >= L' ' && c <= c_cLastAscii ? static_cast<char>(c) : '?';
    }
    return sResult;
}
