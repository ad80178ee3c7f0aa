#include "simulation/MoveKernel.h"
#include "simulation/PairKernel.h"
#include "simulation/SimulationKernelSets.h"
#include "simulation/SpeedKernel.h"

#include <immintrin.h>

namespace
{

// For each mask of eight bits: the numbers of the bits that are set, in ascending order.
struct CBitNumbers
{
    alignas(8) std::uint8_t numbers[256][8];
};

constexpr CBitNumbers MakeBitNumbers()
{
    CBitNumbers table{};
    for (unsigned mask = 0; mask < 256; ++mask)
    {
        unsigned count = 0;
        for (std::uint8_t bit = 0; bit < 8; ++bit)
        {
            if ((mask >> bit & 1U) != 0)
            {
                table.numbers[mask][count++] = bit;
            }
        }
    }
    return table;
}

constexpr CBitNumbers c_BitNumbers = MakeBitNumbers();

// Eight lanes, with AVX2.
struct CLanesAvx2
{
    static constexpr int c_iCount = 8;

    using Floats = float __attribute__((vector_size(sizeof(float) * c_iCount)));
    using Ints = std::int32_t __attribute__((vector_size(sizeof(std::int32_t) * c_iCount)));

    struct CCircle
    {
        __m256 x;
        __m256 y;
        __m256 radius;
    };

    static void Fill(std::int32_t* pFirst, std::int32_t value)
    {
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(pFirst), _mm256_set1_epi32(value));
    }

    static void Fill(float* pFirst, float value) { _mm256_storeu_ps(pFirst, _mm256_set1_ps(value)); }

    static CCircle MakeCircle(float x, float y, float radius)
    {
        return {_mm256_set1_ps(x), _mm256_set1_ps(y), _mm256_set1_ps(radius)};
    }

    static std::uint32_t FindTouching(const CCircle& circle, const CCellScratch& scratch, int block)
    {
        const __m256 dx = _mm256_sub_ps(circle.x, _mm256_load_ps(scratch.x + block));
        const __m256 dy = _mm256_sub_ps(circle.y, _mm256_load_ps(scratch.y + block));
        const __m256 sum = _mm256_add_ps(circle.radius, _mm256_load_ps(scratch.radius + block));
        const __m256 squares = _mm256_add_ps(_mm256_mul_ps(dy, dy), _mm256_mul_ps(dx, dx));
        const __m256 touching = _mm256_cmp_ps(squares, _mm256_mul_ps(sum, sum), _CMP_LE_OQ);
        return static_cast<std::uint32_t>(_mm256_movemask_ps(touching));
    }

    struct CDisc
    {
        __m256i point;
        __m256i reach;
    };

    static CDisc MakeDisc(std::int32_t point, std::int32_t reach)
    {
        return {_mm256_set1_epi32(point), _mm256_set1_epi32(reach)};
    }

    static constexpr int c_iSearchCount = c_iCount;

    static std::uint32_t FindNear(const CDisc& disc, const CCellScratch& scratch, int block)
    {
        const __m256i points = _mm256_load_si256(reinterpret_cast<const __m256i*>(scratch.points + block));
        const __m256i offset = _mm256_sub_epi16(disc.point, points);
        const __m256i beyond = _mm256_cmpgt_epi32(_mm256_madd_epi16(offset, offset), disc.reach);
        return static_cast<std::uint32_t>(_mm256_movemask_ps(_mm256_castsi256_ps(beyond))) ^ 0xFFU;
    }

    static void MakePoints(CCellScratch& scratch, int block, float scale, float limit)
    {
        const auto toPoints = [=](const float* pPositions, float origin) {
            const __m256 offset = _mm256_sub_ps(_mm256_load_ps(pPositions), _mm256_set1_ps(origin));
            const __m256 points = _mm256_mul_ps(offset, _mm256_set1_ps(scale));
            return _mm256_cvtps_epi32(
                _mm256_max_ps(_mm256_min_ps(points, _mm256_set1_ps(limit)), _mm256_set1_ps(-limit)));
        };
        const __m256i x = toPoints(scratch.x + block, scratch.originX);
        const __m256i y = toPoints(scratch.y + block, scratch.originY);
        const __m256i packed =
            _mm256_or_si256(_mm256_slli_epi32(y, 16), _mm256_and_si256(x, _mm256_set1_epi32(0xFFFF)));
        _mm256_store_si256(reinterpret_cast<__m256i*>(scratch.points + block), packed);
    }

    static int Append(std::uint32_t* pEnd, std::uint32_t uMask, std::uint32_t uFirst)
    {
        const __m128i bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(c_BitNumbers.numbers[uMask]));
        const __m256i offsets = _mm256_mullo_epi16(_mm256_cvtepu8_epi32(bytes), _mm256_set1_epi32(sizeof(CCellAtom)));
        const __m256i pairs = _mm256_add_epi32(offsets, _mm256_set1_epi32(static_cast<int>(uFirst)));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(pEnd), pairs);
        return __builtin_popcount(uMask);
    }

    static __m256 LoadQuads(const float* pField)
    {
        const __m256 low = _mm256_castps128_ps256(_mm_loadu_ps(pField));
        return _mm256_insertf128_ps(low, _mm_loadu_ps(pField + 4 * c_iAtomFloats), 1);
    }

    static __m256 InterleaveLow(__m256 a, __m256 b) { return _mm256_unpacklo_ps(a, b); }
    static __m256 InterleaveHigh(__m256 a, __m256 b) { return _mm256_unpackhi_ps(a, b); }
    static __m256 JoinLow(__m256 a, __m256 b) { return _mm256_shuffle_ps(a, b, _MM_SHUFFLE(1, 0, 1, 0)); }
    static __m256 JoinHigh(__m256 a, __m256 b) { return _mm256_shuffle_ps(a, b, _MM_SHUFFLE(3, 2, 3, 2)); }

    static void StorePairs(float* pField, __m256 pairs)
    {
        StoreTwoPairs(pField, _mm256_castps256_ps128(pairs));
        StoreTwoPairs(pField + 4 * c_iAtomFloats, _mm256_extractf128_ps(pairs, 1));
    }

    static void StoreTwoPairs(float* pField, __m128 pairs)
    {
        _mm_storel_pi(reinterpret_cast<__m64*>(pField), pairs);
        _mm_storeh_pi(reinterpret_cast<__m64*>(pField + c_iAtomFloats), pairs);
    }

    static __m256 SquareRoot(__m256 values) { return _mm256_sqrt_ps(values); }
    static __m256 Min(__m256 a, __m256 b) { return _mm256_min_ps(a, b); }
    static __m256 Max(__m256 a, __m256 b) { return _mm256_max_ps(a, b); }

    static bool HasAny(Ints lanes) { return _mm256_movemask_epi8(reinterpret_cast<__m256i>(lanes)) != 0; }
};

} // namespace

constinit const CSimulationKernels c_Avx2Kernels = {"AVX2", CPairKernel<CLanesAvx2>::CollideCell,
                                                    CMoveKernel<CLanesAvx2>::MoveAtomGroups,
                                                    CSpeedKernel<CLanesAvx2>::ComputeSpeeds};
