#include "tests/endtoend/Keyboard.h"

#include "tests/endtoend/UserInput.h"

#include <stdexcept>
#include <vector>

namespace
{
constexpr int c_iShiftBit = 1; // of the shift state that belongs to a character
constexpr int c_iOtherShifts = 6;

INPUT MakeKey(WORD uKey, DWORD uFlags)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = uKey;
    // Programs also read a key's scan code, to distinguish a first press from a repeated one.
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(uKey, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = uFlags;
    return input;
}

void Send(std::vector<INPUT> inputs)
{
    const auto uCount = static_cast<UINT>(inputs.size());
    if (SendInput(uCount, inputs.data(), sizeof(INPUT)) != uCount)
    {
        throw std::runtime_error("the system does not accept input");
    }
}
} // namespace

void PressKeyWith(WORD uHeld, WORD uKey)
{
    Send({MakeKey(uHeld, 0), MakeKey(uKey, 0), MakeKey(uKey, KEYEVENTF_KEYUP), MakeKey(uHeld, KEYEVENTF_KEYUP)});
}

void TypeText(const std::wstring& sText)
{
    for (const wchar_t c : sText)
    {
        const SHORT iKey = VkKeyScanW(c);
        if (iKey == -1 || (HIBYTE(iKey) & c_iOtherShifts) != 0)
        {
            throw std::runtime_error("the keyboard has no such character");
        }
        const WORD uKey = LOBYTE(iKey);
        if ((HIBYTE(iKey) & c_iShiftBit) != 0)
        {
            PressKeyWith(VK_SHIFT, uKey);
        }
        else
        {
            PressKey(uKey);
        }
    }
}

void TurnWheel(POINT point, int iNotches)
{
    MoveMouse(point);
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = MOUSEEVENTF_WHEEL;
    input.mi.mouseData = static_cast<DWORD>(iNotches) * WHEEL_DELTA;
    Send({input});
}
