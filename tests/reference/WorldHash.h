#pragma once

#include "simulation/CAtom.h"

#include <cstdint>
#include <span>

// A 64-bit FNV-1a hash (see CFnvHash) over the bits of every field of every atom, without the padding. Equal worlds
// have equal hashes on every machine. The radius counts as a 32-bit word.
std::uint64_t HashAtoms(std::span<const CAtom> atoms);
