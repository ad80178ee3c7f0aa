#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

// One circular atom. Positions are world units (x = 0 is the left wall, y = 0 the top one), velocities are world units
// per iteration. All atoms have the same mass, whatever their radius. The colour is chosen when drawing.
//
// Layout: 28 bytes: five floats, one byte, padding, one reserved word. Moving reads all but the speed; drawing reads
// position, speed and radius. So the record is not split into hot and cold halves: each pass would touch both.
struct CAtom
{
    float x{};               // centre, horizontal
    float y{};               // centre, vertical
    float speed{};           // sqrt(vx * vx + vy * vy) at creation or at the last collision; a bounce keeps it
    float vx{};              // horizontal velocity
    float vy{};              // vertical velocity
    std::uint8_t radius{};   // whole world units
    std::int32_t reserved{}; // always 0
};

static_assert(sizeof(CAtom) == 28, "a million atoms are streamed through the cache in every iteration");
static_assert(std::is_trivially_copyable_v<CAtom>);

// Distance from a field of an atom to the same field of the next atom, in floats.
constexpr std::ptrdiff_t c_iAtomFloats = sizeof(CAtom) / sizeof(float);
