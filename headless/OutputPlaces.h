#pragma once

#include <cstdint>

struct COptions;

// Refuses an output that would replace another output or an input of the same run. Files are compared, not names: a
// link, another path and, on Windows, other letters of the same name lead to the same file. The pictures of
// --picture-every count one by one, and so does the file that standard output was redirected to, where the system tells
// it. The last iteration is that of the whole run. Throws CUsageError.
void CheckOutputPlaces(const COptions& options, std::uint64_t uLastIteration);
