#include "headless/observed/CCurveObserver.h"

#include "headless/files/CByteReader.h"
#include "headless/files/CByteWriter.h"

void CCurveObserver::Prepare(const CAtoms& /*atoms*/) {}

void CCurveObserver::Observe(const CRunMoment& moment)
{
    m_Curve.Observe(moment);
}

void CCurveObserver::Keep(bool /*bOnDisk*/) {}

std::string CCurveObserver::GetProgress() const
{
    return MakeBytes([this](CByteWriter& writer) { m_Curve.Save(writer); });
}

void CCurveObserver::Continue(std::string_view sProgress)
{
    CByteReader reader(sProgress);
    m_Curve.Continue(reader);
}

// It cannot be interrupted, so it has observed a moment or not.
bool CCurveObserver::MayObserveAgain() const
{
    return true;
}

bool CCurveObserver::IsDirect() const
{
    return false;
}

void CCurveObserver::Commit() {}
