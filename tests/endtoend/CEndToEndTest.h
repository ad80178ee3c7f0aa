#pragma once

#include "tests/endtoend/CDrivenProgram.h"
#include "tests/endtoend/CKinetariumUser.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

// The program from the test program's own build tree.
std::filesystem::path BuiltProgram();

// A running fresh copy of the program with the default settings, and a simulated user.
class CEndToEndTest : public testing::Test
{
protected:
    CEndToEndTest() : m_copy(BuiltProgram()), m_program(m_copy.GetPath()), m_user(m_program) {}

    // In full screen the status bar is hidden.
    bool IsFullScreen() const { return IsWindowVisible(m_user.GetStatusBar()) == FALSE; }

    // Closes the window and expects a clean end.
    void ExpectCleanClose() const
    {
        constexpr auto c_patience = std::chrono::milliseconds(20000);
        m_user.Close();
        EXPECT_EQ(m_program.WaitForExit(c_patience), 0U);
    }

    CProgramCopy m_copy;
    CDrivenProgram m_program;
    CKinetariumUser m_user;
};
