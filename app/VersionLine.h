#pragma once

// Writes the program's name and version as a line to the standard output or, if there is none, to the console of the
// program that started this one. Without either it does nothing.
void WriteVersionLine();
