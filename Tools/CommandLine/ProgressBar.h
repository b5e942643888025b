// One line at the bottom of the terminal, on standard error: a caption, a bar and a percentage.

#pragma once

#include <chrono>

#include "STR.h"

namespace tabulorix {

class ProgressBar {
public:
    // Work that is done sooner shows no bar: it would only flicker.
    static constexpr std::chrono::milliseconds kDelay{250};

    // One that is not allowed, or has no terminal, shows nothing.
    explicit ProgressBar(bool isAllowed);
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    // The work begins.
    void Start();
    // Whether it is time to draw: after the delay, and then not more often than the eye sees.
    bool IsDue() const;
    // `percent` is 0 to 100. A caption that leaves no room for the bar is not shown.
    void Draw(const STR& caption, int percent);
    // Takes the line off the terminal; call before anything else is printed.
    void Clear();

private:
    using Clock = std::chrono::steady_clock;

    bool m_MayShow;
    Clock::time_point m_NextDrawing;
    int m_ShownWidth = 0;  // in columns; 0: nothing is shown
};

}  // namespace tabulorix
