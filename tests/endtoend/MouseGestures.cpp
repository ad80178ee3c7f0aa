#include "tests/endtoend/MouseGestures.h"

#include "tests/endtoend/UserInput.h"

#include <stdexcept>

namespace
{
constexpr int c_iDragSteps = 4;
constexpr DWORD c_uStepMilliseconds = 15; // gives the window under the mouse time to follow

void SendButton(DWORD uFlags, int iWheel = 0)
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = uFlags;
    input.mi.mouseData = static_cast<DWORD>(iWheel);
    if (SendInput(1, &input, sizeof(input)) != 1)
    {
        throw std::runtime_error("the system does not accept input");
    }
}
} // namespace

void DragLeft(POINT from, POINT to)
{
    MoveMouse(from);
    SendButton(MOUSEEVENTF_LEFTDOWN);
    for (int iStep = 1; iStep <= c_iDragSteps; ++iStep)
    {
        SetCursorPos(from.x + (to.x - from.x) * iStep / c_iDragSteps, from.y + (to.y - from.y) * iStep / c_iDragSteps);
        Sleep(c_uStepMilliseconds);
    }
    SendButton(MOUSEEVENTF_LEFTUP);
}

void DoubleClickLeft(POINT point)
{
    ClickLeft(point);
    SendButton(MOUSEEVENTF_LEFTDOWN);
    SendButton(MOUSEEVENTF_LEFTUP);
}

void RollWheel(POINT point, int iDelta)
{
    MoveMouse(point);
    SendButton(MOUSEEVENTF_WHEEL, iDelta);
}
