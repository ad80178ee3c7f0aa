#pragma once

#include <istream>
#include <string>

class CAtoms;
struct IByteSink;

// State files: CSV with the header "x,y,vx,vy,radius" and one atom a row, in array order. Floats have the shortest
// decimal form that reads back to the same bits, radii are whole numbers 1..255. The file stores neither the speed,
// which is the length of the velocity, nor the size of the world.
//
// Reading is strict: any other file is refused with the line and column, never repaired.

// Writes all atoms; the caller commits. Throws CWriteError for a value that is not finite, which no file can hold.
void SaveState(const CAtoms& atoms, IByteSink& sink);

// Replaces the atoms by those of a binary stream and computes their speeds and the velocity statistics; sName is the
// file's name in messages. Reads in pieces, so that only the atoms take memory. Throws CHeadlessError; the atoms are
// then unchanged.
void LoadState(std::istream& stream, const std::string& sName, CAtoms& atoms);

// The same for a file; sPath is UTF-8.
void LoadStateFile(const std::string& sPath, CAtoms& atoms);
