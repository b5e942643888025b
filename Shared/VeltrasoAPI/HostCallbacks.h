// The host's functions, as the plug-in calls them.
//
// All are missing until Resolve has found all six. A call may throw whatever the host's function
// throws, and Exception where that is no exception of this program's compiler.

#pragma once

#include <cstdint>
#include <memory>

#include "HostModule.h"
#include "STR.h"
#include "VeltrasoApi.h"

namespace tabulorix {

class HostCallbacks {
public:
    constexpr HostCallbacks() noexcept = default;

    // Forgets the functions and the module of before, and looks all six up in their fixed order.
    // At the first that is missing it stops, forgets those found, and returns false.
    bool Resolve(std::unique_ptr<HostModule> module) noexcept;
    void Clear() noexcept;

    // Passed to the host with everything about progress.
    void SetProgressCookie(std::uintptr_t cookie) noexcept { m_ProgressCookie = cookie; }

    bool HasLoadTempFile() const noexcept { return m_Functions.m_LoadTempFile != nullptr; }

    // Each calls the host, or does nothing while the function is missing; see VeltrasoApi.h for the
    // arguments.
    void CreateProgressDialog(const char* title) const;
    // False when the user cancelled, and while the function is missing.
    bool UpdateProgressDialog(int percent, const STR& caption) const;
    void DestroyProgressDialog() const;
    void LoadTempFile(const STR& scorePath) const;
    // These two give the host's result, or 0.
    int ReportResult(const char* title, const char* fileName, int kind, int location1,
                     int location2, const char* text) const;
    int ChooseTransposingInstruments(std::uintptr_t value1, std::uintptr_t value2) const;

private:
    struct Functions {
        VelLoadTempFileFunction* m_LoadTempFile = nullptr;
        VelResultsDialogMessageFunction* m_ResultsDialogMessage = nullptr;
        VelUpdateProgressDialogFunction* m_UpdateProgressDialog = nullptr;
        VelDestroyProgressDialogFunction* m_DestroyProgressDialog = nullptr;
        VelCreateProgressDialog2Function* m_CreateProgressDialog2 = nullptr;
        VelChooseTransposingInstrumentsFunction* m_ChooseTransposingInstruments = nullptr;
    };

    std::unique_ptr<HostModule> m_Module;  // null while not resolved
    Functions m_Functions;
    std::uintptr_t m_ProgressCookie = 0;
};

// The one table of the process.
HostCallbacks& GetHostCallbacks() noexcept;

}  // namespace tabulorix
