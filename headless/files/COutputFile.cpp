#include "headless/files/COutputFile.h"

#include "headless/console/HeadlessError.h"
#include "headless/files/FilePlace.h"
#include "headless/files/SystemFile.h"
#include "headless/files/TemporaryFiles.h"

#include <cerrno>
#include <random>
#include <system_error>

namespace fs = std::filesystem;

namespace
{

// Large enough that system calls cost little beside the disk, small beside the rest of the memory.
constexpr std::size_t c_uBufferBytes = std::size_t{64} * 1024;

// Names of temporary files are random; after this many existing names in a row, something else is wrong.
constexpr int c_iMaxNameAttempts = 100;

constexpr const char* c_sTemporaryNameHint = " (while it is written, 15 characters more)";

constexpr fs::perms c_AnyoneMayWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;

[[noreturn]] void FailToWrite(const std::string& sPath, const std::string& sReason)
{
    throw CWriteError(sPath + ": cannot be written: " + sReason);
}

// Always of the same length, so that Check finds a name that is too long for it.
std::string MakeTemporaryEnding(std::random_device::result_type uRandom)
{
    constexpr std::size_t c_uDigits = 10;
    const std::string sNumber = std::to_string(uRandom);
    return '.' + std::string(c_uDigits - sNumber.size(), '0') + sNumber + ".tmp";
}

bool IsDevice(const fs::path& path)
{
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    return fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status);
}

fs::path AppendPartial(fs::path path)
{
    return path += ".partial";
}

} // namespace

COutputFile::COutputFile(const std::string& sPath)
    : m_sPath(sPath), m_Target(FollowLinks(PathFromUtf8(sPath))), m_iFile(c_iNoFile), m_bDirect(IsDevice(m_Target))
{
    CheckPath(sPath);
    m_sBuffer.reserve(c_uBufferBytes);
    if (!m_bDirect)
    {
        CreateTemporary();
        return;
    }
    int error = 0;
    m_iFile = SystemFile_Open(m_Target, error);
    if (m_iFile == c_iNoFile)
    {
        Fail(GetErrorText(error));
    }
}

COutputFile::~COutputFile()
{
    Discard();
}

void COutputFile::CheckPath(const std::string& sPath)
{
    if (sPath.empty())
    {
        throw CHeadlessError("an empty file name cannot be written");
    }
    const fs::path path = FollowLinks(PathFromUtf8(sPath));
    std::error_code error;
    if (!fs::is_directory(GetFolder(path), error))
    {
        FailToWrite(sPath, "its folder does not exist");
    }
    const fs::file_status status = fs::status(path, error);
    if (fs::is_directory(status))
    {
        FailToWrite(sPath, "it is a folder");
    }
    // Replacing a file needs only the permission of its folder, so the read-only mark of the file is checked here.
    if (fs::is_regular_file(status) && (status.permissions() & c_AnyoneMayWrite) == fs::perms::none)
    {
        FailToWrite(sPath, "it is read-only");
    }
}

void COutputFile::Check(const std::string& sPath)
{
    const fs::path path = FollowLinks(PathFromUtf8(sPath));
    if (!IsDevice(path))
    {
        static_cast<void>(COutputFile(sPath)); // never committed
        return;
    }
    // Opening a pipe would wait for its reader.
    const int error = SystemFile_CheckWritable(path);
    if (error != 0)
    {
        FailToWrite(sPath, GetErrorText(error));
    }
}

void COutputFile::CreateTemporary()
{
    std::error_code ignored;
    const fs::file_status old = fs::status(m_Target, ignored);
    const bool bReplaces = fs::exists(old);
    std::random_device random;
    int error = EEXIST;
    for (int attempt = 0; attempt < c_iMaxNameAttempts && error == EEXIST; ++attempt)
    {
        m_Temporary = m_Target;
        m_Temporary += MakeTemporaryEnding(random());
        m_iFile = CreateTemporaryFile(m_Temporary, bReplaces, error);
    }
    if (m_iFile == c_iNoFile)
    {
        m_Temporary.clear();
        Fail(GetErrorText(error) + (error == ENAMETOOLONG ? c_sTemporaryNameHint : ""));
    }
    if (bReplaces)
    {
        // Before the first byte is in it: nobody may read the new file who may not read the old one. If the system
        // refuses, the file stays the user's own.
        fs::permissions(m_Temporary, old.permissions(), ignored);
    }
}

void COutputFile::Write(std::string_view sBytes)
{
    if (m_sBuffer.size() + sBytes.size() > c_uBufferBytes)
    {
        WriteThrough(m_sBuffer);
        m_sBuffer.clear();
    }
    if (sBytes.size() > c_uBufferBytes)
    {
        WriteThrough(sBytes);
        return;
    }
    m_sBuffer += sBytes;
}

void COutputFile::WriteThrough(std::string_view sBytes)
{
    const int error = SystemFile_Write(m_iFile, sBytes.data(), sBytes.size());
    if (error != 0)
    {
        Fail(GetErrorText(error));
    }
}

void COutputFile::Keep(bool bOnDisk)
{
    WriteThrough(m_sBuffer);
    m_sBuffer.clear();
    if (!m_bDirect && !m_bKept)
    {
        TakePartialName();
    }
    const int error = bOnDisk ? SystemFile_Flush(m_iFile) : 0;
    if (error != 0)
    {
        Fail(GetErrorText(error));
    }
}

void COutputFile::TakePartialName()
{
    std::error_code error;
    const fs::path partial = AppendPartial(m_Target);
    fs::rename(m_Temporary, partial, error);
    if (error)
    {
        Fail(error.message());
    }
    ForgetTemporaryFile(m_Temporary);
    m_Temporary = partial;
    m_bKept = true;
}

fs::path COutputFile::GetPartialPath(const std::string& sPath)
{
    return AppendPartial(FollowLinks(PathFromUtf8(sPath)));
}

void COutputFile::Commit()
{
    WriteThrough(m_sBuffer);
    const int flushError = SystemFile_Flush(m_iFile);
    const int closeError = SystemFile_Close(m_iFile);
    m_iFile = c_iNoFile;
    if (flushError != 0 || closeError != 0)
    {
        Fail(GetErrorText(flushError != 0 ? flushError : closeError));
    }
    if (!m_Temporary.empty())
    {
        ReplaceOldFile();
    }
}

void COutputFile::ReplaceOldFile()
{
    std::error_code error;
    fs::rename(m_Temporary, m_Target, error);
    if (error)
    {
        Fail(error.message());
    }
    ForgetTemporaryFile(m_Temporary);
    m_Temporary.clear();
}

void COutputFile::Discard() noexcept
{
    if (m_iFile != c_iNoFile)
    {
        SystemFile_Close(m_iFile);
        m_iFile = c_iNoFile;
    }
    if (!m_Temporary.empty() && !m_bKept)
    {
        std::error_code ignored;
        fs::remove(m_Temporary, ignored);
        ForgetTemporaryFile(m_Temporary);
        m_Temporary.clear();
    }
}

void COutputFile::Fail(const std::string& sReason) const
{
    FailToWrite(m_sPath, sReason);
}
