#pragma once

#include <bit>
#include <cstdint>

// The constants of the simulation, each with its meaning, its unit, and what breaks if it changes. Changing one of the
// first two groups changes the bits of every world, and so the golden hashes of the tests.

// --- Collision grid -------------------------------------------------------------------------------------------------

// Nominal side of a cell, world units. At the usual radii (3 to 5) a cell of a well-filled world holds about a hundred
// atoms. With smaller cells there are fewer pairs to test, but more atoms are entered more than once. Below twice the
// largest radius an atom could reach beyond a neighbour, and pairs would be missed.
constexpr double c_dNominalCellLength = 100.0;

// The most atoms of one cell that take part in its pair tests; atoms entered later are left out in this iteration.
// Bounds the quadratic cost when a whole world starts from one point. The kernels size their buffers by it.
constexpr int c_iMaxTestedAtomsPerCell = 1000;

// --- Collision response ---------------------------------------------------------------------------------------------

// Overlap that counts as none, world units. With a smaller value separation stalls in rounding nearer to the origin:
// the spacing of floats is 0.001 from 8,192 on.
constexpr double c_dSeparationTolerance = 0.001;

// Centres nearer to each other than this, world units, give no usable direction; they are jittered apart first.
constexpr double c_dCoincidenceDistance = 0.001;

// Largest jitter per axis, world units. Must be well above the coincidence distance, or jittering takes many draws.
constexpr float c_fMaxJitter = 0.1F;

// The share of each of two atoms in the separation and in the correction of the speed sum.
constexpr float c_fHalf = 0.5F;

// Speed up to which an atom counts as at rest, world units per iteration. Rescaling it would divide by almost zero.
constexpr double c_dRestSpeed = 1e-5;

// Tolerance of all tolerant comparisons, in the unit of the compared values.
constexpr double c_dEpsilon = 1e-10;

// --- Population -----------------------------------------------------------------------------------------------------

// Largest start velocity per axis, world units per iteration: the square root of 2. It makes the mean speed about 1
// (1.08); the default colour factors of speed mode are chosen around that mean.
constexpr float c_fMaxStartVelocity = 1.41421354F;
static_assert(std::bit_cast<std::uint32_t>(c_fMaxStartVelocity) == 0x3FB504F3U);

// --- Parameters -----------------------------------------------------------------------------------------------------

// Number of atoms. A million atoms take 28 MB; one iteration of them takes about 35 ms on one core with AVX-512.
constexpr int c_iMinTotalAtoms = 1;
constexpr int c_iMaxTotalAtoms = 1'000'000;

// Radius, world units. The record holds at most 255; above 50 an atom could reach beyond a neighbouring cell.
constexpr std::uint8_t c_uMinRadius = 1;
constexpr std::uint8_t c_uMaxRadius = 32;

// World width and height, world units. From 16,384 on, the spacing of floats is larger than the separation tolerance.
constexpr int c_iMinWorldLength = 10;
constexpr int c_iMaxWorldLength = 9'999;

// --- Run loop -------------------------------------------------------------------------------------------------------

// Shortest time of a pass, milliseconds: 60 per second.
constexpr double c_dFramePeriodMs = 16.66667;

// A statistics line is due when more than this has passed since the last one, in milliseconds.
constexpr std::int64_t c_iReportPeriodMs = 1000;

constexpr float c_fMicroSecondsPerMs = 1000.0F;
constexpr double c_dMicroSecondsPerMs = 1000.0;
constexpr double c_dMsPerSecond = 1000.0;
