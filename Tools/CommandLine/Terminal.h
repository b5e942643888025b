// What the command line asks of the terminal and of the signals that end a program. One
// implementation per system behind this header.

#pragma once

namespace tabulorix {

// Call first: makes broken pipes and size limits errors of the write that meets them instead of the
// end of the program, keeps files that are opened from taking the place of a standard stream that
// is closed, and lets Ctrl-C and other requests to end the program take the progress bar with them.
void PrepareProcess() noexcept;

bool IsErrorStreamTerminal() noexcept;
// Whether standard output is a terminal that takes escape sequences for colours, and its user has
// not asked for none (NO_COLOR). Makes the terminal ready for them.
bool CanShowColours() noexcept;
// Whether the line of the terminal must be cleared when the program is ended.
void SetBarShown(bool isShown) noexcept;
// In columns; 80 when the terminal does not say.
int GetTerminalWidth() noexcept;

// Ctrl-C and requests to end the program end it at once. As long as a guard lives they are only
// noted, so that what must not stay behind can be removed, and a last word can be said. Guards may
// stand inside each other.
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
