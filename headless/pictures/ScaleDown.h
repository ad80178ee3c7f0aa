#pragma once

#include "headless/pictures/CWorldImage.h"

// The picture in a smaller size: each pixel is the mean of a square of factor x factor pixels, which is cut off at the
// right and lower edge. factor is at least 1. Throws std::bad_alloc.
CWorldImage ScaleDown(const CWorldImage& image, int factor);
