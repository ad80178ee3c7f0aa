#pragma once

#include <string>

// The build that a crash report is about, and the folder of the report. The program's name is in CLibrarySettings.
struct CCrashReportSettings
{
    std::wstring folder; // with its last backslash
    std::string version;
    std::string build;
};
