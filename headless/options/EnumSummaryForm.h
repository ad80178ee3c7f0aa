#pragma once

#include <cstdint>

// How the summary of a run is written.
enum class EnumSummaryForm : std::uint8_t
{
    Text,
    Json,
    Csv
};
