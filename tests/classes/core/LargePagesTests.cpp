#include "classes/core/CLargePageAllocator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <vector>

#ifdef __linux__
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#endif

namespace
{

constexpr std::size_t c_uLarge = std::size_t{8} << 20; // bytes: some large pages

#ifdef __linux__

// The flags of the system for the mapping that holds the address; empty if there is none.
std::string GetMappingFlags(std::uintptr_t uAddress)
{
    std::ifstream maps("/proc/self/smaps");
    bool bInside = false;
    for (std::string sLine; std::getline(maps, sLine);)
    {
        std::istringstream head(sLine);
        std::uintptr_t uFirst = 0;
        std::uintptr_t uEnd = 0;
        char dash = 0;
        if (head >> std::hex >> uFirst >> dash >> uEnd && dash == '-')
        {
            bInside = uAddress >= uFirst && uAddress < uEnd;
        }
        else if (bInside && sLine.starts_with("VmFlags:"))
        {
            return sLine + ' ';
        }
    }
    return {};
}

TEST(LargePages, AreAskedForWhereTheSystemKnowsThem)
{
    const CLargeVector<std::byte> bytes(c_uLarge);
    const std::string sFlags = GetMappingFlags(reinterpret_cast<std::uintptr_t>(bytes.data()) + c_uLarge / 2);
    EXPECT_EQ(sFlags.find(" hg ") != std::string::npos, std::filesystem::exists("/sys/kernel/mm/transparent_hugepage"))
        << sFlags;
}

#endif

TEST(LargePages, AVectorInThemKeepsItsElementsWhileItGrows)
{
    CLargeVector<std::uint32_t> numbers;
    for (std::uint32_t uNumber = 0; uNumber < c_uLarge / sizeof(std::uint32_t); ++uNumber)
    {
        numbers.push_back(uNumber);
    }
    std::vector<std::uint32_t> expected(numbers.size());
    std::iota(expected.begin(), expected.end(), 0U);
    EXPECT_TRUE(std::equal(numbers.begin(), numbers.end(), expected.begin()));
}

TEST(LargePages, AdviceForLittleMemoryHasNoEffect)
{
    int number = 1;
    PreferLargePages(&number, &number + 1);
    PreferLargePages(nullptr, nullptr);
    EXPECT_EQ(number, 1);
}

} // namespace
