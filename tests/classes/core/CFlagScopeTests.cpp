#include "classes/core/CFlagScope.h"

#include <gtest/gtest.h>

TEST(FlagScope, TheFlagIsSetForTheLifeOfTheScope)
{
    bool bFlag = false;
    {
        const CFlagScope scope(bFlag);
        EXPECT_TRUE(bFlag);
    }
    EXPECT_FALSE(bFlag);
}

TEST(FlagScope, TheEndOfAnInnerScopeLeavesTheFlagOfTheOuterOneSet)
{
    bool bFlag = false;
    {
        const CFlagScope outer(bFlag);
        {
            const CFlagScope inner(bFlag);
            EXPECT_TRUE(bFlag);
        }
        EXPECT_TRUE(bFlag);
    }
    EXPECT_FALSE(bFlag);
}

TEST(FlagScope, AnExceptionRestoresTheFlag)
{
    bool bFlag = false;
    try
    {
        const CFlagScope scope(bFlag);
        throw 1;
    }
    catch (int)
    {
    }
    EXPECT_FALSE(bFlag);
}
