#pragma once

#include "tests/endtoend/CDrivenProgram.h"
#include "tests/endtoend/CKinetariumUser.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

// The program of the build tree that the test program lies in.
std::filesystem::path BuiltProgram();

// A fresh copy of the program with the default settings, running, and someone who uses it.
class CEndToEndTest : public testing::Test
{
protected:
    CEndToEndTest() : m_copy(BuiltProgram()), m_program(m_copy.GetPath()), m_user(m_program) {}

    // In full screen the world has the place of the status bar too.
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
