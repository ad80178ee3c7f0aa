#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

// A section of a program, in memory and in its file.
struct CProgramSection
{
    std::string name;
    std::uint32_t address = 0;    // in memory, from the program's beginning
    std::uint32_t size = 0;       // in memory, in bytes
    std::uint32_t fileOffset = 0; // in bytes
    std::uint32_t fileSize = 0;   // in bytes
    std::uint32_t flags = 0;      // IMAGE_SCN_...
};

// A linked Windows program, read from its file as the system's loader reads it (format PE32+). An address outside of
// the file or another format throws std::runtime_error.
class CProgramFile
{
public:
    explicit CProgramFile(const std::filesystem::path& file);

    // IMAGE_FILE_MACHINE_..., IMAGE_FILE_..., IMAGE_DLLCHARACTERISTICS_...
    std::uint16_t GetMachine() const { return m_uMachine; }
    std::uint16_t GetCharacteristics() const { return m_uCharacteristics; }
    std::uint16_t GetLoaderCharacteristics() const { return m_uLoaderCharacteristics; }
    // The time stamp of the link, in seconds since 1970.
    std::uint32_t GetTimeStamp() const { return m_uTimeStamp; }
    // Its preferred address in memory.
    std::uint64_t GetPreferredAddress() const { return m_uPreferredAddress; }
    const std::vector<CProgramSection>& GetSections() const { return m_aSections; }
    // The names of the libraries that it imports, in lower case.
    std::vector<std::string> GetImportedLibraries() const;
    // The count of relocations.
    std::size_t CountRelocations() const;
    // True if its file contains these bytes.
    bool Contains(const std::string& sBytes) const;

private:
    std::uint32_t Read(std::size_t uOffset, std::size_t uBytes) const;
    std::size_t OffsetOf(std::uint32_t uAddress) const;
    std::string ReadText(std::size_t uOffset) const;
    // An entry of the data directory: its address and its size in bytes.
    std::uint32_t GetDirectoryAddress(std::size_t uEntry) const;
    std::uint32_t GetDirectorySize(std::size_t uEntry) const;
    void ReadHeaders();
    void ReadSections(std::size_t uOffset, std::size_t uCount);

    std::vector<unsigned char> m_aBytes;
    std::vector<CProgramSection> m_aSections;
    std::size_t m_uDirectories = 0; // offset of the data directory in the file
    std::uint64_t m_uPreferredAddress = 0;
    std::uint32_t m_uTimeStamp = 0;
    std::uint16_t m_uMachine = 0;
    std::uint16_t m_uCharacteristics = 0;
    std::uint16_t m_uLoaderCharacteristics = 0;
};
