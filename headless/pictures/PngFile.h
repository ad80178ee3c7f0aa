#pragma once

class CWorldImage;
struct IByteSink;

// Writes the picture as PNG (8 bits each for red, green and blue); the caller commits. Throws the errors of the sink
// and std::bad_alloc. The compressed bytes are written piece by piece and take no memory to speak of.
void WritePng(const CWorldImage& image, IByteSink& sink);
