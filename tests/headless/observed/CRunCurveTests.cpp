#include "headless/console/HeadlessError.h"
#include "headless/observed/CCurveObserver.h"
#include "headless/observed/CRunCurve.h"
#include "settings/CSettings.h"
#include "tests/headless/HeadlessTesting.h"

#include <gtest/gtest.h>

namespace
{

// A run of one atom, whose speed is the number of the iteration. Iteration i has i collisions.
class CRun
{
public:
    CRun() : m_Atoms(MakeAtoms({MakeAtom(5, 5, 1)})) {}

    CRunMoment GetMoment(std::uint64_t uIteration)
    {
        const auto speed = static_cast<float>(uIteration);
        m_Atoms[0].vx = speed;
        m_Atoms.SetVelocities({speed, speed + 2, speed, speed + 1});
        return {uIteration, static_cast<std::uint32_t>(uIteration), false, m_Atoms, m_Settings};
    }

    void Observe(CRunCurve& curve, std::uint64_t uFirst, std::uint64_t uLast)
    {
        for (std::uint64_t u = uFirst; u <= uLast; ++u)
        {
            curve.Observe(GetMoment(u));
        }
    }

    std::vector<CCurvePoint> GetPoints(const CRunCurve& curve, std::uint64_t uLast)
    {
        return curve.GetPoints(GetMoment(uLast));
    }

private:
    CAtoms m_Atoms;
    CSettings m_Settings;
};

std::vector<std::uint64_t> IterationsOf(const std::vector<CCurvePoint>& points)
{
    std::vector<std::uint64_t> iterations;
    for (const CCurvePoint& point : points)
    {
        iterations.push_back(point.iteration);
    }
    return iterations;
}

using CIterations = std::vector<std::uint64_t>;

} // namespace

TEST(RunCurve, AShortRunHasAPointForEachIterationAndForTheStart)
{
    CRun run;
    CRunCurve curve;
    run.Observe(curve, 0, 3);
    const std::vector<CCurvePoint> points = run.GetPoints(curve, 3);
    ASSERT_EQ(IterationsOf(points), (CIterations{0, 1, 2, 3}));
    EXPECT_EQ(points[0], (CCurvePoint{0, 0, 0, 0, 0, 2, 1}));
    EXPECT_EQ(points[3], (CCurvePoint{3, 3, 1, 4.5, 3, 5, 4}));
}

TEST(RunCurve, ALongRunHasAPointForEachStrideAndTheEnd)
{
    CRun run;
    CRunCurve curve(4);
    run.Observe(curve, 0, 11);
    EXPECT_EQ(IterationsOf(run.GetPoints(curve, 11)), (CIterations{0, 4, 8, 11}));
    run.Observe(curve, 12, 17);
    EXPECT_EQ(IterationsOf(run.GetPoints(curve, 17)), (CIterations{0, 8, 16, 17}));
}

TEST(RunCurve, NoCollisionIsLost)
{
    CRun run;
    CRunCurve curve(4);
    for (std::uint64_t uLast = 0; uLast < 100; ++uLast)
    {
        run.Observe(curve, uLast, uLast);
        std::uint64_t uCollisions = 0;
        std::uint64_t uCounted = 0;
        for (const CCurvePoint& point : run.GetPoints(curve, uLast))
        {
            uCollisions += point.collisions;
            uCounted += point.counted;
        }
        EXPECT_EQ(uCollisions, uLast * (uLast + 1) / 2) << uLast;
        EXPECT_EQ(uCounted, uLast);
    }
}

TEST(RunCurve, ItsPointsStayFew)
{
    CRun run;
    CRunCurve curve;
    run.Observe(curve, 0, 50'000);
    const std::size_t uPoints = run.GetPoints(curve, 50'000).size();
    EXPECT_LE(uPoints, CRunCurve::c_uMostPoints + 1);
    EXPECT_GE(uPoints, CRunCurve::c_uMostPoints / 2);
}

TEST(RunCurve, ACurveInPiecesIsTheWholeCurve)
{
    CRun run;
    CRunCurve whole(4);
    run.Observe(whole, 0, 45);
    for (std::uint64_t uCut = 0; uCut < 45; ++uCut)
    {
        CRunCurve first(4);
        run.Observe(first, 0, uCut);
        run.GetPoints(first, uCut);
        const std::string sProgress = CCurveObserver(first).GetProgress();
        CRunCurve second(4);
        CCurveObserver(second).Continue(sProgress);
        run.Observe(second, uCut + 1, 45);
        EXPECT_EQ(run.GetPoints(second, 45), run.GetPoints(whole, 45)) << uCut;
    }
}

TEST(RunCurve, ACurveThatBeginsLaterHasItsFirstMoment)
{
    CRun run;
    CRunCurve curve(4);
    run.Observe(curve, 5, 11);
    EXPECT_EQ(IterationsOf(run.GetPoints(curve, 11)), (CIterations{5, 6, 8, 10, 11}));
}

TEST(RunCurve, DamagedProgressIsRefused)
{
    CRun run;
    CRunCurve curve;
    run.Observe(curve, 0, 5);
    const std::string sProgress = CCurveObserver(curve).GetProgress();
    for (std::size_t u = 0; u < sProgress.size(); ++u)
    {
        CRunCurve other;
        EXPECT_THROW(CCurveObserver(other).Continue(sProgress.substr(0, u)), CHeadlessError) << u;
    }
    CRunCurve small(2);
    EXPECT_THROW(CCurveObserver(small).Continue(sProgress), CHeadlessError);
    CRunCurve other;
    EXPECT_THROW(CCurveObserver(other).Continue(std::string(28, '\0')), CHeadlessError);
}
