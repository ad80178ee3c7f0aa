#pragma once

#include "classes/core/CSize.h"
#include "headless/recorded/IFrameFormat.h"

#include <memory>

// Frames as a stream of YUV4MPEG2, 60 in a second: pictures of the world, one pixel for each square unit, uncompressed.
// Each pixel has its own luma and colour (4:4:4) by ITU-R BT.601 with its limited range, rounded to the nearest integer
// by integer arithmetic: the same bytes everywhere.
std::unique_ptr<IFrameFormat> MakeVideoFormat(const CSize<int>& world);
