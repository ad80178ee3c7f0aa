#pragma once

#include "tests/packaging/CClaimedWindows.h"
#include "tests/packaging/HandedOut.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>

// The exit codes of the installer and the uninstaller.
constexpr DWORD c_uDone = 0;
constexpr DWORD c_uNotDone = 2;
constexpr DWORD c_uOldWindows = 3;
constexpr DWORD c_uRunning = 4;
constexpr DWORD c_uDoneInSubFolder = 5;

constexpr auto c_installerPatience = std::chrono::milliseconds(20000);

// A user's account without Kinetarium, before and after the test.
class CInstallerTest : public testing::Test
{
protected:
    CInstallerTest();
    ~CInstallerTest() override;

    // Installs silently; the folder comes last and without quotes, whatever blanks it has.
    DWORD Install(const std::filesystem::path& installer) const;
    // Uninstalls silently and waits for the end: with its last argument the uninstaller does not copy itself.
    DWORD Uninstall() const;

    const CClaimedWindows m_windows{BuiltInstaller(), L"win10"};
    const CClaimedWindows m_windowsOfEarlier{BuiltEarlierInstaller(), L"win10"};
    std::filesystem::path m_place;

private:
    // Removes the rest of a failed test, without the uninstaller under test.
    void Clear() const;
};
