#include "Log.h"

#include <utility>

namespace tabulorix {

namespace {

LogSink g_Sink = nullptr;

void Write(LogKind kind, std::string_view text) {
    if (g_Sink != nullptr) {
        g_Sink(kind, text);
    }
}

}  // namespace

LogSink SetLogSink(LogSink sink) noexcept {
    return std::exchange(g_Sink, sink);
}

bool HasLogSink() noexcept {
    return g_Sink != nullptr;
}

void WriteDebugLog(std::string_view text) {
    Write(LogKind::Debug, text);
}

void WriteErrorLog(std::string_view text) {
    Write(LogKind::Error, text);
}

}  // namespace tabulorix
