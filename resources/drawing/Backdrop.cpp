#include "resources/drawing/Backdrop.h"

#include <array>
#include <cmath>
#include <cstdint>

namespace
{
constexpr int c_iSide = 128; // pixels

// White text on this colour has a contrast of about 12 : 1, far above the 4.5 : 1 that small text needs.
constexpr double c_dRed = 38.0;
constexpr double c_dGreen = 58.0;
constexpr double c_dBlue = 64.0;

// Amplitude of the grain, in levels; a larger one makes small text hard to read.
constexpr double c_dCloudLevels = 3.0;
constexpr double c_dGrainLevels = 2.2;

// A layer of noise: lattice points per side (each divides the side, so that the tile has no seam) and its share.
struct CLayer
{
    int latticePoints;
    double share;
};
constexpr std::array<CLayer, 3> c_aCloudLayers = {{{4, 0.55}, {8, 0.3}, {16, 0.15}}};

// A hash of a lattice point, in -1..1; the multipliers are odd numbers with evenly spread bits.
double LatticeValue(int iX, int iY, std::uint32_t uSeed)
{
    std::uint32_t uHash = static_cast<std::uint32_t>(iX) * 0x9E3779B1U ^ static_cast<std::uint32_t>(iY) * 0x85EBCA77U ^
                          uSeed * 0xC2B2AE3DU;
    uHash = (uHash ^ (uHash >> 15)) * 0x2C1B3C6DU;
    uHash = (uHash ^ (uHash >> 12)) * 0x297A2D39U;
    uHash ^= uHash >> 15;
    return static_cast<double>(uHash) / static_cast<double>(UINT32_MAX) * 2.0 - 1.0;
}

// Rises from 0 to 1 with slope 0 at both ends, so that the lattice shows no lines.
double Ease(double dT)
{
    return dT * dT * (3.0 - 2.0 * dT);
}

double Mix(double dFrom, double dTo, double dShare)
{
    return dFrom + (dTo - dFrom) * dShare;
}

// Noise that repeats after the side of the tile.
double Noise(int iX, int iY, int iLatticePoints, std::uint32_t uSeed)
{
    const int iStep = c_iSide / iLatticePoints;
    const int iColumn = iX / iStep;
    const int iRow = iY / iStep;
    const int iNextColumn = (iColumn + 1) % iLatticePoints;
    const int iNextRow = (iRow + 1) % iLatticePoints;
    const double dX = Ease(static_cast<double>(iX % iStep) / iStep);
    const double dY = Ease(static_cast<double>(iY % iStep) / iStep);
    const double dTop = Mix(LatticeValue(iColumn, iRow, uSeed), LatticeValue(iNextColumn, iRow, uSeed), dX);
    const double dBottom = Mix(LatticeValue(iColumn, iNextRow, uSeed), LatticeValue(iNextColumn, iNextRow, uSeed), dX);
    return Mix(dTop, dBottom, dY);
}

double Cloud(int iX, int iY)
{
    double dSum = 0.0;
    std::uint32_t uSeed = 1;
    for (const CLayer& layer : c_aCloudLayers)
    {
        dSum += layer.share * Noise(iX, iY, layer.latticePoints, uSeed++);
    }
    return dSum;
}

// Fibres like those of paper: a grain that is averaged along the row, over the pixels to the left.
double Grain(int iX, int iY)
{
    constexpr int c_iFibreLength = 6; // pixels
    constexpr std::uint32_t c_uSeed = 77;
    double dSum = 0.0;
    for (int i = 0; i < c_iFibreLength; ++i)
    {
        dSum += LatticeValue((iX + c_iSide - i) % c_iSide, iY, c_uSeed);
    }
    return dSum / std::sqrt(static_cast<double>(c_iFibreLength));
}

std::uint8_t ToByte(double dLevel)
{
    // NOLINTNEXTLINE(bugprone-incorrect-roundings): levels are not below zero, and the same everywhere this way
    return static_cast<std::uint8_t>(dLevel + 0.5);
}
} // namespace

CImage DrawBackdrop()
{
    constexpr std::uint8_t c_uOpaque = 255;
    CImage image(c_iSide, c_iSide);
    for (int iY = 0; iY < c_iSide; ++iY)
    {
        for (int iX = 0; iX < c_iSide; ++iX)
        {
            const double dLevels = c_dCloudLevels * Cloud(iX, iY) + c_dGrainLevels * Grain(iX, iY);
            image.At(iX, iY) = {ToByte(c_dRed + dLevels), ToByte(c_dGreen + dLevels), ToByte(c_dBlue + dLevels),
                                c_uOpaque};
        }
    }
    return image;
}
