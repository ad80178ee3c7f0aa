#pragma once

// From now on the process finds libraries that are loaded by name in the system's folder only: not beside the program,
// where a user may have downloaded something else, nor in the current folder, nor on the search path. Libraries that
// are loaded by their whole path are found as ever. Returns false if the system refuses.
bool SearchLibrariesInSystemFolderOnly() noexcept;
