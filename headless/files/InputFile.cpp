#include "headless/files/InputFile.h"

#include "headless/console/HeadlessError.h"
#include "headless/files/SystemFile.h"

#include <filesystem>
#include <system_error>

std::ifstream OpenInputFile(const std::string& sPath)
{
    const std::filesystem::path path = PathFromUtf8(sPath);
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (!std::filesystem::exists(status))
    {
        throw CHeadlessError(sPath + ": there is no such file");
    }
    if (std::filesystem::is_directory(status))
    {
        throw CHeadlessError(sPath + ": this is a folder, not a file");
    }
    std::ifstream stream(path, std::ios::binary);
    if (!stream)
    {
        throw CHeadlessError(sPath + ": cannot be opened for reading");
    }
    return stream;
}
