#pragma once

// The number of processors that this process may use (its affinity), at least 1.
int CountUsableProcessors();
