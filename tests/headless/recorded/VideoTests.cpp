#include "headless/files/CTextSink.h"
#include "headless/observed/IRunObserver.h"
#include "headless/pictures/CWorldImage.h"
#include "headless/recorded/VideoFormat.h"
#include "settings/CSettings.h"
#include "tests/headless/HeadlessTesting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>

using testing::HasSubstr;

namespace
{

using CArguments = std::vector<std::string>;
using CYCbCr = std::array<int, 3>;

const std::string c_sHeader = "YUV4MPEG2 W60 H31 F60:1 Ip A1:1 C444 XCOLORRANGE=LIMITED\n";
constexpr std::size_t c_uFrameBytes = 6 + 3 * 60 * 31; // "FRAME", line end, three planes

CArguments Join(CArguments first, const CArguments& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

CProgramResult RunWell(const CArguments& arguments)
{
    CProgramResult result = RunProgram(arguments);
    EXPECT_EQ(result.exitCode, 0) << result.err;
    return result;
}

std::string MakeFrame(const CAtoms& atoms, const CSettings& settings)
{
    CTextSink sink;
    MakeVideoFormat(settings.world)->WriteFrame({0, 0, false, atoms, settings}, sink);
    return sink.GetText();
}

// Of a pixel of a picture of ten times ten pixels.
CYCbCr GetPixel(const std::string& sFrame, std::size_t uPixel)
{
    constexpr std::size_t c_uPlane = 100;
    CYCbCr pixel{};
    for (std::size_t u = 0; u < pixel.size(); ++u)
    {
        pixel[u] = static_cast<unsigned char>(sFrame.at(6 + u * c_uPlane + uPixel));
    }
    return pixel;
}

CYCbCr ConvertBackground(ColourRef colour)
{
    CSettings settings;
    settings.world = {10, 10};
    settings.background = colour;
    return GetPixel(MakeFrame(CAtoms(), settings), 0);
}

// The formulas of the recommendation. Halves are rounded up, also where the double is a little less than the half.
CYCbCr ConvertPlainly(double red, double green, double blue)
{
    constexpr double c_dHalf = 0.5 + 1e-9;
    const double luma = (0.299 * red + 0.587 * green + 0.114 * blue) / 255;
    return {static_cast<int>(std::floor(16 + 219 * luma + c_dHalf)),
            static_cast<int>(std::floor(128 + 224 * (blue / 255 - luma) / 1.772 + c_dHalf)),
            static_cast<int>(std::floor(128 + 224 * (red / 255 - luma) / 1.402 + c_dHalf))};
}

class Video : public testing::Test
{
protected:
    CArguments GetWorld() const
    {
        return {"--seed", "42", "--atoms", "9", "--width", "60", "--height", "31", "--video", sPath};
    }

    // The video of a small run.
    std::string Record(const CArguments& arguments) const
    {
        RunWell(Join(GetWorld(), arguments));
        return ReadFile(sPath);
    }

    static std::string GetFrame(const std::string& sVideo, std::size_t uFrame)
    {
        return sVideo.substr(c_sHeader.size() + uFrame * c_uFrameBytes, c_uFrameBytes);
    }

    const CTemporaryFolder folder;
    const std::string sPath = folder.GetPath("run.y4m");
};

std::string GetUsageError(const CArguments& arguments)
{
    const CProgramResult result = RunProgram(arguments);
    EXPECT_EQ(result.exitCode, 2);
    return result.err.substr(0, result.err.find('\n'));
}

} // namespace

// The values of the recommendation for the corners of the colour cube.
TEST(VideoColours, AreThoseOfBt601)
{
    EXPECT_EQ(ConvertBackground(MakeColour(0, 0, 0)), (CYCbCr{16, 128, 128}));
    EXPECT_EQ(ConvertBackground(MakeColour(255, 255, 255)), (CYCbCr{235, 128, 128}));
    EXPECT_EQ(ConvertBackground(MakeColour(255, 0, 0)), (CYCbCr{81, 90, 240}));
    EXPECT_EQ(ConvertBackground(MakeColour(0, 255, 0)), (CYCbCr{145, 54, 34}));
    EXPECT_EQ(ConvertBackground(MakeColour(0, 0, 255)), (CYCbCr{41, 240, 110}));
}

TEST(VideoColours, AreRoundedToTheNearest)
{
    for (int number = 0; number < 17 * 17 * 17; ++number)
    {
        const auto red = static_cast<std::uint8_t>(15 * (number % 17));
        const auto green = static_cast<std::uint8_t>(15 * (number / 17 % 17));
        const auto blue = static_cast<std::uint8_t>(15 * (number / 17 / 17));
        ASSERT_EQ(ConvertBackground(MakeColour(red, green, blue)), ConvertPlainly(red, green, blue)) << number;
    }
}

// The atoms differ from the background in one channel at a time.
TEST(VideoFrame, HasThePixelsOfThePicture)
{
    const CAtoms atoms = MakeAtoms({MakeAtom(3, 4, 3), MakeAtom(8, 8, 2)});
    for (const ColourRef colour : {MakeColour(200, 20, 30), MakeColour(10, 200, 30), MakeColour(10, 20, 200)})
    {
        CSettings settings;
        settings.world = {10, 10};
        settings.background = MakeColour(10, 20, 30);
        settings.colours = {colour, colour, colour};
        const std::string sFrame = MakeFrame(atoms, settings);
        const std::vector<std::uint8_t> pixels = DrawWorld(atoms, settings).GetPixels();

        EXPECT_EQ(sFrame.substr(0, 6), "FRAME\n");
        EXPECT_EQ(sFrame.size(), 6 + pixels.size());
        for (std::size_t u = 0; u < pixels.size() / 3; ++u)
        {
            EXPECT_EQ(GetPixel(sFrame, u), ConvertPlainly(pixels[3 * u], pixels[3 * u + 1], pixels[3 * u + 2])) << u;
        }
    }
}

TEST_F(Video, HasAFrameForTheStartAndEveryNthIteration)
{
    const std::string sEach = Record({"--iterations", "7"});
    EXPECT_EQ(sEach.substr(0, c_sHeader.size()), c_sHeader);
    EXPECT_EQ(sEach.size(), c_sHeader.size() + 8 * c_uFrameBytes);
    EXPECT_NE(GetFrame(sEach, 3), GetFrame(sEach, 6));
    const std::string sThird = Record({"--iterations", "7", "--video-every", "3"});
    EXPECT_TRUE(sThird == c_sHeader + GetFrame(sEach, 0) + GetFrame(sEach, 3) + GetFrame(sEach, 6));
    EXPECT_TRUE(Record({"--iterations", "7", "--video-every", "8"}) == c_sHeader + GetFrame(sEach, 0));
    EXPECT_TRUE(Record({"--iterations", "0"}) == c_sHeader + GetFrame(sEach, 0));
}

TEST_F(Video, OfARunInPiecesIsThatOfTheWholeRun)
{
    const std::string sWhole = Record({"--iterations", "9", "--video-every", "2"});
    const CArguments checkpoint = {"--checkpoint", folder.GetPath("run.ckpt"), "--video-every", "2"};
    const CArguments resume = Join({"--resume", folder.GetPath("run.ckpt"), "--video", sPath}, checkpoint);
    Record(Join({"--iterations", "3"}, checkpoint));
    RunWell(Join(resume, {"--iterations", "0"}));
    RunWell(Join(resume, {"--iterations", "6"}));

    EXPECT_TRUE(ReadFile(sPath) == sWhole);
}

TEST_F(Video, OnStandardOutputBeginsANewStreamAtTheResumedIteration)
{
    const std::string sWhole = Record({"--iterations", "4"});
    const CArguments checkpoint = {"--checkpoint", folder.GetPath("run.ckpt"), "--video", "-", "--iterations", "2"};
    const CProgramResult first =
        RunWell(Join({"--seed", "42", "--atoms", "9", "--width", "60", "--height", "31"}, checkpoint));
    const CProgramResult second = RunWell(Join({"--resume", folder.GetPath("run.ckpt")}, checkpoint));

    EXPECT_TRUE(first.out == sWhole.substr(0, c_sHeader.size() + 3 * c_uFrameBytes));
    EXPECT_TRUE(second.out == c_sHeader + GetFrame(sWhole, 3) + GetFrame(sWhole, 4));
    EXPECT_EQ(GetSummaryValue(second.err, "iterations"), "4");
}

TEST_F(Video, OptionsAreCheckedBeforeTheRun)
{
    EXPECT_EQ(GetUsageError({"--video-every", "5"}), "error: --video-every: needs --video, which names the file");
    EXPECT_EQ(GetUsageError({"--video", sPath, "--video-every", "0"}),
              "error: --video-every: '0' is not allowed; allowed is a whole number from 1 to 1000000000000");
    EXPECT_THAT(GetUsageError({"--video", "-", "--trajectory", "-"}), HasSubstr("is the same file as"));
    EXPECT_THAT(GetUsageError({"--video", sPath, "--checkpoint", sPath + ".partial"}),
                HasSubstr(" is the same file as the growing file of --video: "));
}
