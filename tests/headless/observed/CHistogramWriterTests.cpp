#include "headless/console/HeadlessError.h"
#include "headless/files/CTextSink.h"
#include "headless/observed/CHistogramWriter.h"
#include "settings/CSettings.h"
#include "tests/headless/HeadlessTesting.h"

#include <gtest/gtest.h>

namespace
{

// Two atoms, one of them with the speed u / 4.
CAtoms MakeMoment(std::uint64_t u)
{
    CAtoms atoms = MakeAtoms({MakeAtom(10, 10, 1), MakeAtom(20, 10, 1)});
    atoms[0].speed = static_cast<float>(u) / 4;
    return atoms;
}

// Shows a writer the moments from uFrom to uTo; the run has uLast.
void Show(CHistogramWriter& writer, std::uint64_t uFrom, std::uint64_t uTo, std::uint64_t uLast)
{
    const CSettings settings;
    for (std::uint64_t u = uFrom; u <= uTo; ++u)
    {
        const CAtoms atoms = MakeMoment(u);
        writer.Observe({u, 0, u == uLast, atoms, settings});
        writer.Prepare(atoms);
    }
}

CHistogramTable MakeTable(const std::vector<std::uint64_t>& iterations, bool bEnd)
{
    return {iterations, bEnd, 2, 2.0};
}

std::string GetWhole(const CHistogramTable& table, std::uint64_t uIterations)
{
    const CTemporaryFolder folder;
    CHistogramWriter writer(folder.GetPath("a.csv"), nullptr, table);
    Show(writer, 0, uIterations, uIterations);
    writer.Commit();
    return ReadFile(folder.GetPath("a.csv"));
}

const std::string c_sHeader = "iteration,from_speed,to_speed,atoms,density\n";

} // namespace

TEST(HistogramWriter, WritesTheChosenIterationsWithARowForEachBinAndOneForFasterAtoms)
{
    EXPECT_EQ(GetWhole(MakeTable({0, 5}, false), 9), c_sHeader + "0,0,1,2,1\n0,1,2,0,0\n0,2,inf,0,0\n"
                                                                 "5,0,1,1,0.5\n5,1,2,1,0.5\n5,2,inf,0,0\n");
    EXPECT_EQ(GetWhole(MakeTable({}, true), 9), c_sHeader + "9,0,1,1,0.5\n9,1,2,0,0\n9,2,inf,1,0\n");
}

TEST(HistogramWriter, WritesTheLastIterationOnceAlsoIfItIsChosenByItsNumber)
{
    EXPECT_EQ(GetWhole(MakeTable({9}, true), 9), GetWhole(MakeTable({9}, false), 9));
    EXPECT_EQ(GetWhole(MakeTable({0}, true), 0), c_sHeader + "0,0,1,2,1\n0,1,2,0,0\n0,2,inf,0,0\n");
}

TEST(HistogramWriter, WithoutAChosenIterationHasOnlyAHeader)
{
    EXPECT_EQ(GetWhole(MakeTable({}, false), 3), c_sHeader);
}

TEST(HistogramWriter, ContinuesWhereverTheRunWasInterruptedOrEnded)
{
    const CHistogramTable table = MakeTable({0, 4, 7}, true);
    const std::string sWhole = GetWhole(table, 12);
    for (const bool bEnded : {false, true})
    {
        for (std::uint64_t uCut = 0; uCut <= 12; ++uCut)
        {
            const CTemporaryFolder folder;
            CHistogramWriter first(folder.GetPath("a.csv"), nullptr, table);
            Show(first, 0, uCut, bEnded ? uCut : 12);
            first.Keep(true);
            const std::string sProgress = first.GetProgress();
            first.Commit();
            CHistogramWriter second(folder.GetPath("a.csv"), nullptr, table);
            second.Continue(sProgress);
            Show(second, uCut + 1, 12, 12);
            second.Commit();

            EXPECT_EQ(ReadFile(folder.GetPath("a.csv")), sWhole) << uCut;
        }
    }
}

// The last iteration of the first piece is one of those that the second piece chooses.
TEST(HistogramWriter, KeepsTheEndOfAPieceThatIsChosenLater)
{
    const CTemporaryFolder folder;
    CHistogramWriter first(folder.GetPath("a.csv"), nullptr, MakeTable({}, true));
    Show(first, 0, 5, 5);
    const std::string sProgress = first.GetProgress();
    first.Commit();
    CHistogramWriter second(folder.GetPath("a.csv"), nullptr, MakeTable({5, 8}, false));
    second.Continue(sProgress);
    Show(second, 6, 9, 9);
    second.Commit();

    EXPECT_EQ(ReadFile(folder.GetPath("a.csv")), GetWhole(MakeTable({5, 8}, false), 9));
}

TEST(HistogramWriter, RefusesProgressThatIsCutOffOrTooLong)
{
    CTextSink sink;
    CHistogramWriter writer("", &sink, MakeTable({}, true));
    const std::string sProgress = writer.GetProgress();
    for (const std::string& sDamaged : {sProgress.substr(0, sProgress.size() - 1), sProgress + '\0'})
    {
        CHistogramWriter next("", &sink, MakeTable({}, true));
        EXPECT_THROW(next.Continue(sDamaged), CHeadlessError);
    }
}
