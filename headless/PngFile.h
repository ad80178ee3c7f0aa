#pragma once

#include <cstdint>
#include <string>

class CWorldImage;
struct IByteSink;

// Writes the picture as PNG (8 bits each for red, green and blue); the caller commits. Throws the errors of the sink,
// and CHeadlessError without enough memory: a picture takes 3 bytes a pixel, and writing it takes as many again.
void WritePng(const CWorldImage& image, IByteSink& sink);

// The file name of a picture during the run: "gas.png" becomes "gas-0200.png" for iteration 200 of 1000, so that sorted
// names are in the order of time. sPath is UTF-8.
std::string GetNumberedName(const std::string& sPath, std::uint64_t uIteration, std::uint64_t uIterations);
