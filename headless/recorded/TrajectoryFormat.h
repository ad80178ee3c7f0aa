#pragma once

#include "headless/recorded/IFrameFormat.h"

#include <cstdint>
#include <memory>

// Frames in the extended XYZ format: the number of atoms, a line with the size of the world, the columns, the iteration
// and the seed, then a line for each atom in array order. Floats are in the shortest form that reads back to the same
// bits, z is 0, and the cell is one unit deep, so that its volume is the area of the world. bGzip: each frame becomes
// one member of a gzip file, so that the file can go on behind any frame.
std::unique_ptr<IFrameFormat> MakeTrajectoryFormat(std::uint64_t uSeed, bool bGzip);
