#pragma once

// Runs the plain form and the program's form of each benchmark scene alternately, several times. Prints the scene, both
// medians, their ratio, and whether both worlds end with equal bits. False if a world does not.
bool PrintRatios();
