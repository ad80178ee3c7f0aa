#pragma once

#include <windows.h>

#include <string>
#include <vector>

// The facts that the tests read from a minidump. Throws std::runtime_error if the dump is inconsistent.
struct CDumpContents
{
    DWORD exceptionCode = 0;
    DWORD exceptionThread = 0;
    std::size_t threads = 0;
    bool threadIsListed = false; // the thread of the exception
    std::vector<std::wstring> modules;
};
CDumpContents ReadDump(const std::string& sBytes);
