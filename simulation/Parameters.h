#pragma once

#include "simulation/EnumAtomColourMode.h"

#include <array>
#include <cstdint>
#include <vector>

class CWString;

// The rules for what a user may enter. They only look at values; who asks shows the messages and writes values back.

// Each limits the value to its range: 1..1,000,000 atoms, radius 1..32, world width or height 10..9,999.
int ClampTotalAtoms(int count);
std::uint8_t ClampRadius(std::uint8_t radius);
int ClampWorldLength(int length);

// Swaps the two where the smaller one is above the larger.
void SortRadii(std::uint8_t& minRadius, std::uint8_t& maxRadius);

// A message to show: string-table keys of its text and its title, and the number (1..3) that the text's "%i" stands
// for, 0 for a text without one.
struct CFactorMessage
{
    const wchar_t* key;
    int factorNumber;
    const wchar_t* titleKey;
};

constexpr std::size_t c_uFactorCount = 3;

// Checks the three colour factors as typed. Returns the messages to show, in order; none if all is well. An empty text
// is an unset factor; exactly two must be set. A set one is a number not below zero; a percentage only in fixed mode.
std::vector<CFactorMessage> CheckFactors(const std::array<CWString, c_uFactorCount>& factors, EnumAtomColourMode eMode);
