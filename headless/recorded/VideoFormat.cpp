#include "headless/recorded/VideoFormat.h"

#include "headless/console/HeadlessError.h"
#include "headless/files/IByteSink.h"
#include "headless/observed/IRunObserver.h"
#include "headless/pictures/CWorldImage.h"

#include <array>
#include <cstdint>
#include <new>
#include <string>
#include <vector>

namespace
{

constexpr std::size_t c_uPieceBytes = std::size_t{64} * 1024;
constexpr std::size_t c_uChannels = 3;

// A component of BT.601 is zero + scale * (red * R + green * G + blue * B) / divisor, where R, G, B are 0 to 255. With
// Y = 0.299 R + 0.587 G + 0.114 B these are
//
//   luma   16 + 219 / 255 * Y
//   Cb    128 + 224 / 255 * (B - Y) / 1.772
//   Cr    128 + 224 / 255 * (R - Y) / 1.402
struct CComponent
{
    int zero;
    int scale;
    int divisor;
    int red;
    int green;
    int blue;
};

constexpr std::array<CComponent, 3> c_Components = {
    {{16, 219, 255'000, 299, 587, 114}, {128, 112, 225'930, -299, -587, 886}, {128, 112, 178'755, 701, -587, -114}}};

// Rounded to the nearest integer. No intermediate value is negative or beyond 31 bits.
char Convert(const CComponent& component, const std::uint8_t* pPixel)
{
    const int weighted = component.red * pPixel[0] + component.green * pPixel[1] + component.blue * pPixel[2];
    const int whole = component.scale * weighted + component.zero * component.divisor + component.divisor / 2;
    return static_cast<char>(static_cast<std::uint8_t>(whole / component.divisor));
}

void WritePlane(const std::vector<std::uint8_t>& pixels, const CComponent& component, IByteSink& sink)
{
    std::string sPiece;
    sPiece.reserve(c_uPieceBytes);
    // Most pixels have the colour of the one before.
    const std::uint8_t* pLast = pixels.data();
    char last = Convert(component, pLast);
    for (std::size_t u = 0; u < pixels.size(); u += c_uChannels)
    {
        const std::uint8_t* const pPixel = &pixels[u];
        if (pPixel[0] != pLast[0] || pPixel[1] != pLast[1] || pPixel[2] != pLast[2])
        {
            last = Convert(component, pPixel);
        }
        pLast = pPixel;
        sPiece += last;
        if (sPiece.size() == c_uPieceBytes)
        {
            sink.Write(sPiece);
            sPiece.clear();
        }
    }
    sink.Write(sPiece);
}

class CVideoFormat : public IFrameFormat
{
public:
    explicit CVideoFormat(const CSize<int>& world) : m_World(world) {}

    std::string GetHeader() const override
    {
        return "YUV4MPEG2 W" + std::to_string(m_World.cx) + " H" + std::to_string(m_World.cy) +
               " F60:1 Ip A1:1 C444 XCOLORRANGE=LIMITED\n";
    }

    void WriteFrame(const CRunMoment& moment, IByteSink& sink) override
    {
        try
        {
            sink.Write("FRAME\n");
            const CWorldImage image = DrawWorld(moment.atoms, moment.settings);
            for (const CComponent& component : c_Components)
            {
                WritePlane(image.GetPixels(), component, sink);
            }
        }
        catch (const std::bad_alloc&)
        {
            throw CWriteError("the video cannot be written: there is not enough memory for a frame");
        }
    }

private:
    CSize<int> m_World;
};

} // namespace

std::unique_ptr<IFrameFormat> MakeVideoFormat(const CSize<int>& world)
{
    return std::make_unique<CVideoFormat>(world);
}
