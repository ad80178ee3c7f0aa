#pragma once

#include "tests/sequences/RunSequence.h"

#include <functional>

constexpr CScreenMeasures c_Screen{{0, 0, 1280, 1024}, {-4, -4, 1284, 1028}, {1280, 998}, {8, 34}, {16, 15}};

// A window that does exactly what the model predicts, apart from a fault that a test plants.
class CModelWindow final : public IWindowUnderTest
{
public:
    // Gets each group and the facts after it, and may change them.
    using CFault = std::function<void(const std::vector<CTakenStep>&, CWindowFacts&)>;

    explicit CModelWindow(CFault fault = [](const std::vector<CTakenStep>&, CWindowFacts&) {});

    CScreenMeasures GetScreen() override { return c_Screen; }
    void Open() override;
    void Perform(const std::vector<CTakenStep>& group) override;
    CWindowFacts Observe() override { return m_Facts; }

    int GetOpened() const { return m_iOpened; }

private:
    CFault m_Fault;
    CWindowModel m_Model{c_Screen};
    CWindowFacts m_Facts;
    int m_iOpened = 0;
};
