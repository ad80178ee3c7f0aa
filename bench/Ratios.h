#pragma once

// Runs the plain form and the program's form of each benchmark scene in turn, several times, and prints scene, both
// medians, their ratio, and whether the worlds at the end are the same bits. False if one of them is not.
bool PrintRatios();
