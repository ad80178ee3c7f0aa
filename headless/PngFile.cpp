#include "headless/PngFile.h"

#include "headless/CWorldImage.h"
#include "headless/IByteSink.h"

#include <exception>
#include <new>

// Only the functions that write to memory: this program opens its files itself.
#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#include <stb/stb_image_write.h>

namespace
{

constexpr int c_iChannels = 3;

struct CSinkContext
{
    IByteSink& sink;
    std::exception_ptr error;
};

// An exception through the library would leak its memory.
void WriteToSink(void* pContext, void* pData, int size) noexcept
{
    auto* const pSink = static_cast<CSinkContext*>(pContext);
    try
    {
        pSink->sink.Write({static_cast<const char*>(pData), static_cast<std::size_t>(size)});
    }
    catch (...)
    {
        pSink->error = std::current_exception();
    }
}

} // namespace

void WritePng(const CWorldImage& image, IByteSink& sink)
{
    CSinkContext context{sink, nullptr};
    const CSize<int>& size = image.GetSize();
    const int written = stbi_write_png_to_func(&WriteToSink, &context, size.cx, size.cy, c_iChannels,
                                               image.GetPixels().data(), size.cx * c_iChannels);
    if (context.error)
    {
        std::rethrow_exception(context.error);
    }
    if (written == 0)
    {
        throw std::bad_alloc();
    }
}
