#include "classes/windows/system/Handles.h"

#include <gtest/gtest.h>

#include <utility>

TEST(Handles, AMovedFromHandleIsEmptyAndTheOldObjectIsClosed)
{
    CBrushHandle first(CreateSolidBrush(0));
    const HBRUSH hFirst = first.Get();
    CBrushHandle second(std::move(first));
    EXPECT_EQ(second.Get(), hFirst);
    second = CBrushHandle(CreateSolidBrush(1));
    EXPECT_EQ(GetObjectType(hFirst), 0u) << "deleted";
    EXPECT_FALSE(CKernelHandle(INVALID_HANDLE_VALUE));
    CKernelHandle event(CreateEventW(nullptr, TRUE, TRUE, nullptr));
    EXPECT_EQ(WaitForSingleObject(event.Get(), 0), WAIT_OBJECT_0);
}

TEST(Handles, ASelectedObjectIsPutBack)
{
    const CMemoryDc dc(nullptr);
    const CBrushHandle brush(CreateSolidBrush(RGB(1, 2, 3)));
    const HGDIOBJ hBefore = GetCurrentObject(dc.Get(), OBJ_BRUSH);
    {
        const CSelectObject selected(dc.Get(), brush.Get());
        EXPECT_EQ(GetCurrentObject(dc.Get(), OBJ_BRUSH), brush.Get());
    }
    EXPECT_EQ(GetCurrentObject(dc.Get(), OBJ_BRUSH), hBefore);
}
