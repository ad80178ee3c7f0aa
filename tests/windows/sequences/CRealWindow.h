#pragma once

#include "tests/sequences/RunSequence.h"
#include "tests/windows/CRunningApplication.h"
#include "tests/windows/sequences/CFrameGate.h"

#include <memory>

// The program's own window, driven by the messages that the system sends for what a user does. Each simulation stands
// still at its first frame.
class CRealWindow final : public IWindowUnderTest
{
public:
    CRealWindow();

    CScreenMeasures GetScreen() override { return m_Screen; }
    void Open() override;
    void Perform(const std::vector<CTakenStep>& group) override;
    CWindowFacts Observe() override;

private:
    HWND GetMain() const { return m_pApplication->GetMain(); }
    void PerformFirst(const CTakenStep& taken) const;
    void PerformInView(const CTakenStep& taken) const;
    void PressButton() const;
    void PostMeanwhile(const CTakenStep& taken) const;
    void OpenAnother(const CStep& step);
    void Reopen();
    void Settle() const;

    CScreenMeasures m_Screen;
    CFrameGate m_Gate; // before the application, which it must outlive
    std::unique_ptr<CRunningApplication> m_pApplication;
    std::optional<COtherWindowFacts> m_Other;
};
