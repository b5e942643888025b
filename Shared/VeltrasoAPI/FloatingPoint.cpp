#include "FloatingPoint.h"

namespace tabulorix {

namespace {

// Null outside of all functions that the host called.
constinit PluginFloatingPoint* g_Innermost = nullptr;

}  // namespace

PluginFloatingPoint::PluginFloatingPoint() noexcept : m_Outer(g_Innermost) {
    std::feholdexcept(&m_Host);
    g_Innermost = this;
}

PluginFloatingPoint::~PluginFloatingPoint() {
    g_Innermost = m_Outer;
    std::fesetenv(&m_Host);
}

HostFloatingPoint::HostFloatingPoint() noexcept : m_Plugin(g_Innermost) {
    if (m_Plugin != nullptr) {
        std::fesetenv(&m_Plugin->m_Host);
    }
}

HostFloatingPoint::~HostFloatingPoint() {
    if (m_Plugin != nullptr) {
        std::feholdexcept(&m_Plugin->m_Host);
    }
}

}  // namespace tabulorix
