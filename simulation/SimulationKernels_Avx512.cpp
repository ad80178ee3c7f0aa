#include "simulation/MoveKernel.h"
#include "simulation/PairKernel.h"
#include "simulation/SimulationKernelSets.h"
#include "simulation/SpeedKernel.h"

#include <immintrin.h>

namespace
{

// Sixteen lanes, with AVX-512 (F, BW, DQ and VL).
struct CLanesAvx512
{
    static constexpr int c_iCount = 16;

    using Floats = float __attribute__((vector_size(sizeof(float) * c_iCount)));
    using Ints = std::int32_t __attribute__((vector_size(sizeof(std::int32_t) * c_iCount)));

    struct CCircle
    {
        __m512 x;
        __m512 y;
        __m512 radius;
    };

    static void Fill(std::int32_t* pFirst, std::int32_t value)
    {
        _mm512_storeu_si512(pFirst, _mm512_set1_epi32(value));
    }

    static void Fill(float* pFirst, float value) { _mm512_storeu_ps(pFirst, _mm512_set1_ps(value)); }

    static CCircle MakeCircle(float x, float y, float radius)
    {
        return {_mm512_set1_ps(x), _mm512_set1_ps(y), _mm512_set1_ps(radius)};
    }

    static std::uint32_t FindTouching(const CCircle& circle, const CCellScratch& scratch, int block)
    {
        const __m512 dx = _mm512_sub_ps(circle.x, _mm512_load_ps(scratch.x + block));
        const __m512 dy = _mm512_sub_ps(circle.y, _mm512_load_ps(scratch.y + block));
        const __m512 sum = _mm512_add_ps(circle.radius, _mm512_load_ps(scratch.radius + block));
        const __m512 squares = _mm512_add_ps(_mm512_mul_ps(dy, dy), _mm512_mul_ps(dx, dx));
        return _mm512_cmp_ps_mask(squares, _mm512_mul_ps(sum, sum), _CMP_LE_OQ);
    }

    struct CDisc
    {
        __m512i point;
        __m512i reach;
    };

    static CDisc MakeDisc(std::int32_t point, std::int32_t reach)
    {
        return {_mm512_set1_epi32(point), _mm512_set1_epi32(reach)};
    }

    static constexpr int c_iSearchCount = c_iCount;

    static std::uint32_t FindNear(const CDisc& disc, const CCellScratch& scratch, int block)
    {
        const __m512i offset = _mm512_sub_epi16(disc.point, _mm512_load_si512(scratch.points + block));
        return _mm512_cmple_epi32_mask(_mm512_madd_epi16(offset, offset), disc.reach);
    }

    static void MakePoints(CCellScratch& scratch, int block, float scale, float limit)
    {
        const auto toPoints = [=](const float* pPositions, float origin) {
            const __m512 offset = _mm512_sub_ps(_mm512_load_ps(pPositions), _mm512_set1_ps(origin));
            const __m512 points = _mm512_mul_ps(offset, _mm512_set1_ps(scale));
            return _mm512_cvtps_epi32(
                _mm512_max_ps(_mm512_min_ps(points, _mm512_set1_ps(limit)), _mm512_set1_ps(-limit)));
        };
        const __m512i x = toPoints(scratch.x + block, scratch.originX);
        const __m512i y = toPoints(scratch.y + block, scratch.originY);
        const __m512i packed =
            _mm512_or_si512(_mm512_slli_epi32(y, 16), _mm512_and_si512(x, _mm512_set1_epi32(0xFFFF)));
        _mm512_store_si512(scratch.points + block, packed);
    }

    static int Append(std::uint32_t* pEnd, std::uint32_t uMask, std::uint32_t uFirst)
    {
        const __m512i lanes = _mm512_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
        const __m512i offsets = _mm512_mullo_epi32(lanes, _mm512_set1_epi32(sizeof(CCellAtom)));
        const __m512i pairs = _mm512_add_epi32(offsets, _mm512_set1_epi32(static_cast<int>(uFirst)));
        const __m512i found = _mm512_maskz_compress_epi32(static_cast<__mmask16>(uMask), pairs);
        const int count = __builtin_popcount(uMask);
        // Usually at most four are found, and a short store seldom crosses into a second cache line.
        _mm_storeu_si128(reinterpret_cast<__m128i*>(pEnd), _mm512_castsi512_si128(found));
        if (count > 4) [[unlikely]]
        {
            _mm512_storeu_si512(pEnd, found);
        }
        return count;
    }

    static __m512 LoadQuads(const float* pField)
    {
        const __m512 first = _mm512_castps128_ps512(_mm_loadu_ps(pField));
        const __m512 second = _mm512_insertf32x4(first, _mm_loadu_ps(pField + 4 * c_iAtomFloats), 1);
        const __m512 third = _mm512_insertf32x4(second, _mm_loadu_ps(pField + 8 * c_iAtomFloats), 2);
        return _mm512_insertf32x4(third, _mm_loadu_ps(pField + 12 * c_iAtomFloats), 3);
    }

    static __m512 InterleaveLow(__m512 a, __m512 b) { return _mm512_unpacklo_ps(a, b); }
    static __m512 InterleaveHigh(__m512 a, __m512 b) { return _mm512_unpackhi_ps(a, b); }
    static __m512 JoinLow(__m512 a, __m512 b) { return _mm512_shuffle_ps(a, b, _MM_SHUFFLE(1, 0, 1, 0)); }
    static __m512 JoinHigh(__m512 a, __m512 b) { return _mm512_shuffle_ps(a, b, _MM_SHUFFLE(3, 2, 3, 2)); }

    static void StorePairs(float* pField, __m512 pairs)
    {
        StoreTwoPairs(pField, _mm512_castps512_ps128(pairs));
        StoreTwoPairs(pField + 4 * c_iAtomFloats, _mm512_extractf32x4_ps(pairs, 1));
        StoreTwoPairs(pField + 8 * c_iAtomFloats, _mm512_extractf32x4_ps(pairs, 2));
        StoreTwoPairs(pField + 12 * c_iAtomFloats, _mm512_extractf32x4_ps(pairs, 3));
    }

    static void StoreTwoPairs(float* pField, __m128 pairs)
    {
        _mm_storel_pi(reinterpret_cast<__m64*>(pField), pairs);
        _mm_storeh_pi(reinterpret_cast<__m64*>(pField + c_iAtomFloats), pairs);
    }

    static __m512 SquareRoot(__m512 values) { return _mm512_sqrt_ps(values); }
    static __m512 Min(__m512 a, __m512 b) { return _mm512_min_ps(a, b); }
    static __m512 Max(__m512 a, __m512 b) { return _mm512_max_ps(a, b); }

    static bool HasAny(Ints lanes)
    {
        const __m512i all = reinterpret_cast<__m512i>(lanes);
        return _mm512_test_epi32_mask(all, all) != 0;
    }
};

} // namespace

constinit const CSimulationKernels c_Avx512Kernels = {"AVX-512", CPairKernel<CLanesAvx512>::CollideCell,
                                                      CMoveKernel<CLanesAvx512>::MoveAtomGroups,
                                                      CSpeedKernel<CLanesAvx512>::ComputeSpeeds};
