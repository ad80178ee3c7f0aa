#include "headless/CExperiment.h"
#include "headless/recorded/CFrameRecorder.h"
#include "headless/recorded/TrajectoryFormat.h"
#include "headless/recorded/VideoFormat.h"

#include <memory>
#include <utility>

// What a run writes frame by frame.

void CExperiment::AddRecorders(CRunObservers& observers)
{
    const auto add = [this, &observers](const std::string& sOption, const std::string& sPath, const CFrameTimes& times,
                                        std::unique_ptr<IFrameFormat> pFormat) {
        IByteSink* const pDirect = sPath == c_sStandardOutput ? &m_StandardOutput : nullptr;
        observers.Add(sOption, std::make_unique<CFrameRecorder>(sPath, pDirect, times, std::move(pFormat),
                                                                [this] { CheckInterruption(); }));
    };
    if (m_Options.trajectory)
    {
        const bool bGzip = m_Options.trajectory->ends_with(".gz");
        add("--trajectory", *m_Options.trajectory, {m_Options.trajectoryEvery, true},
            MakeTrajectoryFormat(m_Results.seed, bGzip));
    }
    if (m_Options.video)
    {
        add("--video", *m_Options.video, {m_Options.videoEvery.value_or(1), false}, MakeVideoFormat(m_Settings.world));
    }
}
