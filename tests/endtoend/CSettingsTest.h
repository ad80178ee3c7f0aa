#pragma once

#include "tests/endtoend/CEndToEndTest.h"
#include "tests/endtoend/CPanelUser.h"

#include <chrono>

// The settings panel used from another process with real keys and clicks.
class CSettingsTest : public CEndToEndTest
{
protected:
    static constexpr auto c_patience = std::chrono::milliseconds(20000);
    // An unwanted reaction would occur within this time.
    static constexpr DWORD c_uSettleMilliseconds = 300;

    CSettingsTest();

    CPanelUser m_panel;
};
