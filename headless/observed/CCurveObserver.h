#pragma once

#include "headless/observed/CRunCurve.h"
#include "headless/observed/IRunObserver.h"

#include <string>

// Follows a run for its report. It writes nothing: the report comes when the run has ended.
class CCurveObserver : public IRunObserver
{
public:
    // curve must outlive this object.
    explicit CCurveObserver(CRunCurve& curve) : m_Curve(curve) {}

    void Prepare(const CAtoms& atoms) override;
    void Observe(const CRunMoment& moment) override;
    void Keep(bool bOnDisk) override;
    std::string GetProgress() const override;
    void Continue(std::string_view sProgress) override;
    bool MayObserveAgain() const override;
    bool IsDirect() const override;
    void Commit() override;

private:
    CRunCurve& m_Curve;
};
