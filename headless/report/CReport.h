#pragma once

#include "classes/core/CSize.h"
#include "headless/observed/CRunCurve.h"
#include "headless/report/SpeedDistribution.h"
#include "headless/report/SummaryValues.h"

#include <optional>
#include <string>
#include <vector>

// Everything that the report of a finished run shows.
struct CReport
{
    std::vector<CSummaryValue> values;
    std::vector<CCurvePoint> curve; // at least one point: that of the end
    std::optional<CSpeedDistribution> speeds;
    std::string picture; // the bytes of a PNG
    CSize<int> pictureSize;
    int unitsOfPixel{1}; // the side of the square that a pixel of the picture shows
};
