#include "classes/core/CFnvHash.h"

#include <gtest/gtest.h>

#include <string_view>

namespace
{

std::uint64_t HashText(std::string_view sText)
{
    CFnvHash hash;
    for (const char c : sText)
    {
        hash.AddByte(static_cast<std::uint8_t>(c));
    }
    return hash.Get();
}

// The published test values of 64-bit FNV-1a.
TEST(FnvHash, KnownTextsHaveTheirPublishedHashes)
{
    EXPECT_EQ(HashText(""), 0xCBF29CE484222325U);
    EXPECT_EQ(HashText("a"), 0xAF63DC4C8601EC8CU);
    EXPECT_EQ(HashText("foobar"), 0x85944171F73967E8U);
}

TEST(FnvHash, AWordCountsAsItsBytesLowestFirst)
{
    CFnvHash hash;
    hash.AddWord(0x64636261);
    EXPECT_EQ(hash.Get(), HashText("abcd"));
}

} // namespace
