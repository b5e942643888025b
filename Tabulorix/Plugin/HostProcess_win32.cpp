#include "HostProcess_win32.h"

#include <windows.h>

namespace tabulorix {

HostProcess::HostProcess() noexcept : m_Module(GetModuleHandleA(nullptr)) {}

HostFunction HostProcess::FindFunction(const char* name) const noexcept {
    return reinterpret_cast<HostFunction>(GetProcAddress(static_cast<HMODULE>(m_Module), name));
}

}  // namespace tabulorix
