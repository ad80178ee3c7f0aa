#include "headless/console/HeadlessError.h"
#include "headless/files/CTextSink.h"
#include "headless/recorded/CFrameRecorder.h"
#include "settings/CSettings.h"
#include "tests/headless/HeadlessTesting.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace
{

constexpr std::uint64_t c_uLast = 7;

// A frame of three pieces.
class CFakeFormat : public IFrameFormat
{
public:
    std::string GetHeader() const override { return "header;"; }

    void WriteFrame(const CRunMoment& moment, IByteSink& sink) override
    {
        sink.Write("frame ");
        sink.Write(std::to_string(moment.iteration));
        sink.Write(";");
    }
};

// Runs a recorder through iterations as a run does.
class FrameRecorder : public testing::Test
{
protected:
    std::unique_ptr<CFrameRecorder> Make(const CFrameTimes& times, IByteSink* pStandardOutput = nullptr)
    {
        const auto check = [this] {
            if (piecesUntilSignal == 0)
            {
                throw CInterruptedError("interrupted", 130);
            }
            --piecesUntilSignal;
        };
        return std::make_unique<CFrameRecorder>(sPath, pStandardOutput, times, std::make_unique<CFakeFormat>(), check);
    }

    void Observe(CFrameRecorder& recorder, std::uint64_t uFirst, std::uint64_t uLast, std::uint64_t uEnd) const
    {
        for (std::uint64_t u = uFirst; u <= uLast; ++u)
        {
            recorder.Observe({u, 0, u == uEnd, atoms, settings});
        }
    }

    // Iterations 0 to uEnd, or those behind a progress. Returns the progress and keeps the file.
    std::string Run(const CFrameTimes& times, std::uint64_t uFirst, std::uint64_t uEnd, const std::string& sProgress)
    {
        const std::unique_ptr<CFrameRecorder> pRecorder = Make(times);
        if (!sProgress.empty())
        {
            pRecorder->Continue(sProgress);
        }
        Observe(*pRecorder, uFirst, uEnd, uEnd);
        pRecorder->Commit();
        return pRecorder->GetProgress();
    }

    std::string GetFile() const { return ReadFile(sPath); }

    const CTemporaryFolder folder;
    const std::string sPath = folder.GetPath("frames");
    const CAtoms atoms;
    const CSettings settings;
    int piecesUntilSignal = -1; // never
};

const CFrameTimes c_EveryThird = {3, false};
const CFrameTimes c_EveryThirdAndEnds = {3, true};
const CFrameTimes c_OnlyEnds = {std::nullopt, true};

} // namespace

TEST_F(FrameRecorder, WritesTheFramesOfItsTimes)
{
    Run(c_EveryThird, 0, c_uLast, "");
    EXPECT_EQ(GetFile(), "header;frame 0;frame 3;frame 6;");
    Run(c_EveryThirdAndEnds, 0, c_uLast, "");
    EXPECT_EQ(GetFile(), "header;frame 0;frame 3;frame 6;frame 7;");
    Run(c_EveryThirdAndEnds, 0, 6, "");
    EXPECT_EQ(GetFile(), "header;frame 0;frame 3;frame 6;");
    Run(c_OnlyEnds, 0, c_uLast, "");
    EXPECT_EQ(GetFile(), "header;frame 0;frame 7;");
    Run(c_OnlyEnds, 0, 0, "");
    EXPECT_EQ(GetFile(), "header;frame 0;");
}

TEST_F(FrameRecorder, BeginsWhereTheRunIsWhenItIsAdded)
{
    Run(c_EveryThirdAndEnds, 4, c_uLast, "");
    EXPECT_EQ(GetFile(), "header;frame 4;frame 6;frame 7;");
    Run(c_EveryThird, 4, c_uLast, "");
    EXPECT_EQ(GetFile(), "header;frame 6;");
}

TEST_F(FrameRecorder, WithoutAFrameTheFileIsTheHeader)
{
    const std::string sProgress = Run(c_EveryThird, 4, 5, "");
    EXPECT_EQ(GetFile(), "header;");
    Run(c_EveryThird, 6, c_uLast, sProgress);
    EXPECT_EQ(GetFile(), "header;frame 6;");
}

TEST_F(FrameRecorder, ARunInPiecesGivesTheWholeFile)
{
    for (const CFrameTimes& times : {c_EveryThird, c_EveryThirdAndEnds, c_OnlyEnds})
    {
        Run(times, 0, c_uLast, "");
        const std::string sWhole = GetFile();
        for (std::uint64_t uCut = 0; uCut < c_uLast; ++uCut)
        {
            const std::string sProgress = Run(times, 0, uCut, "");
            Run(times, uCut + 1, c_uLast, sProgress);
            EXPECT_EQ(GetFile(), sWhole) << uCut;
        }
    }
}

TEST_F(FrameRecorder, APieceWithoutAnIterationChangesNothing)
{
    const std::string sProgress = Run(c_EveryThirdAndEnds, 0, c_uLast, "");
    const std::string sWhole = GetFile();

    EXPECT_EQ(Run(c_EveryThirdAndEnds, c_uLast + 1, c_uLast, sProgress), sProgress);
    EXPECT_EQ(GetFile(), sWhole);
}

// The signal comes at each piece of each frame.
TEST_F(FrameRecorder, AnInterruptedFrameIsWrittenAgainFromItsBeginning)
{
    Run(c_EveryThirdAndEnds, 0, c_uLast, "");
    const std::string sWhole = GetFile();
    for (int pieces = 0; pieces < 12; ++pieces)
    {
        piecesUntilSignal = pieces;
        std::unique_ptr<CFrameRecorder> pRecorder = Make(c_EveryThirdAndEnds);
        EXPECT_THROW(Observe(*pRecorder, 0, c_uLast, c_uLast), CInterruptedError) << pieces;
        pRecorder->Keep(true);
        const std::string sProgress = pRecorder->GetProgress();
        pRecorder.reset();
        piecesUntilSignal = -1;
        const std::vector<std::uint64_t> interrupted = {0, 3, 6, 7};
        Run(c_EveryThirdAndEnds, interrupted.at(static_cast<std::size_t>(pieces) / 3), c_uLast, sProgress);
        EXPECT_EQ(GetFile(), sWhole) << pieces;
    }
}

TEST_F(FrameRecorder, RefusesAFileThatDoesNotBeginWithItsFrames)
{
    const std::string sProgress = Run(c_EveryThird, 0, c_uLast, "");
    folder.WriteFile("frames", "header;frame 0;frame 3;frame 5;");
    EXPECT_THROW(Run(c_EveryThird, 8, 9, sProgress), CHeadlessError);
    EXPECT_EQ(GetFile(), "header;frame 0;frame 3;frame 5;");
}

TEST_F(FrameRecorder, OnStandardOutputThePieceBeginsWithTheHeaderAndHasTheNewFrames)
{
    CTextSink first;
    const std::unique_ptr<CFrameRecorder> pFirst = Make(c_EveryThird, &first);
    Observe(*pFirst, 0, 4, 4);
    pFirst->Commit();
    EXPECT_EQ(first.GetText(), "header;frame 0;frame 3;");
    EXPECT_TRUE(first.IsCommitted());
    EXPECT_TRUE(pFirst->IsDirect());

    CTextSink second;
    const std::unique_ptr<CFrameRecorder> pSecond = Make(c_EveryThird, &second);
    pSecond->Continue(pFirst->GetProgress());
    Observe(*pSecond, 5, c_uLast, c_uLast);
    EXPECT_EQ(second.GetText(), "header;frame 6;");
    EXPECT_EQ(folder.GetNames().size(), 0U);
}
