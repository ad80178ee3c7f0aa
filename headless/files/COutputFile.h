#pragma once

#include "headless/files/IByteSink.h"

#include <filesystem>
#include <string>

// A file that appears whole or not at all: the bytes go to a temporary file in the same folder, which replaces the old
// file when all bytes are on the disk. Until then, and after any failure, the old file is unchanged. A device or a pipe
// cannot be replaced and is written to directly.
class COutputFile : public IByteSink
{
public:
    // sPath is UTF-8. Throws CWriteError when the file cannot be written: the folder does not exist or does not
    // allow it, the file is read-only, the path is a folder.
    explicit COutputFile(const std::string& sPath);

    COutputFile(const COutputFile&) = delete;
    COutputFile& operator=(const COutputFile&) = delete;
    ~COutputFile() override;

    void Write(std::string_view sBytes) override;
    void Commit() override;

    // Writes the bytes so far to the file GetPartialPath; bOnDisk: and waits until they are on the disk. From now on
    // they stay there until Commit, also when the program ends without it.
    void Keep(bool bOnDisk);

    // The name of a kept file that is not complete: that of the file with ".partial" behind it.
    static std::filesystem::path GetPartialPath(const std::string& sPath);

    // True for a device or a pipe.
    bool IsDirect() const { return m_bDirect; }

    // Throws the errors of the constructor. It makes and removes the temporary file, for only that shows whether the
    // folder allows it and the name is short enough.
    static void Check(const std::string& sPath);

private:
    static void CheckPath(const std::string& sPath);
    void CreateTemporary();
    void WriteThrough(std::string_view sBytes);
    void TakePartialName();
    void ReplaceOldFile();
    void Discard() noexcept;
    [[noreturn]] void Fail(const std::string& sReason) const;

    std::string m_sPath;               // as the user wrote it
    std::filesystem::path m_Target;    // the target where the path is a link
    std::filesystem::path m_Temporary; // empty when writing directly, and when there is nothing to remove
    std::string m_sBuffer;
    int m_iFile;
    bool m_bDirect;
    bool m_bKept = false; // the temporary file has its partial name and stays
};
