#include "HostCallbacks.h"

#include <utility>

#include "HostCall.h"

namespace tabulorix {

namespace {

constexpr int kFirstPercent = 0;
constexpr int kLastPercent = 100;
// The last argument with which the host wants its progress display opened.
constexpr int kProgressDialogSetting = 30;

constinit HostCallbacks g_Callbacks;

template <class Function>
bool Find(const HostModule& module, const char* name, Function*& function) noexcept {
    function = reinterpret_cast<Function*>(module.FindFunction(name));
    return function != nullptr;
}

// A function of the host or, while it is missing, 0.
template <class Function, class... Arguments>
int Call(Function* function, Arguments... arguments) {
    return function == nullptr ? 0 : CallHost([=] { return function(arguments...); });
}

}  // namespace

bool HostCallbacks::Resolve(std::unique_ptr<HostModule> module) noexcept {
    Clear();
    m_Module = std::move(module);
    Functions& found = m_Functions;
    if (Find(*m_Module, "VEL_LOADTEMPFILE", found.m_LoadTempFile) &&
        Find(*m_Module, "VEL_RESULTSDIALOGMESSAGE", found.m_ResultsDialogMessage) &&
        Find(*m_Module, "VEL_UPDATEPROGRESSDIALOG", found.m_UpdateProgressDialog) &&
        Find(*m_Module, "VEL_DESTROYPROGRESSDIALOG", found.m_DestroyProgressDialog) &&
        Find(*m_Module, "VEL_CREATEPROGRESSDIALOG_2", found.m_CreateProgressDialog2) &&
        Find(*m_Module, "VEL_CHOOSETRANSPOSINGINSTRUMENTS", found.m_ChooseTransposingInstruments)) {
        return true;
    }
    Clear();
    return false;
}

void HostCallbacks::Clear() noexcept {
    m_Module.reset();
    m_Functions = {};
}

void HostCallbacks::CreateProgressDialog(const char* title) const {
    Call(m_Functions.m_CreateProgressDialog2, m_ProgressCookie, title, kFirstPercent, kLastPercent,
         kProgressDialogSetting);
}

bool HostCallbacks::UpdateProgressDialog(int percent, const STR& caption) const {
    return Call(m_Functions.m_UpdateProgressDialog, m_ProgressCookie, percent, caption.GetText()) !=
           0;
}

void HostCallbacks::DestroyProgressDialog() const {
    Call(m_Functions.m_DestroyProgressDialog, m_ProgressCookie);
}

void HostCallbacks::LoadTempFile(const STR& scorePath) const {
    Call(m_Functions.m_LoadTempFile, scorePath.GetText());
}

int HostCallbacks::ReportResult(const char* title, const char* fileName, int kind, int location1,
                                int location2, const char* text) const {
    return Call(m_Functions.m_ResultsDialogMessage, title, fileName, kind, location1, location2,
                text);
}

int HostCallbacks::ChooseTransposingInstruments(std::uintptr_t value1,
                                                std::uintptr_t value2) const {
    return Call(m_Functions.m_ChooseTransposingInstruments, value1, value2);
}

HostCallbacks& GetHostCallbacks() noexcept {
    return g_Callbacks;
}

}  // namespace tabulorix
