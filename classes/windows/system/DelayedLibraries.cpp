// Linked into a program whose libraries are loaded by their first call.

#include <windows.h>

#include <delayimp.h>

namespace
{
// From here on the process searches for libraries only in the system's folder, also for those that other libraries
// need: not beside the program, where a user may have downloaded something else, nor in the current folder, nor on the
// search path. Comes before every other constructor, because that of the stack check already calls a library. If the
// system refuses, the program runs all the same.
__attribute__((constructor(101))) void SearchLibrariesInSystemFolderOnly()
{
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
}

// Loads a library in place of the run-time library, which knows no such limit. Null lets the latter go on.
FARPROC WINAPI LoadFromSystemFolder(unsigned uNote, PDelayLoadInfo pInfo)
{
    if (uNote != dliNotePreLoadLibrary)
    {
        return nullptr;
    }
    return reinterpret_cast<FARPROC>(LoadLibraryExA(pInfo->szDll, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32));
}
} // namespace

PfnDliHook __pfnDliNotifyHook2 = &LoadFromSystemFolder;
