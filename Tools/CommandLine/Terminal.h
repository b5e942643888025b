// What the command line asks of the terminal and of the signals that end a program. One
// implementation per system behind this header.

#pragma once

namespace tabulorix {

// Call first: makes broken pipes and size limits errors of the write that meets them instead of the
// end of the program, and keeps files that are opened from taking the place of a standard stream
// that is closed.
void PrepareProcess() noexcept;

bool IsErrorStreamTerminal() noexcept;
// In columns; 80 when the terminal does not say.
int GetTerminalWidth() noexcept;

// As long as one lives, Ctrl-C and requests to end the program are only noted, so that what must
// not stay behind can be removed. One at a time.
class InterruptGuard {
public:
    InterruptGuard() noexcept;
    ~InterruptGuard();
    InterruptGuard(const InterruptGuard&) = delete;
    InterruptGuard& operator=(const InterruptGuard&) = delete;
};

// Whether an end was asked for under a guard.
bool WasInterrupted() noexcept;
// Ends the program the way that the noted request would have.
[[noreturn]] void EndAsInterrupted() noexcept;

}  // namespace tabulorix
