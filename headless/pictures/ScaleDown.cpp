#include "headless/pictures/ScaleDown.h"

#include <algorithm>
#include <utility>

namespace
{

constexpr int c_iChannels = 3;

// The mean of a channel over the square from (left, top), rounded.
std::uint8_t ComputeMean(const CWorldImage& image, int left, int top, int factor, int channel)
{
    const int right = std::min(left + factor, image.GetSize().cx);
    const int bottom = std::min(top + factor, image.GetSize().cy);
    std::uint64_t uSum = 0;
    for (int y = top; y < bottom; ++y)
    {
        for (int x = left; x < right; ++x)
        {
            const auto uPixel = static_cast<std::size_t>(y) * static_cast<std::size_t>(image.GetSize().cx) +
                                static_cast<std::size_t>(x);
            uSum += image.GetPixels()[uPixel * c_iChannels + static_cast<std::size_t>(channel)];
        }
    }
    const auto uCount = static_cast<std::uint64_t>(right - left) * static_cast<std::uint64_t>(bottom - top);
    return static_cast<std::uint8_t>((uSum + uCount / 2) / uCount);
}

} // namespace

CWorldImage ScaleDown(const CWorldImage& image, int factor)
{
    const CSize<int>& size = image.GetSize();
    const CSize<int> small{(size.cx + factor - 1) / factor, (size.cy + factor - 1) / factor};
    std::vector<std::uint8_t> pixels;
    pixels.reserve(static_cast<std::size_t>(small.cx) * static_cast<std::size_t>(small.cy) * c_iChannels);
    for (int y = 0; y < small.cy; ++y)
    {
        for (int x = 0; x < small.cx; ++x)
        {
            for (int channel = 0; channel < c_iChannels; ++channel)
            {
                pixels.push_back(ComputeMean(image, x * factor, y * factor, factor, channel));
            }
        }
    }
    return {small, std::move(pixels)};
}
