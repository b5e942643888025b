#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <initializer_list>

#include "Terminal.h"

namespace tabulorix {

namespace {

constexpr int kEndingSignals[] = {SIGINT, SIGTERM, SIGHUP};
constexpr int kUsualWidth = 80;

volatile std::sig_atomic_t g_NotedSignal = 0;
volatile std::sig_atomic_t g_GuardCount = 0;
volatile std::sig_atomic_t g_IsBarShown = 0;

// Only what a signal handler may call.
void EndOrNote(int signal) {
    if (g_GuardCount != 0) {
        g_NotedSignal = signal;
        return;
    }
    constexpr char kClearLine[] = "\r\x1b[K";
    if (g_IsBarShown != 0 && ::write(STDERR_FILENO, kClearLine, sizeof kClearLine - 1) < 0) {
        g_IsBarShown = 0;
    }
    ::signal(signal, SIG_DFL);
    ::raise(signal);
}

void HandleEndingSignals() {
    struct sigaction action = {};
    action.sa_handler = EndOrNote;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (const int signal : kEndingSignals) {
        struct sigaction before;
        ::sigaction(signal, nullptr, &before);
        // Whoever started the program to run on unheeding (nohup) keeps that.
        if (before.sa_handler != SIG_IGN) {
            ::sigaction(signal, &action, nullptr);
        }
    }
}

}  // namespace

void PrepareProcess() noexcept {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        // Closed: writing to what is opened for reading fails as it should. The lowest free number
        // is the one taken.
        if (::fcntl(stream, F_GETFD) < 0 && ::open("/dev/null", O_RDONLY) < 0) {
            std::abort();
        }
    }
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    HandleEndingSignals();
}

bool IsErrorStreamTerminal() noexcept {
    return ::isatty(STDERR_FILENO) == 1;
}

bool CanShowColours() noexcept {
    const char* noColor = std::getenv("NO_COLOR");
    const char* kind = std::getenv("TERM");
    return ::isatty(STDOUT_FILENO) == 1 && (noColor == nullptr || *noColor == '\0') &&
           kind != nullptr && std::strcmp(kind, "dumb") != 0;
}

int GetTerminalWidth() noexcept {
    struct winsize size;
    if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) {
        return kUsualWidth;
    }
    return size.ws_col;
}

void SetBarShown(bool isShown) noexcept {
    g_IsBarShown = isShown ? 1 : 0;
}

InterruptGuard::InterruptGuard() noexcept {
    g_GuardCount = g_GuardCount + 1;
}

InterruptGuard::~InterruptGuard() {
    g_GuardCount = g_GuardCount - 1;
}

bool WasInterrupted() noexcept {
    return g_NotedSignal != 0;
}

void EndAsInterrupted() noexcept {
    std::signal(g_NotedSignal, SIG_DFL);
    std::raise(g_NotedSignal);
    std::_Exit(128 + g_NotedSignal);
}

}  // namespace tabulorix
