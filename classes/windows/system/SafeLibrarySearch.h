#pragma once

// From now on the process searches for libraries loaded by name only in the system's folder: not beside the program,
// where a user may have downloaded something else, nor in the current folder, nor on the search path. Libraries loaded
// by their whole path are not affected. Returns false if the system refuses.
bool SearchLibrariesInSystemFolderOnly() noexcept;
