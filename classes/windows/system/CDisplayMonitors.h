#pragma once

#include <windows.h>

#include <string>
#include <vector>

// One monitor: its full rectangle (not only the work area) in screen pixels.
struct CDisplayMonitor
{
    RECT rc{};
    bool bMain = false;
};

// The monitors of the desktop, in the system's order.
class CDisplayMonitors
{
public:
    // Reads the list anew and writes one line per monitor to the log (null: none). False if there is no monitor.
    bool GetDisplayMonitors(std::wstring* pDebugLog);

    int GetCount() const { return static_cast<int>(m_monitors.size()); }
    const std::vector<CDisplayMonitor>& GetList() const { return m_monitors; }

private:
    std::vector<CDisplayMonitor> m_monitors;
};
