#include "classes/core/CLibrarySettings.h"
#include "classes/core/Utf8.h"
#include "diagnostics/DebugOutputVariable.h"
#include "headless/files/Interruption.h"
#include "headless/files/SystemFile.h"
#include "headless/HeadlessMain.h"

#include <atomic>
#include <iostream>
#include <string>
#include <vector>

namespace
{

int RunMain(const std::vector<std::string>& arguments)
{
    CLibrarySettings settings;
    settings.sProgramName = "kinetarium-headless";
    settings.sDebugOutputVariable = c_sDebugOutputVariable;
    SetLibrarySettings(settings);
    const std::atomic<int>& exitCode = WatchForInterruption();
    SetStandardStreamsBinary();
    std::ios::sync_with_stdio(false);
    return HeadlessMain(arguments, CConsole{std::cout, std::cerr, IsStandardErrorTerminal(), &exitCode});
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
