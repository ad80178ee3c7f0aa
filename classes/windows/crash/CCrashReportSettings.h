#pragma once

#include <string>

// Which build a crash report is about, and where it goes. The program's name is in CLibrarySettings.
struct CCrashReportSettings
{
    std::wstring folder; // with its last backslash
    std::string version;
    std::string build;
};
