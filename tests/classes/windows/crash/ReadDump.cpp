#include "tests/classes/windows/crash/ReadDump.h"

#include <cstring>
#include <dbghelp.h>
#include <stdexcept>

// Reads the parts of a minidump that a debugger reads first: header, directory, and the streams that the tests need.

namespace
{
template<class T>
T ReadAt(const std::string& sBytes, std::size_t uPlace)
{
    if (uPlace > sBytes.size() || sBytes.size() - uPlace < sizeof(T))
    {
        throw std::runtime_error("the dump points beyond its end");
    }
    T value{};
    std::memcpy(&value, sBytes.data() + uPlace, sizeof value);
    return value;
}

// The location of a stream.
std::size_t FindStream(const std::string& sBytes, const MINIDUMP_HEADER& header, DWORD dwType)
{
    for (ULONG32 i = 0; i < header.NumberOfStreams; ++i)
    {
        const auto entry =
            ReadAt<MINIDUMP_DIRECTORY>(sBytes, header.StreamDirectoryRva + i * sizeof(MINIDUMP_DIRECTORY));
        if (entry.StreamType == dwType)
        {
            return entry.Location.Rva;
        }
    }
    throw std::runtime_error("the dump lacks stream " + std::to_string(dwType));
}

std::wstring ReadText(const std::string& sBytes, std::size_t uPlace)
{
    std::wstring sText(ReadAt<ULONG32>(sBytes, uPlace) / sizeof(wchar_t), L'\0');
    for (std::size_t i = 0; i < sText.size(); ++i)
    {
        sText[i] = ReadAt<wchar_t>(sBytes, uPlace + sizeof(ULONG32) + i * sizeof(wchar_t));
    }
    return sText;
}
} // namespace

CDumpContents ReadDump(const std::string& sBytes)
{
    const auto header = ReadAt<MINIDUMP_HEADER>(sBytes, 0);
    if (sBytes.compare(0, sizeof header.Signature, "MDMP") != 0)
    {
        throw std::runtime_error("the dump does not begin with MDMP");
    }

    CDumpContents contents;
    const auto exception = ReadAt<MINIDUMP_EXCEPTION_STREAM>(sBytes, FindStream(sBytes, header, ExceptionStream));
    contents.exceptionCode = exception.ExceptionRecord.ExceptionCode;
    contents.exceptionThread = exception.ThreadId;

    const std::size_t uThreads = FindStream(sBytes, header, ThreadListStream);
    contents.threads = ReadAt<ULONG32>(sBytes, uThreads);
    for (std::size_t i = 0; i < contents.threads; ++i)
    {
        const auto thread = ReadAt<MINIDUMP_THREAD>(sBytes, uThreads + sizeof(ULONG32) + i * sizeof(MINIDUMP_THREAD));
        contents.threadIsListed = contents.threadIsListed || thread.ThreadId == exception.ThreadId;
    }

    const std::size_t uModules = FindStream(sBytes, header, ModuleListStream);
    const auto uModuleCount = ReadAt<ULONG32>(sBytes, uModules);
    for (std::size_t i = 0; i < uModuleCount; ++i)
    {
        const auto module = ReadAt<MINIDUMP_MODULE>(sBytes, uModules + sizeof(ULONG32) + i * sizeof(MINIDUMP_MODULE));
        contents.modules.push_back(ReadText(sBytes, module.ModuleNameRva));
    }
    return contents;
}
