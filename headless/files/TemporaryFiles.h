#pragma once

#include <filesystem>

// The temporary files of this process, so that a signal can remove them before it ends the program. One thread makes
// them.

// Creates one for writing, like SystemFile_Create.
int CreateTemporaryFile(const std::filesystem::path& path, bool bPrivate, int& error);

// From now on a signal leaves the file. For a file that was renamed or removed; an unknown path is ignored.
void ForgetTemporaryFile(const std::filesystem::path& path) noexcept;

// Removes all of them. A signal handler may call this in the thread that makes the files, on Windows in any thread.
void RemoveTemporaryFiles() noexcept;
