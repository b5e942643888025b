// The functions that the host calls. They convert, guard and forward: no exception leaves them, and
// the host finds its floating-point environment as it was. What they do and how they are called is
// said in VeltrasoApi.h.

#include "DebuggerLog_win32.h"
#include "FloatingPoint.h"
#include "HostCallbacks.h"
#include "HostProcess_win32.h"
#include "ImportDriver.h"
#include "PluginState.h"
#include "RhythmOptionsDialog_win32.h"

namespace tabulorix {

namespace {

// 0 for whatever fails.
template <class Work>
int Guard(Work work) noexcept {
    const PluginFloatingPoint floatingPoint;
    try {
        return work();
    } catch (...) {
        return 0;
    }
}

}  // namespace

extern "C" {

VelInitFunction VEL_INIT;
VelOpenFileFunction VEL_OPENFILE;
VelTermFunction VEL_TERM;
VelResultsDialogMessageFunction VEL_RESULTSDIALOGMESSAGE;
VelChooseTransposingInstrumentsFunction VEL_CHOOSETRANSPOSINGINSTRUMENTS;

int VEL_INIT(const PluginHostInfo* info, PluginInitResult* result) {
    return Guard([=] {
        SendLogToDebugger();
        return InitialisePlugin(info, result, std::make_unique<HostProcess>());
    });
}

int VEL_OPENFILE(const char* path) {
    return Guard([=] {
        RhythmOptionsDialog dialog;
        return OpenTabFile(path, dialog);
    });
}

int VEL_TERM() {
    return Guard([] { return TerminatePlugin(); });
}

int VEL_RESULTSDIALOGMESSAGE(const char* title, const char* fileName, int kind, int location1,
                             int location2, const char* text) {
    return Guard([=] {
        return GetHostCallbacks().ReportResult(title, fileName, kind, location1, location2, text);
    });
}

int VEL_CHOOSETRANSPOSINGINSTRUMENTS(std::uintptr_t value1, std::uintptr_t value2) {
    return Guard([=] { return GetHostCallbacks().ChooseTransposingInstruments(value1, value2); });
}
}

}  // namespace tabulorix
