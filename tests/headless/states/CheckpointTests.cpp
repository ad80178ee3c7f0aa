#include "headless/console/HeadlessError.h"
#include "headless/files/CByteWriter.h"
#include "headless/states/Checkpoint.h"
#include "tests/headless/HeadlessTesting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <sstream>

using testing::EndsWith;
using testing::HasSubstr;

namespace
{

CAtom MakeMovingAtom()
{
    CAtom atom = MakeAtom(1.5F, -2.25F, 32);
    atom.speed = 5;
    atom.vx = 3;
    atom.vy = -4;
    return atom;
}

CCheckpoint MakeCheckpoint()
{
    CCheckpoint checkpoint;
    checkpoint.settings.world = {600, 400};
    checkpoint.settings.background = 0x123456;
    checkpoint.settings.atoms = 2;
    checkpoint.settings.minRadius = 1;
    checkpoint.settings.maxRadius = 32;
    checkpoint.settings.eMode = EnumAtomColourMode::Fixed;
    checkpoint.settings.colours = {0xFF, 0xFFFFFF, 0};
    checkpoint.settings.factors = {CFactor(L"25%"), CFactor(), CFactor(L"1")};
    checkpoint.start = "\xC3\xA4.csv";
    checkpoint.seed = 0xFEDCBA9876543210U;
    checkpoint.random = CRandom(checkpoint.seed).GetState();
    checkpoint.iterations = 1'000'000'000'000;
    checkpoint.collisions = 77;
    checkpoint.startSpeedSum = 0.1;
    checkpoint.lastCollisions = 4'000'000'000;
    checkpoint.progress = {{"--stats", {999, std::string("\0a\xFF", 3)}}, {"--trajectory", {7, ""}}};
    return checkpoint;
}

std::string Write(const CCheckpoint& checkpoint, const CAtoms& atoms)
{
    CTextSink sink;
    WriteCheckpoint(checkpoint, atoms, sink);
    return sink.GetText();
}

std::string WriteExample()
{
    return Write(MakeCheckpoint(), MakeAtoms({MakeMovingAtom(), MakeAtom(7, 8, 9)}));
}

CCheckpoint Read(const std::string& sBytes, CAtoms& atoms)
{
    std::istringstream stream(sBytes);
    return ReadCheckpoint(stream, "a.ckpt", atoms);
}

// The message about a file, and that it changes no atom.
std::string GetError(const std::string& sBytes)
{
    CAtoms atoms = MakeAtoms({MakeAtom(1, 2, 3)});
    try
    {
        Read(sBytes, atoms);
    }
    catch (const CHeadlessError& error)
    {
        EXPECT_EQ(atoms.GetCount(), 1);
        return error.what();
    }
    return "";
}

// The same bytes with the checksum that belongs to them.
std::string WithChecksum(std::string sBytes)
{
    constexpr std::size_t c_uHashBytes = 8;
    sBytes.resize(sBytes.size() - c_uHashBytes);
    const std::uint64_t uHash = ComputeFnvHash(sBytes);
    for (std::size_t u = 0; u < c_uHashBytes; ++u)
    {
        sBytes += static_cast<char>(uHash >> (8 * u));
    }
    return sBytes;
}

std::string Replace(std::string sBytes, std::size_t uPlace, const std::string& sNew)
{
    return sBytes.replace(uPlace, sNew.size(), sNew);
}

} // namespace

TEST(Checkpoint, BringsBackEveryValue)
{
    CAtoms atoms;
    const CCheckpoint written = MakeCheckpoint();
    const CCheckpoint read = Read(WriteExample(), atoms);

    EXPECT_EQ(read.settings.world, written.settings.world);
    EXPECT_EQ(read.settings.background, written.settings.background);
    EXPECT_EQ(read.settings.atoms, written.settings.atoms);
    EXPECT_EQ(read.settings.minRadius, written.settings.minRadius);
    EXPECT_EQ(read.settings.maxRadius, written.settings.maxRadius);
    EXPECT_EQ(read.settings.eMode, written.settings.eMode);
    EXPECT_EQ(read.settings.colours, written.settings.colours);
    EXPECT_EQ(read.settings.factors, written.settings.factors);
    EXPECT_EQ(read.start, written.start);
    EXPECT_EQ(read.seed, written.seed);
    EXPECT_EQ(read.random, written.random);
    EXPECT_EQ(read.iterations, written.iterations);
    EXPECT_EQ(read.collisions, written.collisions);
    EXPECT_EQ(read.startSpeedSum, written.startSpeedSum);
    EXPECT_EQ(read.lastCollisions, written.lastCollisions);
    EXPECT_EQ(read.progress, written.progress);
    ASSERT_EQ(atoms.GetCount(), 2);
    EXPECT_EQ(atoms[0].x, 1.5F);
    EXPECT_EQ(atoms[0].y, -2.25F);
    EXPECT_EQ(atoms[0].speed, 5.0F);
    EXPECT_EQ(atoms[0].vx, 3.0F);
    EXPECT_EQ(atoms[0].vy, -4.0F);
    EXPECT_EQ(atoms[0].radius, 32);
    EXPECT_EQ(atoms.GetMaxVelocity(), 5.0F);
}

// The same file on every machine, for ever: a change of the format needs another version.
TEST(Checkpoint, HasTheSameBytesOnEveryMachine)
{
    const std::string sBytes = WriteExample();

    EXPECT_EQ(sBytes.substr(0, 12), std::string("\x89KINCP\r\n\2\0\0\0", 12));
    EXPECT_EQ(sBytes.size(), 2738U);
    EXPECT_EQ(static_cast<unsigned char>(sBytes[12]), sBytes.size() % 256);
    EXPECT_EQ(ComputeFnvHash(sBytes), 4862777190489583954U);
}

TEST(Checkpoint, EveryCutIsRefused)
{
    const std::string sBytes = WriteExample();

    for (std::size_t uLength = 0; uLength < sBytes.size(); ++uLength)
    {
        ASSERT_NE(GetError(sBytes.substr(0, uLength)), "") << uLength;
    }
    EXPECT_EQ(GetError(sBytes.substr(0, 100)), "a.ckpt: the checkpoint is damaged: it has 100 bytes instead of 2738");
    EXPECT_EQ(GetError(sBytes + '\0'), "a.ckpt: the checkpoint is damaged: it has 2739 bytes instead of 2738");
}

TEST(Checkpoint, EveryFlippedBitIsRefused)
{
    const std::string sBytes = WriteExample();

    for (std::size_t uBit = 0; uBit < 8 * sBytes.size(); ++uBit)
    {
        std::string sFlipped = sBytes;
        sFlipped[uBit / 8] = static_cast<char>(sFlipped[uBit / 8] ^ (1 << (uBit % 8)));
        ASSERT_NE(GetError(sFlipped), "") << uBit;
    }
    EXPECT_EQ(GetError(Replace(sBytes, 100, "?")), "a.ckpt: the checkpoint is damaged: its checksum is wrong");
}

TEST(Checkpoint, AnotherFileIsNamedAsSuch)
{
    for (const std::string& sBytes :
         {std::string(), std::string("x,y,vx,vy,radius\n1,1,1,1,1\n"), std::string(5000, '\0')})
    {
        EXPECT_EQ(GetError(sBytes), "a.ckpt: this is no checkpoint of kinetarium-headless");
    }
}

TEST(Checkpoint, AnotherVersionIsNamedAsSuch)
{
    EXPECT_EQ(GetError(Replace(WriteExample(), 8, "\x03")),
              "a.ckpt: this checkpoint has version 3 of the format; this program reads version 2");
}

// Each of these files has the right checksum.
TEST(Checkpoint, AValueThatNoRunHasIsRefused)
{
    const std::string sBytes = WriteExample();
    const auto getError = [&sBytes](std::size_t uPlace, const std::string& sNew) {
        return GetError(WithChecksum(Replace(sBytes, uPlace, sNew)));
    };
    const std::string sError = "a.ckpt: the checkpoint is damaged: it holds a value that no run has";
    const std::string sLargest(4, '\xFF');
    const std::size_t uRandom = sBytes.size() - 8 - 2 * 21 - 4 - 313 * 8;
    const std::size_t uAtoms = sBytes.size() - 8 - 2 * 21;

    EXPECT_EQ(GetError(WithChecksum(sBytes)), "");
    for (std::size_t uNumber = 0; uNumber < 10; ++uNumber)
    {
        EXPECT_EQ(getError(20 + 4 * uNumber, sLargest), sError) << uNumber;
    }
    EXPECT_EQ(getError(60, sLargest), sError) << "the length of a factor";
    EXPECT_EQ(getError(64, "abc"), sError) << "a factor";
    EXPECT_EQ(getError(uRandom, std::string(312 * 8, '\0')), sError) << "random numbers without a bit";
    EXPECT_EQ(getError(uRandom + 312 * 8, sLargest), sError) << "more used numbers than there are";
    EXPECT_EQ(getError(uAtoms - 4, "\x01"), sError) << "the number of atoms";
    EXPECT_EQ(getError(uAtoms, sLargest), sError) << "a position";
    EXPECT_EQ(getError(uAtoms + 20, std::string(1, '\0')), sError) << "a radius";
}

TEST(Checkpoint, AnAtomThatIsNowhereIsNotWritten)
{
    CTextSink sink;
    CAtom atom = MakeMovingAtom();
    atom.vx = std::bit_cast<float>(0x7F800000U);

    EXPECT_THROW(WriteCheckpoint(MakeCheckpoint(), MakeAtoms({atom}), sink), CHeadlessError);
}

TEST(Checkpoint, AFileThatIsNotThereIsNamed)
{
    const CTemporaryFolder folder;
    const CProgramResult result = RunProgram({"--resume", folder.GetPath("none.ckpt")});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.err, EndsWith("none.ckpt: there is no such file\n"));
}
