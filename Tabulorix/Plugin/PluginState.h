// What the plug-in knows from its initialisation to its end, and these two.

#pragma once

#include <memory>

#include "HostModule.h"
#include "VeltrasoApi.h"

namespace tabulorix {

// Plain memory, ready as soon as the plug-in is loaded.
struct PluginState {
    // Zero-terminated; longer folders are cut.
    char m_SettingsFolder[512] = {};
    void* m_ParentWindow = nullptr;
    // 1 while a conversion runs: another one is refused.
    int m_IsImportBusy = 0;
    // Until the plug-in is unloaded; each load asks the user again.
    bool m_ShowsRhythmDialog = true;
    // The imports under way: a second one can start before the conversion of the first has begun.
    int m_RunningImports = 0;
    // The host ended the plug-in from inside an import.
    bool m_EndsAfterImport = false;
};

PluginState& GetPluginState() noexcept;

// The work of VEL_INIT, in a host whose functions `host` finds: 1 when it finds all six, else 0.
// The result is filled either way. 0 with nothing touched when a record is null or an import runs.
int InitialisePlugin(const PluginHostInfo* info, PluginInitResult* result,
                     std::unique_ptr<HostModule> host);

// The work of VEL_TERM. Always 1; an import that runs is finished first.
int TerminatePlugin() noexcept;

// Stands on the stack of an import as long as it runs, so that nothing that it needs is taken away.
class RunningImport {
public:
    RunningImport() noexcept;
    ~RunningImport();
    RunningImport(const RunningImport&) = delete;
    RunningImport& operator=(const RunningImport&) = delete;
};

}  // namespace tabulorix
