#pragma once

// What the program is doing, in a few words for a crash report. Any thread may read it at any moment.

// Replaces the note; what is longer than 255 bytes is cut off. To be called by one thread only. Does not allocate.
void SetCrashNote(const char* sNote) noexcept;

// The last note, an empty text before the first.
const char* GetCrashNote() noexcept;
