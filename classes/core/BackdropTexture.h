#pragma once

#include <cstdint>
#include <vector>

// Length of a side of the texture, in pixels.
constexpr int c_iBackdropTextureLength = 128;

// The backdrop of a program that carries no picture of its own: a dark slate teal with a fine grain. Rows from the top,
// 0x00RRGGBB each; opposite edges fit together. The pixels are always the same.
std::vector<std::uint32_t> MakeBackdropTexture();
