#pragma once

#include "classes/core/CRandom.h"
#include "headless/states/RunProgress.h"
#include "settings/CSettings.h"

#include <cstdint>
#include <istream>
#include <string>

class CAtoms;
struct IByteSink;

// Everything that a run needs to go on to the bit, beside its atoms.
struct CCheckpoint
{
    CSettings settings;
    std::string start; // where the atoms came from, for the summary
    std::uint64_t seed{};
    CRandom::CState random{};
    std::uint64_t iterations{};     // done so far
    std::uint64_t collisions{};     // of all these iterations
    double startSpeedSum{};         // before the first iteration, world units per iteration
    std::uint32_t lastCollisions{}; // of the last of them
    CRunProgress progress;
};

// A checkpoint file, in binary. Whole numbers and the bits of floats are stored lowest byte first, a text as its number
// of bytes (32 bits) and its bytes in UTF-8:
//
//   8 bytes      0x89 "KINCP" CR LF, which no text file begins with and no conversion of line ends leaves alone
//   32 bits      the version of the format, 2
//   64 bits      the length of the whole file, in bytes
//   settings     width, height, atoms, smallest and largest radius, mode (0 fixed, 1 speed), background and the three
//                colours as 32 bits each; the three factors as texts
//   run          start as text; seed, iterations, collisions, bits of the sum of the speeds as 64 bits each; the
//                collisions of the last iteration as 32 bits
//   observers    their number as 32 bits; for each, sorted by it, the option as text, the next iteration as 64 bits,
//                its progress as text
//   random       313 words of 64 bits, see CRandom::CState
//   atoms        their number as 32 bits; for each x, y, speed, vx, vy as 32 bits and the radius as one byte
//   64 bits      CFnvHash of all bytes before
//
// A new version of the format gets another number.

// Writes it; the caller commits. Throws CHeadlessError for a value that is not finite, which no reader would accept.
void WriteCheckpoint(const CCheckpoint& checkpoint, const CAtoms& atoms, IByteSink& sink);

// Reads a binary stream, replaces the atoms and computes their velocity statistics; sName is the file's name in
// messages. Throws CHeadlessError for a file that is no checkpoint, is cut off, damaged, or holds a value that no run
// has; the atoms are then unchanged.
CCheckpoint ReadCheckpoint(std::istream& stream, const std::string& sName, CAtoms& atoms);

// The same for a file; sPath is UTF-8.
CCheckpoint ReadCheckpointFile(const std::string& sPath, CAtoms& atoms);
