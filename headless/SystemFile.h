#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

// The system's files by number, for what the standard library leaves out: creating only where nothing is, and making
// sure that the bytes have arrived. A failure is reported as the system's error number, 0 means success.
constexpr int c_iNoFile = -1;

// The path that a text in UTF-8 names; on systems whose file names are plain bytes these bytes.
std::filesystem::path PathFromUtf8(const std::string& sPath);

// Opens a file for writing, which must not exist yet. c_iNoFile on failure, with the reason in error.
int SystemFile_Create(const std::filesystem::path& path, int& error);

// Opens something that exists (a device, a pipe) for writing. c_iNoFile on failure, with the reason in error.
int SystemFile_Open(const std::filesystem::path& path, int& error);

int SystemFile_Write(int file, const char* pBytes, std::size_t uCount);

// Waits until what was written is on the disk; something that is no disk has nothing to wait for.
int SystemFile_Flush(int file);

int SystemFile_Close(int file);

// Whether the standard error stream is a terminal.
bool IsStandardErrorTerminal();

// Line ends go to standard output as they are.
void SetStandardOutputBinary();

// The system's text for an error number.
std::string GetErrorText(int error);
