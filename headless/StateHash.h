#pragma once

#include <cstdint>

class CAtoms;

// A fingerprint of the atoms: 64-bit FNV-1a (start 14695981039346656037, factor 1099511628211) over the bytes of x, y,
// vx, vy (each a 32-bit float, lowest byte first) and radius (one byte) of every atom in array order. Two states have
// the same hash if, and almost surely only if, they are the same to the bit.
std::uint64_t ComputeStateHash(const CAtoms& atoms);
