// The debug log and the error log.
//
// Lines go to the sink of the running program; without a sink they are dropped. The plug-in sends
// them to the debugger; the command line has none. A line brings its own line end.

#pragma once

#include <string_view>

namespace tabulorix {

enum class LogKind { Debug, Error };

using LogSink = void (*)(LogKind kind, std::string_view text);

// Null takes the sink away. Returns the sink that was set before.
LogSink SetLogSink(LogSink sink) noexcept;

// Tells whether anybody listens, so that a large dump need not be composed for nobody.
bool HasLogSink() noexcept;

void WriteDebugLog(std::string_view text);
void WriteErrorLog(std::string_view text);

}  // namespace tabulorix
