#pragma once

#include "tests/sequences/CWindowModel.h"

// Measures the screen with a plain framed window of the system.
CScreenMeasures MeasureScreen();
