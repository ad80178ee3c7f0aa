#include "tests/endtoend/CChance.h"

#include <algorithm>

int CChance::Choose(int iLow, int iHigh)
{
    return iLow + static_cast<int>(m_random() % static_cast<unsigned>(iHigh - iLow + 1));
}

POINT CChance::ChoosePoint(HWND hWindow)
{
    RECT rc{};
    GetClientRect(hWindow, &rc);
    MapWindowPoints(hWindow, nullptr, reinterpret_cast<POINT*>(&rc), 2);
    const auto choose = [this](LONG iLow, LONG iHigh, int iMetric) {
        const LONG iLast = GetSystemMetrics(iMetric) - 1;
        const LONG iFrom = std::clamp<LONG>(iLow, 0, iLast);
        return static_cast<LONG>(Choose(iFrom, std::clamp<LONG>(iHigh - 1, iFrom, iLast)));
    };
    const LONG iX = choose(rc.left, rc.right, SM_CXSCREEN);
    return {iX, choose(rc.top, rc.bottom, SM_CYSCREEN)};
}
