#include "tests/endtoend/CPngPicture.h"

#include <cstddef>
#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_PNG
#define STBI_NO_STDIO
#include <stb/stb_image.h>

CPngPicture::CPngPicture(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    const std::string sBytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    constexpr int c_iChannels = static_cast<int>(std::tuple_size_v<CPixel>);
    int iChannelsOfFile = 0;
    stbi_uc* const pPixels =
        stbi_load_from_memory(reinterpret_cast<const stbi_uc*>(sBytes.data()), static_cast<int>(sBytes.size()),
                              &m_iWidth, &m_iHeight, &iChannelsOfFile, c_iChannels);
    if (pPixels == nullptr)
    {
        throw std::runtime_error("cannot read the picture " + file.string());
    }
    m_aPixels.resize(static_cast<std::size_t>(m_iWidth) * static_cast<std::size_t>(m_iHeight));
    std::memcpy(m_aPixels.data(), pPixels, m_aPixels.size() * sizeof(CPixel));
    stbi_image_free(pPixels);
}

const CPixel& CPngPicture::GetPixel(int iX, int iY) const
{
    if (iX < 0 || iX >= m_iWidth)
    {
        throw std::out_of_range("there is no pixel in column " + std::to_string(iX));
    }
    return m_aPixels.at(static_cast<std::size_t>(iY) * static_cast<std::size_t>(m_iWidth) +
                        static_cast<std::size_t>(iX));
}
