#include "DebuggerLog_win32.h"

#include <windows.h>

#include <algorithm>
#include <cstring>

#include "Log.h"

namespace tabulorix {

namespace {

// Takes no memory: the log may tell that there is none.
void Send(LogKind /*kind*/, std::string_view text) {
    char piece[512];
    while (!text.empty()) {
        const std::size_t length = std::min(text.size(), sizeof piece - 1);
        std::memcpy(piece, text.data(), length);
        piece[length] = '\0';
        OutputDebugStringA(piece);
        text.remove_prefix(length);
    }
}

}  // namespace

void SendLogToDebugger() noexcept {
    SetLogSink(Send);
}

}  // namespace tabulorix
