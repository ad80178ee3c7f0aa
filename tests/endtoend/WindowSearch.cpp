#include "tests/endtoend/WindowSearch.h"

#include <algorithm>
#include <array>

namespace
{
BOOL CALLBACK VisitWindow(HWND hWindow, LPARAM iVisit)
{
    // The visitor returns whether to continue.
    return (*reinterpret_cast<const WindowPredicate*>(iVisit))(hWindow) ? TRUE : FALSE;
}

// A visitor that stops at the first match.
WindowPredicate StopAt(const WindowPredicate& isWanted, HWND& hFound)
{
    return [&](HWND hWindow) {
        hFound = isWanted(hWindow) ? hWindow : nullptr;
        return hFound == nullptr;
    };
}
} // namespace

std::wstring ClassOf(HWND hWindow)
{
    constexpr int c_iLongest = 64;
    std::array<wchar_t, c_iLongest> name{};
    GetClassNameW(hWindow, name.data(), c_iLongest);
    return name.data();
}

HWND FindTopWindow(const WindowPredicate& isWanted)
{
    HWND hFound = nullptr;
    const WindowPredicate visit = StopAt(isWanted, hFound);
    EnumWindows(VisitWindow, reinterpret_cast<LPARAM>(&visit));
    return hFound;
}

HWND FindDescendant(HWND hParent, const WindowPredicate& isWanted)
{
    HWND hFound = nullptr;
    const WindowPredicate visit = StopAt(isWanted, hFound);
    EnumChildWindows(hParent, VisitWindow, reinterpret_cast<LPARAM>(&visit));
    return hFound;
}

HWND FindDescendantByClass(HWND hParent, const std::wstring& sClass)
{
    return FindDescendant(hParent, [&](HWND hWindow) { return ClassOf(hWindow) == sClass; });
}

HWND FindDialogOf(HWND hOwner)
{
    return FindTopWindow([&](HWND hWindow) {
        return GetWindow(hWindow, GW_OWNER) == hOwner && IsWindowVisible(hWindow) != FALSE &&
               ClassOf(hWindow) == L"#32770";
    });
}

std::vector<HWND> CollectDescendants(HWND hParent, const WindowPredicate& isWanted)
{
    std::vector<HWND> windows;
    const WindowPredicate visit = [&](HWND hWindow) {
        if (isWanted(hWindow))
        {
            windows.push_back(hWindow);
        }
        return true;
    };
    EnumChildWindows(hParent, VisitWindow, reinterpret_cast<LPARAM>(&visit));
    return windows;
}

POINT MiddleOf(const RECT& rc)
{
    return {(rc.left + rc.right) / 2, (rc.top + rc.bottom) / 2};
}

POINT MiddleOf(HWND hWindow)
{
    RECT rc{};
    GetWindowRect(hWindow, &rc);
    return MiddleOf(rc);
}

POINT OnScreen(POINT point)
{
    return {std::clamp<LONG>(point.x, 0, GetSystemMetrics(SM_CXSCREEN) - 1),
            std::clamp<LONG>(point.y, 0, GetSystemMetrics(SM_CYSCREEN) - 1)};
}
