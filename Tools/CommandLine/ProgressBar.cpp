#include "ProgressBar.h"

#include <algorithm>
#include <cstdio>

#include "Terminal.h"

namespace tabulorix {

namespace {

constexpr std::chrono::milliseconds kPause(50);
constexpr int kWidestBar = 40;
constexpr int kNarrowestBar = 10;
// " [", "] ", "100 %" and the last column, which makes some terminals start a new line.
constexpr int kFrameWidth = 10;
// "^C", which the terminal puts behind the bar when the user wants the program to end.
constexpr int kEchoWidth = 2;

}  // namespace

ProgressBar::ProgressBar(bool isAllowed) : m_MayShow(isAllowed && IsErrorStreamTerminal()) {}

ProgressBar::~ProgressBar() {
    Clear();
}

void ProgressBar::Start() {
    m_NextDrawing = Clock::now() + kDelay;
}

bool ProgressBar::IsDue() const {
    return m_MayShow && Clock::now() >= m_NextDrawing;
}

void ProgressBar::Draw(const STR& caption, int percent) {
    const int room = GetTerminalWidth() - kFrameWidth;
    const STR shown = caption.GetLength() <= room - kNarrowestBar ? caption : STR();
    const int barWidth = std::min(room - shown.GetLength(), kWidestBar);
    if (barWidth < kNarrowestBar) {
        return;
    }
    char bar[kWidestBar];
    std::fill_n(bar, barWidth, '.');
    std::fill_n(bar, barWidth * percent / 100, '#');
    SetBarShown(true);
    std::fprintf(stderr, "\r%s [%.*s] %3d %%", shown.GetText(), barWidth, bar, percent);
    m_ShownWidth = shown.GetLength() + barWidth + kFrameWidth - 1;
    m_NextDrawing = Clock::now() + kPause;
}

void ProgressBar::Clear() {
    if (m_ShownWidth > 0) {
        const int width = std::min(m_ShownWidth + kEchoWidth, GetTerminalWidth() - 1);
        std::fprintf(stderr, "\r%*s\r", width, "");
        m_ShownWidth = 0;
        SetBarShown(false);
    }
}

}  // namespace tabulorix
