#pragma once

#include "headless/files/CGrowingFile.h"
#include "headless/observed/IRunObserver.h"

#include <string>

// The statistics of a run as CSV, a row for each iteration.
class CStatsWriter : public IRunObserver
{
public:
    // See CGrowingFile.
    CStatsWriter(const std::string& sPath, IByteSink* pStandardOutput);

    void Prepare(const CAtoms& atoms) override;
    void Observe(const CRunMoment& moment) override;
    void Keep() override;
    std::string GetProgress() const override;
    void Continue(std::string_view sProgress) override;
    bool MayObserveAgain() const override;
    bool IsDirect() const override;
    void Commit() override;

private:
    void WriteHeaderOnce();

    CGrowingFile m_File;
    bool m_bHeaderWritten = false;
};
