#pragma once

#include "classes/core/CFnvHash.h"
#include "headless/files/IByteSink.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

class CByteReader;
class CByteWriter;
class COutputFile;

// A file that a run writes bit by bit. What is written so far is in "FILE.partial" (at most half a second of the run is
// missing), which stays when the program ends in whatever way and becomes FILE at the end of the run.
class CGrowingFile : public IByteSink
{
public:
    // pStandardOutput: writes there instead; null for a file. sPath is UTF-8. Throws CWriteError.
    CGrowingFile(const std::string& sPath, IByteSink* pStandardOutput);
    CGrowingFile(const CGrowingFile&) = delete;
    CGrowingFile& operator=(const CGrowingFile&) = delete;
    ~CGrowingFile() override;

    // How much is written, as Continue reads it.
    void SavePosition(CByteWriter& writer) const;

    // Goes on at a saved position: takes over these bytes of FILE.partial or FILE, and leaves out the later ones.
    // Standard output and devices only get the new bytes. Throws CHeadlessError if neither file begins with these
    // bytes.
    void Continue(CByteReader& reader);

    void Write(std::string_view sBytes) override;

    // Writes all bytes so far to the file; bOnDisk: and waits until they are on the disk.
    void Keep(bool bOnDisk);

    // Hands the bytes so far to the system now and then: so a program that is killed loses at most half a second.
    void KeepNowAndThen();

    // The number of bytes so far, with those taken over.
    std::uint64_t GetLength() const { return m_uBytes; }

    // True for standard output, a pipe, a device: there a write may wait for ever.
    bool IsDirect() const;

    // Puts the file into its place.
    void Commit() override;

private:
    using CClock = std::chrono::steady_clock;

    bool Copy(const std::string& sFrom, std::uint64_t uBytes, std::uint64_t uHash);

    std::string m_sPath;
    IByteSink* m_pStandardOutput;
    std::unique_ptr<COutputFile> m_pFile; // null for standard output
    CFnvHash m_Hash;                      // of all bytes
    std::uint64_t m_uBytes = 0;
    CClock::time_point m_NextKeep;
};
