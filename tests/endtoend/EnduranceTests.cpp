#include "tests/endtoend/CEndToEndTest.h"

#include <chrono>

namespace
{
constexpr auto c_patience = std::chrono::milliseconds(20000);

using Endurance = CEndToEndTest;
} // namespace

TEST_F(Endurance, ACloseRightAfterAClickIntoTheWorldEndsTheProgram)
{
    m_user.PressStart();
    m_user.ClickWorldMiddle();
    ExpectCleanClose();
}

TEST(EnduranceOfTheProcess, TheProgramStartsAndClosesDuringTheRunTenTimesInARow)
{
    constexpr int c_iStarts = 10;
    for (int iStart = 0; iStart < c_iStarts; ++iStart)
    {
        const CProgramCopy copy(BuiltProgram());
        const CDrivenProgram program(copy.GetPath());
        const CKinetariumUser user(program);
        user.PressStart();
        if (iStart % 2 == 0)
        {
            user.ClickWorldMiddle();
        }
        user.Close();
        ASSERT_EQ(program.WaitForExit(c_patience), 0U) << "start " << iStart;
    }
}
