#pragma once

#include "headless/files/CGrowingFile.h"
#include "headless/observed/IRunObserver.h"

#include <string>
#include <utility>

// Observes a run and writes a growing file, which begins with a header.
class CFileObserver : public IRunObserver
{
public:
    void Prepare(const CAtoms& /*atoms*/) override {}
    void Keep(bool bOnDisk) override { m_File.Keep(bOnDisk); }
    bool IsDirect() const override { return m_File.IsDirect(); }

protected:
    // For sPath and pStandardOutput see CGrowingFile.
    CFileObserver(const std::string& sPath, IByteSink* pStandardOutput, std::string sHeader)
        : m_File(sPath, pStandardOutput), m_sHeader(std::move(sHeader))
    {
    }

    // Comes before anything else that is written.
    void WriteHeaderOnce()
    {
        if (!m_bHeaderWritten)
        {
            m_File.Write(m_sHeader);
            m_bHeaderWritten = true;
        }
    }

    CGrowingFile m_File;
    bool m_bHeaderWritten = false; // set by Continue for a file that has its header already

private:
    std::string m_sHeader;
};
