// Whose floating-point environment is in force.
//
// A host may run with its own rounding, precision and trapped exceptions, and may read its flags
// afterwards. The plug-in's code runs with nothing trapped and clear flags; whenever the host's
// code runs, it finds its own environment as it left it.

#pragma once

#include <cfenv>

namespace tabulorix {

// Around a function that the host calls: the plug-in's environment, the host's at the end.
class PluginFloatingPoint {
public:
    PluginFloatingPoint() noexcept;
    ~PluginFloatingPoint();
    PluginFloatingPoint(const PluginFloatingPoint&) = delete;
    PluginFloatingPoint& operator=(const PluginFloatingPoint&) = delete;

private:
    friend class HostFloatingPoint;

    std::fenv_t m_Host;
    PluginFloatingPoint* m_Outer;
};

// Around a call of the host's code: the host's environment, the plug-in's fresh one at the end.
// What the host changes meanwhile stays the host's. Does nothing outside of the scope above.
class HostFloatingPoint {
public:
    HostFloatingPoint() noexcept;
    ~HostFloatingPoint();
    HostFloatingPoint(const HostFloatingPoint&) = delete;
    HostFloatingPoint& operator=(const HostFloatingPoint&) = delete;

private:
    PluginFloatingPoint* m_Plugin;
};

}  // namespace tabulorix
