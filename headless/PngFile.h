#pragma once

class CWorldImage;
struct IByteSink;

// Writes the picture as PNG (8 bits each for red, green and blue); the caller commits. Throws the errors of the sink,
// and std::bad_alloc: a picture takes 3 bytes a pixel, and writing it takes as many again.
void WritePng(const CWorldImage& image, IByteSink& sink);
