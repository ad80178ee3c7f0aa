#pragma once

#include "simulation/CAtom.h"
#include "simulation/CellScratch.h"

#include <cstdint>
#include <emmintrin.h>

// Each instruction set has Lanes of its own, and where nothing is inlined the linker would keep one of them for all.
namespace // NOLINT(cert-dcl59-cpp): one source includes this
{

// Four floats at a time, with what every x86-64 processor has.
struct Lanes
{
    static constexpr int c_iCount = 4;

    // A circle in all lanes.
    struct CCircle
    {
        __m128 x;
        __m128 y;
        __m128 radius;
    };

    // The value in as many elements as there are lanes.
    static inline void Fill(std::int32_t* pFirst, std::int32_t value)
    {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(pFirst), _mm_set1_epi32(value));
    }

    static inline void Fill(float* pFirst, float value) { _mm_storeu_ps(pFirst, _mm_set1_ps(value)); }

    static inline CCircle MakeCircle(float x, float y, float radius)
    {
        return {_mm_set1_ps(x), _mm_set1_ps(y), _mm_set1_ps(radius)};
    }

    // One bit per atom of the block that touches the circle: (dy * dy + dx * dx) <= (sum of radii) squared, rounded as
    // the formula is.
    static inline std::uint32_t FindTouching(const CCircle& circle, const CCellScratch& scratch, int block)
    {
        const __m128 dx = _mm_sub_ps(circle.x, _mm_load_ps(scratch.x + block));
        const __m128 dy = _mm_sub_ps(circle.y, _mm_load_ps(scratch.y + block));
        const __m128 sum = _mm_add_ps(circle.radius, _mm_load_ps(scratch.radius + block));
        const __m128 squares = _mm_add_ps(_mm_mul_ps(dy, dy), _mm_mul_ps(dx, dx));
        return static_cast<std::uint32_t>(_mm_movemask_ps(_mm_cmple_ps(squares, _mm_mul_ps(sum, sum))));
    }

    // A point in all lanes, and the square of how far from it to look.
    struct CDisc
    {
        __m128i point;
        __m128i reach;
    };

    static inline CDisc MakeDisc(std::int32_t point, std::int32_t reach)
    {
        return {_mm_set1_epi32(point), _mm_set1_epi32(reach)};
    }

    // One bit per point of the block that lies within reach of the disc: one subtraction, and one multiplication that
    // also adds both squares.
    static inline std::uint32_t FindNear(const CDisc& disc, const CCellScratch& scratch, int block)
    {
        const __m128i points = _mm_load_si128(reinterpret_cast<const __m128i*>(scratch.points + block));
        const __m128i offset = _mm_sub_epi16(disc.point, points);
        const __m128i beyond = _mm_cmpgt_epi32(_mm_madd_epi16(offset, offset), disc.reach);
        return static_cast<std::uint32_t>(_mm_movemask_ps(_mm_castsi128_ps(beyond))) ^ 0xFU;
    }

    // Positions of a block, from the origin in points, limited and packed: x below, y above. What is no number comes
    // out at the limit.
    static inline void MakePoints(CCellScratch& scratch, int block, float scale, float limit)
    {
        const auto toPoints = [=](const float* pPositions, float origin) {
            const __m128 offset = _mm_sub_ps(_mm_load_ps(pPositions), _mm_set1_ps(origin));
            const __m128 points = _mm_mul_ps(offset, _mm_set1_ps(scale));
            return _mm_cvtps_epi32(_mm_max_ps(_mm_min_ps(points, _mm_set1_ps(limit)), _mm_set1_ps(-limit)));
        };
        const __m128i x = toPoints(scratch.x + block, scratch.originX);
        const __m128i y = toPoints(scratch.y + block, scratch.originY);
        const __m128i packed = _mm_or_si128(_mm_slli_epi32(y, 16), _mm_and_si128(x, _mm_set1_epi32(0xFFFF)));
        _mm_store_si128(reinterpret_cast<__m128i*>(scratch.points + block), packed);
    }

    // Writes uFirst + lane * sizeof(CCellAtom) for every lane of the mask and returns how many those are. Writes
    // c_iCount elements in any case.
    static inline int Append(std::uint32_t* pEnd, std::uint32_t uMask, std::uint32_t uFirst)
    {
        int count = 0;
        for (; uMask != 0; uMask &= uMask - 1)
        {
            pEnd[count++] =
                uFirst + static_cast<std::uint32_t>(__builtin_ctz(uMask) * static_cast<int>(sizeof(CCellAtom)));
        }
        return count;
    }

    // One field of four atoms that lie one behind another, from that of the first.
    static inline __m128 LoadField(const float* pFirst)
    {
        return _mm_setr_ps(pFirst[0], pFirst[c_iAtomFloats], pFirst[2 * c_iAtomFloats], pFirst[3 * c_iAtomFloats]);
    }

    static inline void StoreField(float* pFirst, __m128 values)
    {
        alignas(16) float lanes[c_iCount];
        _mm_store_ps(lanes, values);
        for (int i = 0; i < c_iCount; ++i)
        {
            pFirst[i * c_iAtomFloats] = lanes[i];
        }
    }

    static inline __m128i LoadRadii(const CAtom* pAtoms)
    {
        return _mm_setr_epi32(pAtoms[0].radius, pAtoms[1].radius, pAtoms[2].radius, pAtoms[3].radius);
    }

    // Whether any lane is set.
    template<class Ints>
    static inline bool HasAny(Ints lanes)
    {
        return _mm_movemask_epi8(reinterpret_cast<__m128i>(lanes)) != 0;
    }
};

} // namespace
