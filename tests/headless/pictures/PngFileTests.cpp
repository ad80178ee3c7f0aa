#include "classes/core/CRandom.h"
#include "headless/console/HeadlessError.h"
#include "headless/pictures/CWorldImage.h"
#include "headless/pictures/PngFile.h"
#include "tests/headless/HeadlessTesting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_PNG
#define STBI_NO_STDIO
#include <stb/stb_image.h>

namespace
{

// A picture as another PNG reader decodes it.
struct CDecodedPicture
{
    int width{};
    int height{};
    int channels{};
    std::vector<std::uint8_t> pixels;
};

CDecodedPicture Decode(const std::string& sBytes)
{
    CDecodedPicture picture;
    stbi_uc* const pPixels =
        stbi_load_from_memory(reinterpret_cast<const stbi_uc*>(sBytes.data()), static_cast<int>(sBytes.size()),
                              &picture.width, &picture.height, &picture.channels, 0);
    EXPECT_NE(pPixels, nullptr);
    if (pPixels != nullptr)
    {
        picture.pixels.assign(pPixels, pPixels + std::ptrdiff_t{picture.width} * picture.height * picture.channels);
        stbi_image_free(pPixels);
    }
    return picture;
}

// The four bytes at the beginning, the highest first.
std::uint32_t ReadNumber(std::string_view sBytes)
{
    std::uint32_t uNumber = 0;
    for (const char byte : sBytes.substr(0, 4))
    {
        uNumber = (uNumber << 8U) | static_cast<unsigned char>(byte);
    }
    return uNumber;
}

// CRC-32 bit by bit.
std::uint32_t ComputeChecksum(std::string_view sBytes)
{
    std::uint32_t uSum = 0xFFFFFFFF;
    for (const char byte : sBytes)
    {
        uSum ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
        {
            uSum = (uSum >> 1U) ^ ((uSum & 1U) != 0 ? 0xEDB88320U : 0U);
        }
    }
    return ~uSum;
}

class CFailingSink : public IByteSink
{
public:
    void Write(std::string_view) override { throw CHeadlessError("full"); }
    void Commit() override {}
};

} // namespace

TEST(PngFile, HoldsThePictureExactly)
{
    CWorldImage image({37, 23}, 0x302010);
    image.FillCircle(10, 11, 7, 0x0000FF);
    image.FillCircle(30, 3, 9, 0xFFFFFF);
    CTextSink sink;
    WritePng(image, sink);

    ASSERT_EQ(std::string_view(sink.GetText()).substr(0, 8), std::string_view("\x89PNG\r\n\x1A\n", 8));
    const CDecodedPicture picture = Decode(sink.GetText());
    EXPECT_EQ(picture.width, 37);
    EXPECT_EQ(picture.height, 23);
    EXPECT_EQ(picture.channels, 3);
    EXPECT_EQ(picture.pixels, image.GetPixels());
}

TEST(PngFile, TheProgramDrawsTheWorldOfItsLastIteration)
{
    const CTemporaryFolder folder;
    const std::string sState = folder.WriteFile("a.csv", "x,y,vx,vy,radius\n20,15,1,0,5\n");
    const std::string sPicture = folder.GetPath("a.png");

    const CProgramResult result =
        RunProgram({"--load-state", sState, "--width", "60", "--height", "30", "--iterations", "10", "--picture",
                    sPicture, "--colours", "000000,123456,000000", "--background", "ffffff"});

    ASSERT_EQ(result.exitCode, 0) << result.err;
    const CDecodedPicture picture = Decode(ReadFile(sPicture));
    ASSERT_EQ(picture.width, 60);
    ASSERT_EQ(picture.height, 30);
    const auto pixel = [&picture](std::size_t x, std::size_t y) {
        return &picture.pixels[(y * std::size_t{60} + x) * 3];
    };
    EXPECT_EQ(std::memcmp(pixel(30, 15), "\x12\x34\x56", 3), 0);
    EXPECT_EQ(std::memcmp(pixel(20, 15), "\xFF\xFF\xFF", 3), 0);
}

TEST(PngFile, PicturesOfTheRunAreNumbered)
{
    const CTemporaryFolder folder;
    const CProgramResult result = RunProgram({"--seed", "1", "--atoms", "5", "--iterations", "100", "--picture",
                                              folder.GetPath("gas.png"), "--picture-every", "30"});

    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(folder.GetNames(), (std::vector<std::string>{"gas-030.png", "gas-060.png", "gas-090.png", "gas.png"}));
    EXPECT_NE(ReadFile(folder.GetPath("gas.png")), ReadFile(folder.GetPath("gas-090.png")));
}

TEST(PngFile, AnErrorOfTheFilePassesThroughTheLibrary)
{
    CFailingSink sink;
    EXPECT_THROW(WritePng(CWorldImage({10, 10}, 0), sink), CHeadlessError);
}

// Noise cannot be compressed, so the picture fills several pieces of the writer.
TEST(PngFile, ALargePictureHasSeveralChunksWithTheirChecksums)
{
    CRandom random(1);
    CWorldImage image({400, 300}, 0);
    for (int atom = 0; atom < 20'000; ++atom)
    {
        const auto colour = MakeColour(random.GetRandomNumber_Uint8(0, 255), random.GetRandomNumber_Uint8(0, 255),
                                       random.GetRandomNumber_Uint8(0, 255));
        image.FillCircle(random.GetRandomNumber_Float(0, 400), random.GetRandomNumber_Float(0, 300), 1, colour);
    }
    CTextSink sink;
    WritePng(image, sink);

    std::vector<std::string> types;
    std::string_view sLeft = std::string_view(sink.GetText()).substr(8);
    while (!sLeft.empty())
    {
        const std::uint32_t uLength = ReadNumber(sLeft);
        ASSERT_GE(sLeft.size(), uLength + 12U);
        types.emplace_back(sLeft.substr(4, 4));
        EXPECT_EQ(ReadNumber(sLeft.substr(uLength + 8U)), ComputeChecksum(sLeft.substr(4, uLength + 4U)));
        sLeft.remove_prefix(uLength + 12U);
    }
    ASSERT_GE(types.size(), 4U);
    EXPECT_EQ(types.front(), "IHDR");
    EXPECT_EQ(types.back(), "IEND");
    EXPECT_EQ(std::count(types.begin(), types.end(), "IDAT"), std::ptrdiff_t(types.size()) - 2);
    EXPECT_EQ(Decode(sink.GetText()).pixels, image.GetPixels());
}
