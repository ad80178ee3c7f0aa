#pragma once

#include "headless/observed/CFileObserver.h"
#include "headless/recorded/IFrameFormat.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

// The moments of a run that have a frame.
struct CFrameTimes
{
    std::optional<std::uint64_t> every{}; // each iteration that it divides, with 0
    bool bStartAndEnd{};                  // the first moment and the last one too
};

// Writes frames of a run into a growing file. An interrupted run goes on behind the last whole frame. A run that is
// continued after its end goes on before the frame of this end, if only its end was the reason for that frame: so the
// file is the same in pieces as in one.
class CFrameRecorder : public CFileObserver
{
public:
    // For sPath and pStandardOutput see CGrowingFile. check is called before each piece of a frame and throws to end
    // the run.
    CFrameRecorder(const std::string& sPath, IByteSink* pStandardOutput, const CFrameTimes& times,
                   std::unique_ptr<IFrameFormat> pFormat, std::function<void()> check);

    void Observe(const CRunMoment& moment) override;
    std::string GetProgress() const override;
    void Continue(std::string_view sProgress) override;
    bool MayObserveAgain() const override;
    void Commit() override;

private:
    bool IsRegular(std::uint64_t uIteration) const;
    std::string GetPosition() const;
    void ContinueAt(std::string_view sPosition);

    CFrameTimes m_Times;
    std::unique_ptr<IFrameFormat> m_pFormat;
    std::function<void()> m_Check;
    std::string m_sPosition;    // behind the last frame that stays when the run is continued
    std::string m_sEnd;         // behind the frame of the end; empty without one
    bool m_bBegun = false;      // a whole frame is written
    bool m_bEndMissing = false; // the file was continued at m_sPosition, before the frame of the end
};
