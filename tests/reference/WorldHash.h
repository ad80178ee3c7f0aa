#pragma once

#include "simulation/CAtom.h"

#include <cstdint>
#include <span>

// A 64-bit hash (FNV-1a) of every field of every atom, bit for bit and without the padding: equal worlds give equal
// hashes on every machine.
std::uint64_t HashAtoms(std::span<const CAtom> atoms);
