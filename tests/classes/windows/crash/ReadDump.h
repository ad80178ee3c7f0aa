#pragma once

#include <windows.h>

#include <string>
#include <vector>

// What a minidump says of itself. Throws std::runtime_error when it does not hold together.
struct CDumpContents
{
    DWORD exceptionCode = 0;
    DWORD exceptionThread = 0;
    std::size_t threads = 0;
    bool threadIsListed = false; // the thread of the exception
    std::vector<std::wstring> modules;
};
CDumpContents ReadDump(const std::string& sBytes);
