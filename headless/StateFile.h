#pragma once

#include <istream>
#include <string>

class CAtoms;
struct IByteSink;

// State files: CSV with the header "x,y,vx,vy,radius" and one atom a row, in array order. Floats stand in the shortest
// decimal form that reads back to the same bits, radii are whole numbers 1..255. The speed is not stored, since it is
// always the length of the velocity; nor is the world's size.
//
// Reading is strict: a file that is not exactly this is refused with the line and column, never repaired.

// Writes all atoms; the caller commits. Throws CHeadlessError where a value is not finite, which no file can hold.
void SaveState(const CAtoms& atoms, IByteSink& sink);

// Replaces the atoms by those of a binary stream, with their speeds and the velocity statistics; sName is the file's
// name in messages. Reads in pieces, so that the memory is that of the atoms. Throws CHeadlessError and then leaves
// the atoms as they were.
void LoadState(std::istream& stream, const std::string& sName, CAtoms& atoms);

// The same for a file; sPath is UTF-8.
void LoadStateFile(const std::string& sPath, CAtoms& atoms);
