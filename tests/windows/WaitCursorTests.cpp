#include "tests/windows/CReplacedImport.h"
#include "tests/windows/CRunningApplication.h"

#include <gtest/gtest.h>
#include <vector>

// The wait cursor while the world is filled.

namespace
{
using SetCursorFunction = HCURSOR WINAPI(HCURSOR);

struct CCursorChange
{
    HCURSOR hCursor = nullptr;
    int atoms = 0; // in the world at that moment
};

SetCursorFunction* g_pSetCursor = nullptr;
std::vector<CCursorChange> g_Changes;
const CKinetarium* g_pApplication = nullptr; // of the start that is watched; used on its thread only

HCURSOR WINAPI NoteCursor(HCURSOR hCursor)
{
    if (g_pApplication != nullptr)
    {
        g_Changes.push_back({hCursor, CKinetariumProbe::GetAtomCount(*g_pApplication)});
    }
    return g_pSetCursor(hCursor);
}
} // namespace

TEST(WaitCursor, IsShownFromBeforeTheWorldIsFilledUntilItIsFull)
{
    constexpr int c_iAtoms = 8;
    const CRunningApplication application;
    application.SetControlText(L"Tot_atoms", std::to_wstring(c_iAtoms).c_str());
    g_Changes.clear();
    g_pSetCursor = SetCursor;
    const CReplacedImport noting("SetCursor", NoteCursor);
    g_pSetCursor = noting.GetOriginal<SetCursorFunction>();
    const HCURSOR hArrow = LoadCursorW(nullptr, IDC_ARROW);
    application.Do([hArrow](CKinetarium& inside) {
        g_pSetCursor(hArrow);
        g_pApplication = &inside;
        CKinetariumProbe::Start(inside);
        g_pApplication = nullptr;
    });
    ASSERT_EQ(g_Changes.size(), 2U);
    EXPECT_EQ(g_Changes[0].hCursor, LoadCursorW(nullptr, IDC_WAIT));
    EXPECT_EQ(g_Changes[0].atoms, 0);
    EXPECT_EQ(g_Changes[1].hCursor, hArrow);
    EXPECT_EQ(g_Changes[1].atoms, c_iAtoms);
}
