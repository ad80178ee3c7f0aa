#include "headless/console/HeadlessError.h"
#include "headless/files/CGzipSink.h"
#include "headless/files/CTextSink.h"
#include "tests/headless/Gunzip.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <stdexcept>
#include <string>

namespace
{

// Text that no compression makes much smaller.
std::string MakeText(std::size_t uBytes)
{
    std::string sText;
    std::uint32_t uState = 1;
    for (std::size_t u = 0; u < uBytes; ++u)
    {
        uState = uState * 1664525U + 1013904223U;
        sText += static_cast<char>('!' + (uState >> 24U) % 90);
    }
    return sText;
}

std::string Compress(const std::string& sText)
{
    CTextSink bytes;
    CGzipSink member(bytes);
    member.Write(sText);
    member.Commit();
    EXPECT_FALSE(bytes.IsCommitted());
    return bytes.GetText();
}

// Takes so many pieces and then fails.
class CFullSink : public IByteSink
{
public:
    explicit CFullSink(int pieces) : m_iPieces(pieces) {}
    void Write(std::string_view /*sBytes*/) override
    {
        if (m_iPieces == 0)
        {
            throw CWriteError("full");
        }
        --m_iPieces;
    }
    void Commit() override {}

private:
    int m_iPieces;
};

} // namespace

TEST(GzipSink, TheBytesReadBack)
{
    EXPECT_EQ(Gunzip(Compress("")), "");
    EXPECT_EQ(Gunzip(Compress("x")), "x");
    // The end of some of them does not fit into the piece that was begun.
    for (std::size_t uBytes = 1000; uBytes < 400'000; uBytes += 9973)
    {
        const std::string sText = MakeText(uBytes);
        EXPECT_TRUE(Gunzip(Compress(sText)) == sText) << uBytes;
    }
}

TEST(GzipSink, ManySmallWritesGiveTheSameBytesAsOne)
{
    const std::string sText = MakeText(100'000);
    CTextSink bytes;
    CGzipSink member(bytes);
    for (std::size_t u = 0; u < sText.size(); u += 1000)
    {
        member.Write(std::string_view(sText).substr(u, 1000));
    }
    member.Commit();

    EXPECT_EQ(bytes.GetText(), Compress(sText));
}

TEST(GzipSink, MembersInARowAreOneFile)
{
    EXPECT_EQ(Gunzip(Compress("first, ") + Compress("") + Compress("second")), "first, second");
}

TEST(GzipSink, AMemberThatIsNotEndedIsNoFile)
{
    const std::string sBytes = Compress("text");
    EXPECT_THROW(Gunzip(sBytes.substr(0, sBytes.size() - 1)), std::runtime_error);
}

TEST(GzipSink, TheHeaderTellsNeitherTimeNorSystem)
{
    EXPECT_EQ(Compress("text").substr(0, 8), std::string("\x1F\x8B\x08\0\0\0\0\0", 8));
    EXPECT_EQ(Compress("text")[9], '\xFF');
}

TEST(GzipSink, AnErrorOfTheOtherSinkComesThrough)
{
    const std::string sText = MakeText(300'000);
    CFullSink full(1);
    CGzipSink member(full);
    EXPECT_THROW(member.Write(sText), CWriteError);
    CFullSink fullAtTheEnd(0);
    CGzipSink smallMember(fullAtTheEnd);
    smallMember.Write("text");
    EXPECT_THROW(smallMember.Commit(), CWriteError);
}
