#pragma once

#include "simulation/CellAtom.h"
#include "simulation/CollisionThresholds.h"
#include "simulation/SimulationConstants.h"

#include <emmintrin.h>

struct IDrawTurn;

// The response to one touching pair, with both atoms in one vector register: lanes ax, ay, bx, by. Each lane computes
// the scalar formula, operation by operation in its order; tests/reference/ReferenceCollision.cpp has that formula. No
// operation may be reordered or fused, because the bits would change. (Only the operands of one addition may be
// swapped.)
//
// The cost is latency: four square roots and three divisions in a chain (some 190 cycles). So the usual case has no
// branches, and several responses overlap in the processor.
//
// The functions are static, see SimulationKernelSets.h.

// Moves coincident centres by random steps of at most c_fMaxJitter per axis until their distance is above
// c_fCoincidenceLimit. False if that is impossible: millions of units from the origin every step rounds to nothing.
bool JitterCentresApart(CCellAtom& a, CCellAtom& b, IDrawTurn& turn);

// {first[0], first[1], second[0], second[1]}. Positions and velocities are loaded and stored separately, because the
// next response of an atom needs its position long before its velocity is ready.
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

// {v1, v0, v3, v2}
static inline __m128 SwapWithin(__m128 v)
{
    return _mm_shuffle_ps(v, v, _MM_SHUFFLE(2, 3, 0, 1));
}

// {v2, v3, v0, v1}
static inline __m128 SwapPairs(__m128 v)
{
    return _mm_shuffle_ps(v, v, _MM_SHUFFLE(1, 0, 3, 2));
}

// {v0 + v1, v1 + v0, v2 + v3, v3 + v2}: both lanes of a pair get the same bits, as addition is commutative.
static inline __m128 AddWithin(__m128 v)
{
    return _mm_add_ps(v, SwapWithin(v));
}

// The line of centres: direction {dx, dy, dx, dy} from b to a, not normalised, and the distance in all lanes.
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

// {sx, sy, -sx, -sy} with s = direction / distance * overlap * 0.5, in this order.
static inline __m128 GetStepsApart(const CLineLanes& line, __m128 overlap)
{
    const __m128 step =
        _mm_mul_ps(_mm_mul_ps(_mm_div_ps(line.direction, line.distance), overlap), _mm_set1_ps(c_fHalf));
    return _mm_xor_ps(step, _mm_setr_ps(0.0F, 0.0F, -0.0F, -0.0F));
}

// Pushes the centres apart until the atoms just touch (overlap at most c_fOverlapLimit); ignores walls and other atoms.
// Also ends when a pass has changed none of the four coordinates, because no later pass would: far from the origin the
// spacing of floats is larger than the rest of the overlap. False if the centres coincide and cannot be jittered apart;
// then there is no line of centres.
static inline bool Separate(CCellAtom& a, CCellAtom& b, __m128& centres, CLineLanes& line, __m128 radiusSum,
                            IDrawTurn& turn)
{
    __m128 overlap = _mm_sub_ps(radiusSum, line.distance);
    bool bMoved = true;
    while (_mm_cvtss_f32(overlap) > c_fOverlapLimit && bMoved)
    {
        if (_mm_cvtss_f32(line.distance) <= c_fCoincidenceLimit) [[unlikely]]
        {
            StorePairs(&a.x, &b.x, centres);
            if (!JitterCentresApart(a, b, turn))
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

// The elastic collision of equal masses: the two atoms exchange their velocity components along the unit normal n =
// {nx, ny, nx, ny} and keep those along the tangent t = {-ny, nx}:
//   a' = (a . t) t + (b . n) n,  b' = (b . t) t + (a . n) n
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

// The factors by which to multiply the velocities so that the speeds sum up to oldSpeedSum again:
//   (speed + (oldSpeedSum - speedSum) * 0.5) / speed, and 1 for an atom at rest (speed <= c_fRestLimit)
static inline __m128 GetCorrectionFactors(__m128 speeds, float oldSpeedSum)
{
    const __m128 speedSum = _mm_add_ps(speeds, SwapPairs(speeds));
    const __m128 correction = _mm_mul_ps(_mm_sub_ps(_mm_set1_ps(oldSpeedSum), speedSum), _mm_set1_ps(c_fHalf));
    const __m128 factors = _mm_div_ps(_mm_add_ps(speeds, correction), speeds);
    const __m128 atRest = _mm_cmple_ps(speeds, _mm_set1_ps(c_fRestLimit));
    return _mm_or_ps(_mm_and_ps(atRest, _mm_set1_ps(1.0F)), _mm_andnot_ps(atRest, factors));
}

// The response to a pair that touches. radiusSum is the sum of both radii.
static inline void RespondToTouch(CCellAtom& a, CCellAtom& b, float radiusSum, IDrawTurn& turn)
{
    __m128 centres = LoadPairs(&a.x, &b.x);
    CLineLanes line = GetLine(centres);
    if (!Separate(a, b, centres, line, _mm_set1_ps(radiusSum), turn)) [[unlikely]]
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

// The same for two atoms outside of a cell at work.
static inline void RespondToTouch(CAtom& a, CAtom& b, IDrawTurn& turn)
{
    CCellAtom cellA = MakeCellAtom(a);
    CCellAtom cellB = MakeCellAtom(b);
    RespondToTouch(cellA, cellB, cellA.radius + cellB.radius, turn);
    WriteBack(cellA, a);
    WriteBack(cellB, b);
}
