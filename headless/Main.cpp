#include "classes/core/CLibrarySettings.h"
#include "classes/core/Utf8.h"
#include "diagnostics/DebugOutputVariable.h"
#include "headless/HeadlessMain.h"
#include "headless/SystemFile.h"

#include <atomic>
#include <csignal>
#include <iostream>
#include <string>
#include <vector>

namespace
{

std::atomic<bool> g_bInterrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free, "set by a signal handler");

void Interrupt(int)
{
    g_bInterrupted = true;
}

int RunMain(const std::vector<std::string>& arguments)
{
    CLibrarySettings settings;
    settings.sProgramName = "kinetarium-headless";
    settings.sDebugOutputVariable = c_sDebugOutputVariable;
    SetLibrarySettings(settings);
    // An interrupted run removes its temporary files before it ends. If the system refuses the handler, it just ends.
    static_cast<void>(std::signal(SIGINT, &Interrupt));
    static_cast<void>(std::signal(SIGTERM, &Interrupt));
    SetStandardStreamsBinary();
    std::ios::sync_with_stdio(false);
    return HeadlessMain(arguments, CConsole{std::cout, std::cerr, IsStandardErrorTerminal(), &g_bInterrupted});
}

} // namespace

#ifdef _WIN32
// Narrow arguments could not hold every file name: the code page of the system lacks letters.
extern "C" int wmain(int count, wchar_t** pArguments)
{
    std::vector<std::string> arguments;
    for (int index = 1; index < count; ++index)
    {
        arguments.push_back(Utf8FromWide(pArguments[index]));
    }
    return RunMain(arguments);
}
#else
int main(int count, char** pArguments)
{
    return RunMain({pArguments + 1, pArguments + count});
}
#endif
