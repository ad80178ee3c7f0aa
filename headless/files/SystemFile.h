#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

// Files by descriptor, for two things that the standard library lacks: creating a file only if none exists, and waiting
// until the bytes are on the disk. The functions return the system's error number, 0 on success.
constexpr int c_iNoFile = -1;

// The path of a UTF-8 text; on systems whose file names are plain bytes, the same bytes.
std::filesystem::path PathFromUtf8(const std::string& sPath);

// The reverse.
std::string Utf8FromPath(const std::filesystem::path& path);

// Creates a file for writing; it must not exist yet. It may be renamed and removed while it is open. bPrivate: nobody
// but the user may open it, where the system can say so. c_iNoFile on failure, with the reason in error.
int SystemFile_Create(const std::filesystem::path& path, bool bPrivate, int& error);

// Opens an existing device or pipe for writing. c_iNoFile on failure, with the reason in error.
int SystemFile_Open(const std::filesystem::path& path, int& error);

// Whether an existing device or pipe may be written, without opening it.
int SystemFile_CheckWritable(const std::filesystem::path& path);

int SystemFile_Write(int file, const char* pBytes, std::size_t uCount);

// Waits until the written bytes are on the disk; returns at once for a device or a pipe.
int SystemFile_Flush(int file);

int SystemFile_Close(int file);

// Removes a file; a signal handler may call this.
void SystemFile_Remove(const std::filesystem::path& path) noexcept;

// Whether the standard error stream is a terminal.
bool IsStandardErrorTerminal();

// Makes standard input and standard output pass line ends unchanged.
void SetStandardStreamsBinary();

// The system's text for an error number.
std::string GetErrorText(int error);
