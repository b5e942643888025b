// The log of the plug-in, for who watches the host with a debugger or a viewer of debug messages.

#pragma once

namespace tabulorix {

// From now on. Without a watcher the system drops the lines.
void SendLogToDebugger() noexcept;

}  // namespace tabulorix
