#include "simulation/MoveKernel.h"
#include "simulation/PairKernel.h"
#include "simulation/SimulationKernelSets.h"
#include "simulation/SpeedKernel.h"

#include <emmintrin.h>

namespace
{

// Four lanes, with SSE2, which every x86-64 processor has.
struct CLanesBaseline
{
    static constexpr int c_iCount = 4;

    using Floats = float __attribute__((vector_size(sizeof(float) * c_iCount)));
    using Ints = std::int32_t __attribute__((vector_size(sizeof(std::int32_t) * c_iCount)));

    struct CCircle
    {
        __m128 x;
        __m128 y;
        __m128 radius;
    };

    static void Fill(std::int32_t* pFirst, std::int32_t value)
    {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(pFirst), _mm_set1_epi32(value));
    }

    static void Fill(float* pFirst, float value) { _mm_storeu_ps(pFirst, _mm_set1_ps(value)); }

    static CCircle MakeCircle(float x, float y, float radius)
    {
        return {_mm_set1_ps(x), _mm_set1_ps(y), _mm_set1_ps(radius)};
    }

    static std::uint32_t FindTouching(const CCircle& circle, const CCellScratch& scratch, int block)
    {
        const __m128 dx = _mm_sub_ps(circle.x, _mm_load_ps(scratch.x + block));
        const __m128 dy = _mm_sub_ps(circle.y, _mm_load_ps(scratch.y + block));
        const __m128 sum = _mm_add_ps(circle.radius, _mm_load_ps(scratch.radius + block));
        const __m128 squares = _mm_add_ps(_mm_mul_ps(dy, dy), _mm_mul_ps(dx, dx));
        return static_cast<std::uint32_t>(_mm_movemask_ps(_mm_cmple_ps(squares, _mm_mul_ps(sum, sum))));
    }

    struct CDisc
    {
        __m128i point;
        __m128i reach;
    };

    static CDisc MakeDisc(std::int32_t point, std::int32_t reach)
    {
        return {_mm_set1_epi32(point), _mm_set1_epi32(reach)};
    }

    // Four vectors give one mask, because a branch for the few points that are near costs more than the vectors.
    static constexpr int c_iSearchCount = 16;

    static std::uint32_t FindNear(const CDisc& disc, const CCellScratch& scratch, int block)
    {
        const auto areBeyond = [&](int first) {
            const __m128i points = _mm_load_si128(reinterpret_cast<const __m128i*>(scratch.points + first));
            const __m128i offset = _mm_sub_epi16(disc.point, points);
            return _mm_cmpgt_epi32(_mm_madd_epi16(offset, offset), disc.reach);
        };
        const __m128i beyond0 = _mm_packs_epi32(areBeyond(block), areBeyond(block + 4));
        const __m128i beyond8 = _mm_packs_epi32(areBeyond(block + 8), areBeyond(block + 12));
        return static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_packs_epi16(beyond0, beyond8))) ^ 0xFFFFU;
    }

    static void MakePoints(CCellScratch& scratch, int block, float scale, float limit)
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

    static int Append(std::uint32_t* pEnd, std::uint32_t uMask, std::uint32_t uFirst)
    {
        const auto getLowest = [&] {
            // The bit after the last lane is for an empty mask.
            const auto uLane = static_cast<std::uint32_t>(__builtin_ctz(uMask | 1U << c_iSearchCount));
            return uFirst + uLane * static_cast<std::uint32_t>(sizeof(CCellAtom));
        };
        // Most often there is none or one, seldom more than two: the first two take no branch that could be
        // mispredicted.
        int count = 0;
        for (int step = 0; step < 2; ++step)
        {
            pEnd[count] = getLowest();
            count += uMask != 0 ? 1 : 0;
            uMask &= uMask - 1;
        }
        for (; uMask != 0; uMask &= uMask - 1)
        {
            pEnd[count++] = getLowest();
        }
        return count;
    }

    static __m128 LoadQuads(const float* pField) { return _mm_loadu_ps(pField); }

    static __m128 InterleaveLow(__m128 a, __m128 b) { return _mm_unpacklo_ps(a, b); }
    static __m128 InterleaveHigh(__m128 a, __m128 b) { return _mm_unpackhi_ps(a, b); }
    static __m128 JoinLow(__m128 a, __m128 b) { return _mm_movelh_ps(a, b); }
    static __m128 JoinHigh(__m128 a, __m128 b) { return _mm_movehl_ps(b, a); }

    static void StorePairs(float* pField, __m128 pairs)
    {
        _mm_storel_pi(reinterpret_cast<__m64*>(pField), pairs);
        _mm_storeh_pi(reinterpret_cast<__m64*>(pField + c_iAtomFloats), pairs);
    }

    static __m128 SquareRoot(__m128 values) { return _mm_sqrt_ps(values); }
    static __m128 Min(__m128 a, __m128 b) { return _mm_min_ps(a, b); }
    static __m128 Max(__m128 a, __m128 b) { return _mm_max_ps(a, b); }

    static bool HasAny(Ints lanes) { return _mm_movemask_epi8(reinterpret_cast<__m128i>(lanes)) != 0; }
};

} // namespace

constinit const CSimulationKernels c_BaselineKernels = {"baseline", CPairKernel<CLanesBaseline>::CollideCell,
                                                        CMoveKernel<CLanesBaseline>::MoveAtomGroups,
                                                        CSpeedKernel<CLanesBaseline>::ComputeSpeeds};
