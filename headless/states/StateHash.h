#pragma once

#include <cstdint>

class CAtoms;

// A fingerprint of the atoms: 64-bit FNV-1a (see CFnvHash) over the bytes of x, y, vx, vy (each a 32-bit float, lowest
// byte first) and radius (one byte) of every atom in array order. Equal states have equal hashes; different states
// almost surely have different ones.
std::uint64_t ComputeStateHash(const CAtoms& atoms);
