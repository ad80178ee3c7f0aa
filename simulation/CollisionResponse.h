#pragma once

#include "simulation/CellAtom.h"
#include "simulation/CollisionThresholds.h"
#include "simulation/SimulationConstants.h"

#include <emmintrin.h>

class CRandom;

// The response to one touching pair, with both atoms side by side in one vector register: lanes ax, ay, bx, by. Every
// lane computes what the scalar formula says, in its order, so that the bits are those of the formula. What limits it
// is latency: four square roots and three divisions, each waiting for the one before (some 190 cycles), so it is
// written without branches where the common case has none, and several responses overlap in the processor.
//
// Everything here is static: it is compiled once per instruction set, and the linker must not merge the copies.

// Moves coincident centres by random steps until the line between them has a direction. False where that cannot be:
// millions of units away from the origin both positions swallow every step.
bool JitterCentresApart(CCellAtom& a, CCellAtom& b, CRandom& random);

// {first[0], first[1], second[0], second[1]}. Positions and velocities are loaded and stored apart from each other:
// the next response of an atom needs its position long before its velocity is ready.
static inline __m128 LoadPairs(const float* pFirst, const float* pSecond)
{
    const __m128 first = _mm_castsi128_ps(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(pFirst)));
    return _mm_loadh_pi(first, reinterpret_cast<const __m64*>(pSecond));
}

static inline void StorePairs(float* pFirst, float* pSecond, __m128 pairs)
{
    _mm_storel_pi(reinterpret_cast<__m64*>(pFirst), pairs);
    _mm_storeh_pi(reinterpret_cast<__m64*>(pSecond), pairs);
}

// The lanes of each pair changed over.
static inline __m128 SwapWithin(__m128 v)
{
    return _mm_shuffle_ps(v, v, _MM_SHUFFLE(2, 3, 0, 1));
}

// The two pairs changed over.
static inline __m128 SwapPairs(__m128 v)
{
    return _mm_shuffle_ps(v, v, _MM_SHUFFLE(1, 0, 3, 2));
}

// {v0 + v1, v0 + v1, v2 + v3, v2 + v3}; a sum of two does not depend on their order.
static inline __m128 AddWithin(__m128 v)
{
    return _mm_add_ps(v, SwapWithin(v));
}

// The line of centres in all lanes: direction {dx, dy, dx, dy}, from b to a, and distance.
struct CLineLanes
{
    __m128 direction;
    __m128 distance;
};

static inline CLineLanes GetLine(__m128 centres)
{
    const __m128 direction = _mm_sub_ps(_mm_movelh_ps(centres, centres), _mm_movehl_ps(centres, centres));
    return {direction, _mm_sqrt_ps(AddWithin(_mm_mul_ps(direction, direction)))};
}

// {step, step, -step, -step}: half of the overlap along the line of centres, away from each other.
static inline __m128 GetStepsApart(const CLineLanes& line, __m128 overlap)
{
    const __m128 step =
        _mm_mul_ps(_mm_mul_ps(_mm_div_ps(line.direction, line.distance), overlap), _mm_set1_ps(c_fHalf));
    return _mm_xor_ps(step, _mm_setr_ps(0.0F, 0.0F, -0.0F, -0.0F));
}

// Pushes the centres apart until they just touch; walls and other atoms are not looked at. Ends also when a pass has
// changed none of the four coordinates, since no further one would: far out one step of a float is larger than the
// rest of the overlap. False when the centres coincide and cannot be jittered apart, so that there is no line.
static inline bool Separate(CCellAtom& a, CCellAtom& b, __m128& centres, CLineLanes& line, __m128 radiusSum,
                            CRandom& random)
{
    __m128 overlap = _mm_sub_ps(radiusSum, line.distance);
    bool bMoved = true;
    while (_mm_cvtss_f32(overlap) > c_fOverlapLimit && bMoved)
    {
        if (_mm_cvtss_f32(line.distance) <= c_fCoincidenceLimit) [[unlikely]]
        {
            StorePairs(&a.x, &b.x, centres);
            if (!JitterCentresApart(a, b, random))
            {
                return false;
            }
            centres = LoadPairs(&a.x, &b.x);
            line = GetLine(centres);
        }
        const __m128 before = centres;
        centres = _mm_add_ps(centres, GetStepsApart(line, overlap));
        line = GetLine(centres);
        overlap = _mm_sub_ps(radiusSum, line.distance);
        bMoved = _mm_movemask_ps(_mm_cmpneq_ps(centres, before)) != 0;
    }
    StorePairs(&a.x, &b.x, centres);
    return true;
}

// Equal masses, fully elastic: the components along the normal change places, the tangential ones stay. The tangent is
// the normal turned by a right angle, {-ny, nx}.
static inline __m128 ExchangeNormalComponents(__m128 velocities, __m128 normal)
{
    const __m128 tangent = _mm_xor_ps(SwapWithin(normal), _mm_setr_ps(-0.0F, 0.0F, -0.0F, 0.0F));
    const __m128 alongNormal = AddWithin(_mm_mul_ps(velocities, normal));
    const __m128 alongTangent = AddWithin(_mm_mul_ps(velocities, tangent));
    return _mm_add_ps(_mm_mul_ps(alongTangent, tangent), _mm_mul_ps(SwapPairs(alongNormal), normal));
}

// {speed of a, speed of a, speed of b, speed of b}
static inline __m128 GetSpeeds(__m128 velocities)
{
    return _mm_sqrt_ps(AddWithin(_mm_mul_ps(velocities, velocities)));
}

// What each velocity is to be multiplied by so that the sum of both speeds is what it was; 1 for an atom at rest.
static inline __m128 GetCorrectionFactors(__m128 speeds, float oldSpeedSum)
{
    const __m128 speedSum = _mm_add_ps(speeds, SwapPairs(speeds));
    const __m128 correction = _mm_mul_ps(_mm_sub_ps(_mm_set1_ps(oldSpeedSum), speedSum), _mm_set1_ps(c_fHalf));
    const __m128 factors = _mm_div_ps(_mm_add_ps(speeds, correction), speeds);
    const __m128 atRest = _mm_cmple_ps(speeds, _mm_set1_ps(c_fRestLimit));
    return _mm_or_ps(_mm_and_ps(atRest, _mm_set1_ps(1.0F)), _mm_andnot_ps(atRest, factors));
}

// The response to a pair that is known to touch. radiusSum is the sum of both radii.
static inline void RespondToTouch(CCellAtom& a, CCellAtom& b, float radiusSum, CRandom& random)
{
    __m128 centres = LoadPairs(&a.x, &b.x);
    CLineLanes line = GetLine(centres);
    if (!Separate(a, b, centres, line, _mm_set1_ps(radiusSum), random)) [[unlikely]]
    {
        return;
    }
    const float oldSpeedSum = a.speed + b.speed;
    const __m128 normal = _mm_div_ps(line.direction, line.distance);
    __m128 velocities = ExchangeNormalComponents(LoadPairs(&a.vx, &b.vx), normal);
    velocities = _mm_mul_ps(velocities, GetCorrectionFactors(GetSpeeds(velocities), oldSpeedSum));
    const __m128 speeds = GetSpeeds(velocities);
    StorePairs(&a.vx, &b.vx, velocities);
    a.speed = _mm_cvtss_f32(speeds);
    b.speed = _mm_cvtss_f32(_mm_movehl_ps(speeds, speeds));
}

// The same for two atoms by themselves.
static inline void RespondToTouch(CAtom& a, CAtom& b, CRandom& random)
{
    CCellAtom cellA = MakeCellAtom(a);
    CCellAtom cellB = MakeCellAtom(b);
    RespondToTouch(cellA, cellB, cellA.radius + cellB.radius, random);
    WriteBack(cellA, a);
    WriteBack(cellB, b);
}
