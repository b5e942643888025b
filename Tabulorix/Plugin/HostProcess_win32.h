// The host's executable, which is the main module of the process.

#pragma once

#include "HostModule.h"

namespace tabulorix {

class HostProcess : public HostModule {
public:
    HostProcess() noexcept;
    HostFunction FindFunction(const char* name) const noexcept override;

private:
    void* m_Module;  // not owned: a process never unloads its main module
};

}  // namespace tabulorix
