#include "classes/windows/system/Handles.h"

#include "classes/core/CKernelHandle.h"

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
}

TEST(Handles, AKernelHandleIsClosedOnceByItsLastOwner)
{
    CKernelHandle first(CreateEventW(nullptr, TRUE, TRUE, nullptr));
    const HANDLE hEvent = first.Get();
    CKernelHandle second(std::move(first));
    EXPECT_FALSE(first); // NOLINT(bugprone-use-after-move): the empty state is tested here
    EXPECT_EQ(second.Get(), hEvent);
    EXPECT_EQ(WaitForSingleObject(hEvent, 0), WAIT_OBJECT_0);
    second = CKernelHandle();
    EXPECT_FALSE(second);
    EXPECT_EQ(WaitForSingleObject(hEvent, 0), WAIT_FAILED) << "closed";
}

TEST(Handles, AnInvalidKernelHandleIsAnEmptyOne)
{
    const CKernelHandle none(INVALID_HANDLE_VALUE);
    EXPECT_FALSE(none);
    EXPECT_EQ(none.Get(), nullptr);
}

TEST(Handles, ThePreviousObjectIsSelectedAgain)
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
