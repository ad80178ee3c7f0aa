#pragma once

#include "resources/drawing/CImage.h"

#include <cstdint>
#include <vector>

// The bytes of a .bmp file with 24 bits per pixel; transparency is dropped.
std::vector<std::uint8_t> MakeBitmapFile(const CImage& image);

// The bytes of an .ico file that holds every image as a 32-bit bitmap. Sides are 1 to 256 pixels, and square.
std::vector<std::uint8_t> MakeIconFile(const std::vector<CImage>& images);
