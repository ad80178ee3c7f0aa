#include "app/VersionLine.h"

#include <windows.h>

#include <string_view>

namespace
{
constexpr std::string_view c_sLine = "Kinetarium " KINETARIUM_VERSION "\r\n";
} // namespace

void WriteVersionLine()
{
    // A program with a window has no standard output unless the caller redirects it.
    if (GetStdHandle(STD_OUTPUT_HANDLE) == nullptr)
    {
        AttachConsole(ATTACH_PARENT_PROCESS);
    }
    DWORD uWritten = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), c_sLine.data(), static_cast<DWORD>(c_sLine.size()), &uWritten, nullptr);
}
