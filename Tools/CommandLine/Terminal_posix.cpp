#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <iterator>

#include "Terminal.h"

namespace tabulorix {

namespace {

constexpr int kEndingSignals[] = {SIGINT, SIGTERM, SIGHUP};
constexpr int kUsualWidth = 80;

volatile std::sig_atomic_t g_NotedSignal = 0;
struct sigaction g_ActionsBefore[std::size(kEndingSignals)];

void NoteSignal(int signal) {
    g_NotedSignal = signal;
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
}

bool IsErrorStreamTerminal() noexcept {
    return ::isatty(STDERR_FILENO) == 1;
}

int GetTerminalWidth() noexcept {
    struct winsize size;
    if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) {
        return kUsualWidth;
    }
    return size.ws_col;
}

InterruptGuard::InterruptGuard() noexcept {
    struct sigaction noting = {};
    noting.sa_handler = NoteSignal;
    noting.sa_flags = SA_RESTART;
    sigemptyset(&noting.sa_mask);
    for (std::size_t i = 0; i < std::size(kEndingSignals); ++i) {
        ::sigaction(kEndingSignals[i], nullptr, &g_ActionsBefore[i]);
        // Whoever started the program to run on unheeding (nohup) keeps that.
        if (g_ActionsBefore[i].sa_handler != SIG_IGN) {
            ::sigaction(kEndingSignals[i], &noting, nullptr);
        }
    }
}

InterruptGuard::~InterruptGuard() {
    for (std::size_t i = 0; i < std::size(kEndingSignals); ++i) {
        ::sigaction(kEndingSignals[i], &g_ActionsBefore[i], nullptr);
    }
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
