#pragma once

#include "headless/IByteSink.h"

#include <filesystem>
#include <string>

// A file that appears whole or not at all: the bytes go to a temporary file in the same folder, which takes the place
// of the old one when everything is on the disk. Until then, and after any failure, the old file is as it was.
// Something that is no file (a device, a pipe) cannot be replaced and is written to directly.
class COutputFile : public IByteSink
{
public:
    // sPath is UTF-8. Throws CHeadlessError where the file cannot be written: a folder that does not exist or does not
    // allow it, a file that is read-only, a path that is a folder.
    explicit COutputFile(const std::string& sPath);

    COutputFile(const COutputFile&) = delete;
    COutputFile& operator=(const COutputFile&) = delete;
    ~COutputFile() override;

    void Write(std::string_view sBytes) override;
    void Commit() override;

    // Throws what the constructor would throw, as far as it can be known without writing anything.
    static void Check(const std::string& sPath);

private:
    void CreateTemporary();
    void WriteThrough(std::string_view sBytes);
    void ReplaceOldFile();
    void Discard() noexcept;
    [[noreturn]] void Fail(const std::string& sReason) const;

    std::string m_sPath;               // as the user wrote it
    std::filesystem::path m_Target;    // the file itself where the user named a link to it
    std::filesystem::path m_Temporary; // empty while writing directly, and when nothing is left to remove
    std::string m_sBuffer;
    int m_iFile;
};
