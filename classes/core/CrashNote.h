#pragma once

// A short description of the program's activity for a crash report. Any thread may read it at any moment.

// Replaces the note, truncated to 255 bytes. Only one thread may call this. Does not allocate.
void SetCrashNote(const char* sNote) noexcept;

// The last note; empty before the first one.
const char* GetCrashNote() noexcept;
