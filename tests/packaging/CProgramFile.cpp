#include "tests/packaging/CProgramFile.h"

#include <windows.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace
{
constexpr std::size_t c_uBitsPerByte = 8;
constexpr std::size_t c_uWord = sizeof(std::uint16_t);
constexpr std::size_t c_uDoubleWord = sizeof(std::uint32_t);
} // namespace

CProgramFile::CProgramFile(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
    {
        throw std::runtime_error("cannot read " + file.string());
    }
    m_aBytes.assign(std::istreambuf_iterator<char>(stream), {});
    ReadHeaders();
}

std::uint32_t CProgramFile::Read(std::size_t uOffset, std::size_t uBytes) const
{
    std::uint32_t uValue = 0;
    for (std::size_t u = 0; u < uBytes; ++u)
    {
        uValue |= static_cast<std::uint32_t>(m_aBytes.at(uOffset + u)) << (u * c_uBitsPerByte);
    }
    return uValue;
}

void CProgramFile::ReadHeaders()
{
    if (Read(0, c_uWord) != IMAGE_DOS_SIGNATURE)
    {
        throw std::runtime_error("no program file");
    }
    const std::size_t uHeaders = Read(offsetof(IMAGE_DOS_HEADER, e_lfanew), c_uDoubleWord);
    const std::size_t uFile = uHeaders + offsetof(IMAGE_NT_HEADERS64, FileHeader);
    const std::size_t uOptional = uHeaders + offsetof(IMAGE_NT_HEADERS64, OptionalHeader);
    if (Read(uHeaders, c_uDoubleWord) != IMAGE_NT_SIGNATURE ||
        Read(uOptional, c_uWord) != IMAGE_NT_OPTIONAL_HDR64_MAGIC)
    {
        throw std::runtime_error("no 64-bit program");
    }
    m_uMachine = static_cast<std::uint16_t>(Read(uFile + offsetof(IMAGE_FILE_HEADER, Machine), c_uWord));
    m_uTimeStamp = Read(uFile + offsetof(IMAGE_FILE_HEADER, TimeDateStamp), c_uDoubleWord);
    m_uCharacteristics =
        static_cast<std::uint16_t>(Read(uFile + offsetof(IMAGE_FILE_HEADER, Characteristics), c_uWord));
    m_uLoaderCharacteristics =
        static_cast<std::uint16_t>(Read(uOptional + offsetof(IMAGE_OPTIONAL_HEADER64, DllCharacteristics), c_uWord));
    const std::size_t uAddress = uOptional + offsetof(IMAGE_OPTIONAL_HEADER64, ImageBase);
    constexpr std::size_t c_uHalf = c_uDoubleWord * c_uBitsPerByte;
    m_uPreferredAddress = Read(uAddress, c_uDoubleWord) |
                          static_cast<std::uint64_t>(Read(uAddress + c_uDoubleWord, c_uDoubleWord)) << c_uHalf;
    m_uDirectories = uOptional + offsetof(IMAGE_OPTIONAL_HEADER64, DataDirectory);
    ReadSections(uOptional + Read(uFile + offsetof(IMAGE_FILE_HEADER, SizeOfOptionalHeader), c_uWord),
                 Read(uFile + offsetof(IMAGE_FILE_HEADER, NumberOfSections), c_uWord));
}

void CProgramFile::ReadSections(std::size_t uOffset, std::size_t uCount)
{
    for (std::size_t u = 0; u < uCount; ++u, uOffset += sizeof(IMAGE_SECTION_HEADER))
    {
        CProgramSection section;
        for (std::size_t uLetter = 0; uLetter < IMAGE_SIZEOF_SHORT_NAME && m_aBytes.at(uOffset + uLetter) != 0;
             ++uLetter)
        {
            section.name += static_cast<char>(m_aBytes[uOffset + uLetter]);
        }
        section.size = Read(uOffset + offsetof(IMAGE_SECTION_HEADER, Misc), c_uDoubleWord);
        section.address = Read(uOffset + offsetof(IMAGE_SECTION_HEADER, VirtualAddress), c_uDoubleWord);
        section.fileSize = Read(uOffset + offsetof(IMAGE_SECTION_HEADER, SizeOfRawData), c_uDoubleWord);
        section.fileOffset = Read(uOffset + offsetof(IMAGE_SECTION_HEADER, PointerToRawData), c_uDoubleWord);
        section.flags = Read(uOffset + offsetof(IMAGE_SECTION_HEADER, Characteristics), c_uDoubleWord);
        m_aSections.push_back(section);
    }
}

std::size_t CProgramFile::OffsetOf(std::uint32_t uAddress) const
{
    for (const CProgramSection& section : m_aSections)
    {
        if (uAddress >= section.address && uAddress - section.address < section.fileSize)
        {
            return static_cast<std::size_t>(section.fileOffset) + (uAddress - section.address);
        }
    }
    throw std::runtime_error("an address outside of the program");
}

std::string CProgramFile::ReadText(std::size_t uOffset) const
{
    std::string sText;
    for (; m_aBytes.at(uOffset) != 0; ++uOffset)
    {
        sText += static_cast<char>(m_aBytes[uOffset]);
    }
    return sText;
}

std::uint32_t CProgramFile::GetDirectoryAddress(std::size_t uEntry) const
{
    return Read(m_uDirectories + uEntry * sizeof(IMAGE_DATA_DIRECTORY), c_uDoubleWord);
}

std::uint32_t CProgramFile::GetDirectorySize(std::size_t uEntry) const
{
    return Read(m_uDirectories + uEntry * sizeof(IMAGE_DATA_DIRECTORY) + c_uDoubleWord, c_uDoubleWord);
}

std::vector<std::string> CProgramFile::GetImportedLibraries() const
{
    std::vector<std::string> libraries;
    std::size_t uOffset = OffsetOf(GetDirectoryAddress(IMAGE_DIRECTORY_ENTRY_IMPORT));
    for (;; uOffset += sizeof(IMAGE_IMPORT_DESCRIPTOR))
    {
        const std::uint32_t uName = Read(uOffset + offsetof(IMAGE_IMPORT_DESCRIPTOR, Name), c_uDoubleWord);
        if (uName == 0) // the row after the last
        {
            return libraries;
        }
        std::string sName = ReadText(OffsetOf(uName));
        std::transform(sName.begin(), sName.end(), sName.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        libraries.push_back(sName);
    }
}

std::size_t CProgramFile::CountRelocations() const
{
    const std::uint32_t uSize = GetDirectorySize(IMAGE_DIRECTORY_ENTRY_BASERELOC);
    if (uSize == 0)
    {
        return 0;
    }
    const std::size_t uBegin = OffsetOf(GetDirectoryAddress(IMAGE_DIRECTORY_ENTRY_BASERELOC));
    std::size_t uCount = 0;
    for (std::size_t uBlock = 0; uBlock < uSize;)
    {
        const std::size_t uBlockSize =
            Read(uBegin + uBlock + offsetof(IMAGE_BASE_RELOCATION, SizeOfBlock), c_uDoubleWord);
        if (uBlockSize < sizeof(IMAGE_BASE_RELOCATION))
        {
            throw std::runtime_error("a broken table of relocations");
        }
        for (std::size_t uEntry = sizeof(IMAGE_BASE_RELOCATION); uEntry < uBlockSize; uEntry += c_uWord)
        {
            // The upper four bits are the type; IMAGE_REL_BASED_ABSOLUTE is padding.
            constexpr unsigned c_uKindShift = 12;
            const std::uint32_t uKind = Read(uBegin + uBlock + uEntry, c_uWord) >> c_uKindShift;
            uCount += uKind == IMAGE_REL_BASED_DIR64 ? 1 : 0;
        }
        uBlock += uBlockSize;
    }
    return uCount;
}

bool CProgramFile::Contains(const std::string& sBytes) const
{
    return std::search(m_aBytes.begin(), m_aBytes.end(), sBytes.begin(), sBytes.end(),
                       [](unsigned char a, char b) { return a == static_cast<unsigned char>(b); }) != m_aBytes.end();
}
