#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

// A part of a program in memory and in its file.
struct CProgramSection
{
    std::string name;
    std::uint32_t address = 0;    // in memory, from the program's beginning
    std::uint32_t size = 0;       // in memory, in bytes
    std::uint32_t fileOffset = 0; // in bytes
    std::uint32_t fileSize = 0;   // in bytes
    std::uint32_t flags = 0;      // IMAGE_SCN_...
};

// A finished Windows program, read from its file as the system's loader does (the format "PE32+"). What is outside of
// the file or of another format ends in std::runtime_error.
class CProgramFile
{
public:
    explicit CProgramFile(const std::filesystem::path& file);

    // IMAGE_FILE_MACHINE_..., IMAGE_FILE_..., IMAGE_DLLCHARACTERISTICS_...
    std::uint16_t GetMachine() const { return m_uMachine; }
    std::uint16_t GetCharacteristics() const { return m_uCharacteristics; }
    std::uint16_t GetLoaderCharacteristics() const { return m_uLoaderCharacteristics; }
    // When it was linked, in seconds since 1970.
    std::uint32_t GetTimeStamp() const { return m_uTimeStamp; }
    // Where it would like to be in memory.
    std::uint64_t GetPreferredAddress() const { return m_uPreferredAddress; }
    const std::vector<CProgramSection>& GetSections() const { return m_aSections; }
    // The names of the libraries that are loaded with it, in lower case.
    std::vector<std::string> GetImportedLibraries() const;
    // How many places of it change when it is loaded somewhere else.
    std::size_t CountRelocations() const;
    // True if these bytes are anywhere in it.
    bool Contains(const std::string& sBytes) const;

private:
    std::uint32_t Read(std::size_t uOffset, std::size_t uBytes) const;
    std::size_t OffsetOf(std::uint32_t uAddress) const;
    std::string ReadText(std::size_t uOffset) const;
    // Entry of the table of special parts: its address and its size in bytes.
    std::uint32_t GetDirectoryAddress(std::size_t uEntry) const;
    std::uint32_t GetDirectorySize(std::size_t uEntry) const;
    void ReadHeaders();
    void ReadSections(std::size_t uOffset, std::size_t uCount);

    std::vector<unsigned char> m_aBytes;
    std::vector<CProgramSection> m_aSections;
    std::size_t m_uDirectories = 0; // where that table is
    std::uint64_t m_uPreferredAddress = 0;
    std::uint32_t m_uTimeStamp = 0;
    std::uint16_t m_uMachine = 0;
    std::uint16_t m_uCharacteristics = 0;
    std::uint16_t m_uLoaderCharacteristics = 0;
};
