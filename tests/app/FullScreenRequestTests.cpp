#include "app/FullScreenRequest.h"

#include <gtest/gtest.h>

namespace
{
using Request = EnumFullScreenRequest;

constexpr Request c_All[] = {Request::None, Request::Toggle, Request::Leave, Request::Maximise, Request::Restore};

// Whether the window is in full screen after the request.
bool Apply(Request eRequest, bool bFullScreen)
{
    switch (eRequest)
    {
    case Request::None:
        break;
    case Request::Toggle:
        return !bFullScreen;
    case Request::Leave:
    case Request::Restore:
        return false;
    case Request::Maximise:
        return true;
    }
    return bFullScreen;
}
} // namespace

TEST(FullScreenRequest, TheCombinationDoesWhatBothDoOneAfterTheOther)
{
    for (const Request eFirst : c_All)
    {
        for (const Request eSecond : c_All)
        {
            for (const bool bFullScreen : {false, true})
            {
                EXPECT_EQ(Apply(Combine(eFirst, eSecond), bFullScreen), Apply(eSecond, Apply(eFirst, bFullScreen)))
                    << static_cast<int>(eFirst) << " then " << static_cast<int>(eSecond);
            }
        }
    }
}

TEST(FullScreenRequest, OnlyARequestForThePresentStateHasNoEffect)
{
    for (const Request eRequest : {Request::None, Request::Toggle, Request::Leave, Request::Maximise})
    {
        for (const bool bFullScreen : {false, true})
        {
            EXPECT_EQ(HasEffect(eRequest, bFullScreen), Apply(eRequest, bFullScreen) != bFullScreen)
                << static_cast<int>(eRequest);
        }
    }
}

TEST(FullScreenRequest, RestoringMeansSomethingForAFramedWindowToo)
{
    EXPECT_TRUE(HasEffect(Request::Restore, false));
    EXPECT_TRUE(HasEffect(Request::Restore, true));
    EXPECT_EQ(Combine(Request::Restore, Request::Leave), Request::Restore);
    EXPECT_EQ(Combine(Request::Leave, Request::Restore), Request::Restore);
}
