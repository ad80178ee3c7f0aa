#include "classes/core/CrashNote.h"

#include "classes/core/CFixedText.h"

#include <atomic>
#include <cstddef>

namespace
{
constexpr std::size_t c_uNoteSize = 256;

// Double buffer: a reader sees half a note only if two more notes are set while it reads.
char g_sNotes[2][c_uNoteSize];
std::atomic<std::size_t> g_uCurrent{0};
} // namespace

void SetCrashNote(const char* sNote) noexcept
{
    const std::size_t uNext = 1 - g_uCurrent.load();
    CFixedText(g_sNotes[uNext], c_uNoteSize).Add(sNote);
    g_uCurrent.store(uNext);
}

const char* GetCrashNote() noexcept
{
    return g_sNotes[g_uCurrent.load()];
}
