#pragma once

// 100 percent are the whole.
constexpr double c_dPercent = 100.0;
