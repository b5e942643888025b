// StandInHost: drives the plug-in the way the notation program does, for people who have none, and
// for the tests.

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <exception>

#include "Host.h"
#include "Log.h"

namespace {

constexpr int kCannotLoad = 1;
constexpr int kWrongUsage = 2;
constexpr int kDied = 3;

LONG WINAPI ReportCrash(EXCEPTION_POINTERS* pointers) {
    standin::LogAlways("DIED: exception " + standin::Hex(pointers->ExceptionRecord->ExceptionCode));
    TerminateProcess(GetCurrentProcess(), kDied);
    return EXCEPTION_EXECUTE_HANDLER;
}

[[noreturn]] void ReportTermination() {
    standin::LogAlways("DIED: nobody caught an exception");
    std::_Exit(kDied);
}

// Memory that the library would take at the first line would look like the plug-in's.
char g_OutputBuffer[BUFSIZ];

std::string GetCurrentFolder() {
    char folder[MAX_PATH] = "";
    GetCurrentDirectoryA(sizeof folder, folder);
    return folder;
}

}  // namespace

int main(int argc, char** argv) {
    using namespace standin;
    Script script = ReadScript(argc, argv);
    if (script.m_WantsHelp) {
        std::fputs(GetHelpText(), stdout);
        return 0;
    }
    if (!script.m_Problem.empty()) {
        std::fprintf(stderr, "StandInHost: %s\nTry \"StandInHost --help\".\n",
                     script.m_Problem.c_str());
        return kWrongUsage;
    }
    if (script.m_SettingsFolder.empty()) {
        script.m_SettingsFolder = GetCurrentFolder();
    }
    if (script.m_IsQuiet) {
        SilenceLog();
    }
    std::setvbuf(stdout, g_OutputBuffer, _IOFBF, sizeof g_OutputBuffer);
    SetUnhandledExceptionFilter(ReportCrash);
    std::set_terminate(ReportTermination);
    return Host(script).Run() ? 0 : kCannotLoad;
}
