// Demonstrates the program without a person: starts it, presses Start, reads the statistics lines, takes a picture,
// presses Stop and closes the window.

#include "tests/endtoend/CDrivenProgram.h"
#include "tests/endtoend/CKinetariumUser.h"
#include "tests/endtoend/CScreenPicture.h"

#include <CLI/CLI.hpp>

#include <chrono>
#include <exception>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string>

namespace
{
constexpr int c_iFewestLines = 2;
constexpr auto c_endPatience = std::chrono::milliseconds(20000);
constexpr int c_iLongestSeconds = 24 * 60 * 60;

void Say(const std::string& sText)
{
    std::cout << sText << std::endl; // flushed, so that it appears at once
}

// Prints statistics lines until there are enough and the time is over.
void WatchStatistics(const CKinetariumUser& user, std::chrono::seconds atLeast)
{
    const auto end = std::chrono::steady_clock::now() + atLeast;
    CStatistics last;
    for (int iLines = 0; iLines < c_iFewestLines || std::chrono::steady_clock::now() < end; ++iLines)
    {
        last = user.WaitForStatistics(last.iterations);
        Say(std::string(last.line.begin(), last.line.end())); // the line is pure ASCII
    }
}

void Demonstrate(const std::filesystem::path& program, const std::filesystem::path& picture,
                 std::chrono::seconds atLeast)
{
    // A copy starts with the default settings; the program's own settings file is ignored.
    const CProgramCopy copy(program);
    Say("Starting " + program.filename().string());
    const CDrivenProgram process(copy.GetPath());
    const CKinetariumUser user(process);
    Say("Pressing Start");
    user.PressStart();
    user.RestMouse();
    WatchStatistics(user, atLeast);
    if (!picture.empty())
    {
        CScreenPicture(user.GetWindowRectangle()).SavePng(picture);
        Say("Saved the picture of the window");
    }
    Say("Pressing Stop");
    user.PressStop();
    Say("Closing the window");
    user.Close();
    if (const DWORD uExitCode = process.WaitForExit(c_endPatience); uExitCode != 0)
    {
        throw std::runtime_error("the program ended with exit code " + std::to_string(uExitCode));
    }
}
} // namespace

int main(int iArguments, char** ppArguments)
{
    std::string sProgram;
    std::string sPicture;
    int iSeconds = 0;
    CLI::App app("Starts Kinetarium, presses Start, prints its statistics lines, presses Stop and closes it.");
    app.add_option("program", sProgram, "Kinetarium.exe")->required()->check(CLI::ExistingFile);
    app.add_option("--screenshot", sPicture, "PNG file for a picture of the running program's window");
    app.add_option("--seconds", iSeconds, "run at least this long")->check(CLI::Range(0, c_iLongestSeconds));
    CLI11_PARSE(app, iArguments, ppArguments);
    try
    {
        const auto picture = sPicture.empty() ? std::filesystem::path() : std::filesystem::absolute(sPicture);
        Demonstrate(std::filesystem::absolute(sProgram), picture, std::chrono::seconds(iSeconds));
    }
    catch (const std::exception& error)
    {
        std::cerr << "error: " << error.what() << std::endl;
        return 1;
    }
    return 0;
}
