#pragma once

#include <vector>

// Milliseconds per iteration with that many threads.
struct CReplayRow
{
    int threads;
    double milliseconds;
};

// Draws the gain over the first row, both axes in powers of two, with the ideal line, as an SVG. False if the file
// cannot be written.
bool WriteReplayPicture(const std::vector<CReplayRow>& rows, const char* sPath);
