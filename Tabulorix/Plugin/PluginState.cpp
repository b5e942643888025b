#include "PluginState.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "Exceptions.h"
#include "HostCallbacks.h"
#include "PluginOutput.h"
#include "ResId.h"
#include "TabFileTest.h"

namespace tabulorix {

namespace {

// What the host is told with the file types; its meaning is the host's.
constexpr int kInitResultConstant = 8;

constinit PluginState g_State;

void KeepSettingsFolder(const char* folder) noexcept {
    constexpr std::size_t kLongest = sizeof g_State.m_SettingsFolder - 1;
    const std::string_view text = folder == nullptr ? std::string_view() : folder;
    char* end = std::copy_n(text.data(), std::min(text.size(), kLongest), g_State.m_SettingsFolder);
    *end = '\0';
}

void OfferFileTypes(PluginInitResult& result) noexcept {
    const auto types = GetImportFileTypes();
    result.m_FileTypeCount = static_cast<std::int32_t>(types.size());
    result.m_FileTypes = types.data();
    result.m_Constant8 = kInitResultConstant;
}

void ReleaseEverything() noexcept {
    DestroyPluginOutput();
    GetHostCallbacks().Clear();
}

}  // namespace

PluginState& GetPluginState() noexcept {
    return g_State;
}

int InitialisePlugin(const PluginHostInfo* info, PluginInitResult* result,
                     std::unique_ptr<HostModule> host) {
    if (info == nullptr || result == nullptr || g_State.m_RunningImports > 0) {
        return 0;
    }
    InstallAllocationFailureHandler();
    HostCallbacks& callbacks = GetHostCallbacks();
    const bool hasCallbacks = callbacks.Resolve(std::move(host));
    KeepSettingsFolder(info->m_SettingsFolder);
    ResId::SetDefaultModule(info->m_Module);
    OfferFileTypes(*result);
    callbacks.SetProgressCookie(info->m_ProgressCookie);
    g_State.m_ParentWindow = info->m_ParentWindow;
    if (hasCallbacks) {
        GetPluginOutput();
    }
    return hasCallbacks ? 1 : 0;
}

int TerminatePlugin() noexcept {
    if (g_State.m_RunningImports > 0) {
        g_State.m_EndsAfterImport = true;
    } else {
        ReleaseEverything();
    }
    return 1;
}

RunningImport::RunningImport() noexcept {
    ++g_State.m_RunningImports;
}

RunningImport::~RunningImport() {
    if (--g_State.m_RunningImports == 0 && std::exchange(g_State.m_EndsAfterImport, false)) {
        ReleaseEverything();
    }
}

}  // namespace tabulorix
