#pragma once

#include "classes/core/CFixedText.h"
#include "classes/core/CrashFiles.h"

#include <cstdint>

// The words of a crash report. Nothing in here allocates, throws or asks the system.

inline constexpr std::size_t c_uModuleNameSize = 64;

// A place in the program or in one of its libraries. A module without a name: the address lies in none.
struct CCrashPlace
{
    char module[c_uModuleNameSize] = {};
    std::uint64_t offset = 0; // from the module's start, the same in every run
    std::uint64_t address = 0;
};

// A fault of the processor as the system tells of it.
struct CFault
{
    std::uint32_t code = 0;
    std::uint32_t detailCount = 0;
    std::uint64_t details[2] = {};
};

// What a report tells. Texts may be null, which leaves their line out.
struct CCrashFacts
{
    const char* program = nullptr;
    const char* version = nullptr;
    const char* build = nullptr;
    CCrashTime time;
    const char* error = nullptr; // what happened, in one line
    CCrashPlace place;
    std::uint32_t thread = 0;
    bool mainThread = false;
    const char* activity = nullptr; // what the program was doing
    const char* system = nullptr;
    const char* processor = nullptr;
    std::uint64_t memoryTotal = 0; // bytes: of the machine,
    std::uint64_t memoryFree = 0;  // free there,
    std::uint64_t memoryOwn = 0;   // and taken by the program
};

// "access violation (0xc0000005) writing to address 0x10", for a code without a name "fault (0xe0001234)".
void AddFault(CFixedText& text, const CFault& fault) noexcept;

// "Program.exe+0x1234", or the bare address.
void AddCrashPlace(CFixedText& text, const CCrashPlace& place) noexcept;

// The report up to the stack trace, with the line ends of a Windows text file.
void AddCrashReport(CFixedText& text, const CCrashFacts& facts) noexcept;
