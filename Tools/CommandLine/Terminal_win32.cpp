#include <windows.h>

#include <atomic>
#include <cstdlib>

#include "Terminal.h"

namespace tabulorix {

namespace {

constexpr int kUsualWidth = 80;
// What shells show for a program that Ctrl-C ended.
constexpr UINT kInterruptedStatus = 130;

std::atomic<bool> g_WasInterrupted = false;

// Called on a thread of its own. Other events than these end the program whatever is returned.
BOOL WINAPI NoteInterrupt(DWORD kind) {
    if (kind != CTRL_C_EVENT && kind != CTRL_BREAK_EVENT) {
        return FALSE;
    }
    g_WasInterrupted = true;
    return TRUE;
}

}  // namespace

void PrepareProcess() noexcept {}

// The console's own prompt starts on a new line.
void SetBarShown(bool /*isShown*/) noexcept {}

bool IsErrorStreamTerminal() noexcept {
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != 0;
}

bool CanShowColours() noexcept {
    const HANDLE console = GetStdHandle(STD_OUTPUT_HANDLE);
    const char* noColor = std::getenv("NO_COLOR");
    DWORD mode = 0;
    return (noColor == nullptr || *noColor == '\0') && GetConsoleMode(console, &mode) != 0 &&
           SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

int GetTerminalWidth() noexcept {
    CONSOLE_SCREEN_BUFFER_INFO information;
    if (GetConsoleScreenBufferInfo(GetStdHandle(STD_ERROR_HANDLE), &information) == 0) {
        return kUsualWidth;
    }
    return information.srWindow.Right - information.srWindow.Left + 1;
}

InterruptGuard::InterruptGuard() noexcept {
    SetConsoleCtrlHandler(NoteInterrupt, TRUE);
}

InterruptGuard::~InterruptGuard() {
    SetConsoleCtrlHandler(NoteInterrupt, FALSE);
}

bool WasInterrupted() noexcept {
    return g_WasInterrupted;
}

void EndAsInterrupted() noexcept {
    std::_Exit(kInterruptedStatus);
}

}  // namespace tabulorix
