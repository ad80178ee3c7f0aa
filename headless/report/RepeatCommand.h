#pragma once

#include <cstdint>
#include <string>

struct CRunResults;
struct CSettings;

enum class EnumShell : std::uint8_t
{
    Posix,
    Windows // PowerShell, and cmd.exe where it can
};

// The shell that the users of this build have.
#ifdef _WIN32
constexpr EnumShell c_eShell = EnumShell::Windows;
#else
constexpr EnumShell c_eShell = EnumShell::Posix;
#endif

// An argument as it has to be written in a command so that the program gets sText. On POSIX systems, where a text may
// hold control characters and bytes that are no UTF-8, these are written as \xNN in $'...', which bash, zsh and ksh
// read.
std::string QuoteForShell(const std::string& sText, EnumShell eShell);

// The command that gives the same world again to the bit, and the same colours. It names every setting, so that a later
// version with other defaults repeats the run too. A run that began with a state needs the same file.
std::string MakeRepeatCommand(const CSettings& settings, const CRunResults& results, EnumShell eShell);
