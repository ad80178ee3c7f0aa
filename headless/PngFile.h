#pragma once

#include <cstdint>
#include <string>

class CWorldImage;
struct IByteSink;

// Writes the picture as PNG (8 bits for each of red, green and blue); the caller commits. Throws what the sink throws,
// and CHeadlessError where the memory does not suffice: a picture takes 3 bytes a pixel, writing it as many again.
void WritePng(const CWorldImage& image, IByteSink& sink);

// The file name of a picture during the run: "gas.png" becomes "gas-0200.png" for iteration 200 of 1000, so that the
// names sort in the order of time. sPath is UTF-8.
std::string GetNumberedName(const std::string& sPath, std::uint64_t uIteration, std::uint64_t uIterations);
