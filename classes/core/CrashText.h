#pragma once

#include "classes/core/CFixedText.h"
#include "classes/core/CrashFiles.h"

#include <cstdint>

// The text of a crash report. Nothing here allocates, throws or calls the system.

inline constexpr std::size_t c_uModuleNameSize = 64;

// A place in the program or in one of its libraries. If the module has no name, the address lies in no module.
struct CCrashPlace
{
    char module[c_uModuleNameSize] = {};
    std::uint64_t offset = 0; // from the module's start, the same in every run
    std::uint64_t address = 0;
};

// A processor fault as the system reports it.
struct CFault
{
    std::uint32_t code = 0;
    std::uint32_t detailCount = 0;
    std::uint64_t details[2] = {};
};

// The contents of a report. If a text is null, the report omits its line.
struct CCrashFacts
{
    const char* program = nullptr;
    const char* version = nullptr;
    const char* build = nullptr;
    CCrashTime time;
    const char* error = nullptr; // one line
    CCrashPlace place;
    std::uint32_t thread = 0;
    bool mainThread = false;
    const char* activity = nullptr; // the crash note
    const char* system = nullptr;
    const char* processor = nullptr;
    std::uint64_t memoryTotal = 0; // bytes: of the machine,
    std::uint64_t memoryFree = 0;  // free there,
    std::uint64_t memoryOwn = 0;   // and taken by the program
};

// "access violation (0xc0000005) writing to address 0x10"; an unknown code gives "fault (0xe0001234)".
void AddFault(CFixedText& text, const CFault& fault) noexcept;

// "Program.exe+0x1234", or the bare address.
void AddCrashPlace(CFixedText& text, const CCrashPlace& place) noexcept;

// The report up to the stack trace, with the line ends of a Windows text file.
void AddCrashReport(CFixedText& text, const CCrashFacts& facts) noexcept;
