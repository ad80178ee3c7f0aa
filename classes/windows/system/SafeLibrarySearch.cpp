#include "classes/windows/system/SafeLibrarySearch.h"

#include <windows.h>

bool SearchLibrariesInSystemFolderOnly() noexcept
{
    return SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32) != FALSE;
}
