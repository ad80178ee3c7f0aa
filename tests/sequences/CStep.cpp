#include "tests/sequences/CStep.h"

namespace
{
struct CActionRow
{
    const char* sName;
    std::size_t uValues;
};

constexpr std::array<CActionRow, c_uActionCount> c_Actions{{
    {"Minimise", 0},
    {"Restore", 0},
    {"Maximise", 0},
    {"ShowMaximised", 0},
    {"ShowRestored", 0},
    {"PlaceMaximised", 0},
    {"FullScreenKey", 0},
    {"Escape", 0},
    {"RightClick", 2},
    {"TitleDoubleClick", 0},
    {"Resize", 4},
    {"Wheel", 1},
    {"ScrollVertically", 1},
    {"ScrollHorizontally", 1},
    {"Click", 2},
    {"Start", 0},
    {"Stop", 0},
    {"SetWorldSize", 2},
    {"Reopen", 0},
    {"EndSession", 0},
    {"SecondWindow", 2},
}};
} // namespace

const char* GetName(EnumAction eAction)
{
    return c_Actions[static_cast<std::size_t>(eAction)].sName;
}

std::size_t GetValueCount(EnumAction eAction)
{
    return c_Actions[static_cast<std::size_t>(eAction)].uValues;
}
