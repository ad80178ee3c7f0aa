#include <windows.h>

#include <gtest/gtest.h>

#include <array>
#include <cstring>

// Tests the effect of the flags that all programs are compiled with: the test program has them too.

namespace
{
constexpr std::size_t c_uRoom = 16; // bytes
constexpr std::size_t c_uBeyond = c_uRoom + 12;

// A failed check executes an illegal instruction. Without the check the program would return to an address made of the
// letters that it wrote, and end with another exception.
bool EndedByTheCheck(int iExitCode)
{
    return static_cast<DWORD>(iExitCode) == EXCEPTION_ILLEGAL_INSTRUCTION;
}

// Hidden from the compiler, which would otherwise refuse the overflow.
volatile std::size_t s_uLength = c_uBeyond;

// Writes beyond the end of its array, over the stack protector's canary.
__attribute__((noinline)) int Overflow(std::size_t uLength)
{
    std::array<char, c_uRoom> text{};
    volatile char* const pText = text.data();
    for (std::size_t u = 0; u < uLength; ++u)
    {
        pText[u] = 'x';
    }
    return pText[0];
}

#ifdef _FORTIFY_SOURCE
__attribute__((noinline)) int CopyTooMuch(std::size_t uLength)
{
    static std::array<char, c_uRoom> s_text{};
    static std::array<char, c_uBeyond> s_source{};
    std::memcpy(s_text.data(), s_source.data(), uLength);
    return s_text[0];
}
#endif
} // namespace

TEST(HardeningDeathTest, WritingBeyondAnArrayOnTheStackEndsTheProgram)
{
    EXPECT_EQ(Overflow(c_uRoom), 'x');
    EXPECT_EXIT(static_cast<void>(Overflow(s_uLength)), EndedByTheCheck, "");
}

#ifdef _FORTIFY_SOURCE
// Only in optimising builds: without optimisation the compiler does not know the size of the buffer.
TEST(HardeningDeathTest, CopyingMoreThanThereIsRoomForEndsTheProgram)
{
    EXPECT_EQ(CopyTooMuch(c_uRoom), 0);
    EXPECT_EXIT(static_cast<void>(CopyTooMuch(s_uLength)), EndedByTheCheck, "");
}
#endif
