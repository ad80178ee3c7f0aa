#include "headless/files/SystemFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>

#ifdef _WIN32
#include <io.h>
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace
{

// The largest piece of one system call: Windows counts in 32 bits.
constexpr std::size_t c_uMaxPieceBytes = 1U << 30U;

#ifdef _WIN32

int OpenFile(const std::filesystem::path& path, int flags, bool)
{
    return _wopen(path.c_str(), flags | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE);
}

// _wopen would keep the file from being renamed and removed.
int CreateNewFile(const std::filesystem::path& path, int& error)
{
    void* const file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                                   CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
    {
        const std::error_code code(static_cast<int>(GetLastError()), std::system_category());
        error = code.default_error_condition().value();
        return c_iNoFile;
    }
    error = 0;
    return _open_osfhandle(reinterpret_cast<std::intptr_t>(file), _O_WRONLY | _O_BINARY);
}

int WritePiece(int file, const char* pBytes, std::size_t uCount)
{
    return _write(file, pBytes, static_cast<unsigned>(uCount));
}

#else

// Read and write for everybody; the user's umask removes the rest.
constexpr mode_t c_NewFileMode = 0666;
constexpr mode_t c_PrivateFileMode = 0600;

int OpenFile(const std::filesystem::path& path, int flags, bool bPrivate)
{
    return open(path.c_str(), flags | O_CLOEXEC, bPrivate ? c_PrivateFileMode : c_NewFileMode);
}

ssize_t WritePiece(int file, const char* pBytes, std::size_t uCount)
{
    return write(file, pBytes, uCount);
}

#endif

int Open(const std::filesystem::path& path, int flags, bool bPrivate, int& error)
{
    const int file = OpenFile(path, flags, bPrivate);
    error = file == c_iNoFile ? errno : 0;
    return file;
}

} // namespace

std::filesystem::path PathFromUtf8(const std::string& sPath)
{
    return std::filesystem::path(std::u8string(sPath.begin(), sPath.end()));
}

std::string Utf8FromPath(const std::filesystem::path& path)
{
    const std::u8string sPath = path.u8string();
    return {sPath.begin(), sPath.end()};
}

int SystemFile_Create(const std::filesystem::path& path, [[maybe_unused]] bool bPrivate, int& error)
{
#ifdef _WIN32
    return CreateNewFile(path, error);
#else
    return Open(path, O_WRONLY | O_CREAT | O_EXCL, bPrivate, error);
#endif
}

int SystemFile_Open(const std::filesystem::path& path, int& error)
{
    return Open(path, O_WRONLY, false, error);
}

int SystemFile_CheckWritable(const std::filesystem::path& path)
{
#ifdef _WIN32
    constexpr int c_iWritable = 2;
    return _waccess(path.c_str(), c_iWritable) == 0 ? 0 : errno;
#else
    return access(path.c_str(), W_OK) == 0 ? 0 : errno;
#endif
}

int SystemFile_Write(int file, const char* pBytes, std::size_t uCount)
{
    while (uCount > 0)
    {
        const auto written = WritePiece(file, pBytes, std::min(uCount, c_uMaxPieceBytes));
        if (written > 0)
        {
            pBytes += written;
            uCount -= static_cast<std::size_t>(written);
        }
        else if (written == 0)
        {
            return ENOSPC;
        }
        else if (errno != EINTR)
        {
            return errno;
        }
    }
    return 0;
}

int SystemFile_Flush(int file)
{
#ifdef _WIN32
    const int result = _commit(file);
#else
    const int result = fsync(file);
#endif
    // A pipe or a device, which cannot be flushed, answers with one of these errors.
    const bool bNothingToFlush = result != 0 && (errno == EINVAL || errno == ENOTSUP || errno == EBADF);
    return result == 0 || bNothingToFlush ? 0 : errno;
}

int SystemFile_Close(int file)
{
#ifdef _WIN32
    return _close(file) == 0 ? 0 : errno;
#else
    return close(file) == 0 ? 0 : errno;
#endif
}

void SystemFile_Remove(const std::filesystem::path& path) noexcept
{
#ifdef _WIN32
    _wunlink(path.c_str());
#else
    unlink(path.c_str());
#endif
}

bool IsStandardErrorTerminal()
{
#ifdef _WIN32
    return _isatty(_fileno(stderr)) != 0;
#else
    return isatty(STDERR_FILENO) != 0;
#endif
}

void SetStandardStreamsBinary()
{
#ifdef _WIN32
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
#endif
}

std::string GetErrorText(int error)
{
    return std::generic_category().message(error);
}
