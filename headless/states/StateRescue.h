#pragma once

#include <string>

class CAtoms;

// Saves a state that could not be saved where it was wanted: in the folder for temporary files, or else in the current
// one, under a new name. Returns the path; empty if no place takes it.
std::string SaveStateElsewhere(const CAtoms& atoms);
