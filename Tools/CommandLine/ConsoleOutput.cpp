#include "ConsoleOutput.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "Exceptions.h"
#include "Terminal.h"

namespace tabulorix {

namespace {

// Work that is done sooner shows no bar: it would only flicker.
constexpr std::chrono::milliseconds kBarDelay(250);

constexpr int kWidestBar = 40;
constexpr int kNarrowestBar = 10;
// " [", "] ", "100 %" and the last column, which makes some terminals start a new line.
constexpr int kBarFrame = 10;

}  // namespace

ConsoleOutput::ConsoleOutput(Options options)
    : m_Options(options), m_MayShowBar(!options.m_IsQuiet && IsErrorStreamTerminal()) {}

ConsoleOutput::~ConsoleOutput() {
    ClearBar();
}

void ConsoleOutput::StartFile(const STR& shownName) {
    m_ShownName = shownName;
    m_ReportedIds.Clear();
    m_FileStart = std::chrono::steady_clock::now();
}

void ConsoleOutput::SetProgress(int percent, const STR& /*caption*/) {
    if (WasInterrupted()) {
        RecordThrowLocation("ConsoleOutput", __LINE__);
        throw ConverterCancelled("cancelled");
    }
    const int shown = std::clamp(percent, 0, 100);
    if (m_MayShowBar && shown != m_ShownPercent &&
        std::chrono::steady_clock::now() - m_FileStart >= kBarDelay) {
        DrawBar(shown);
    }
}

void ConsoleOutput::ReportResult(const ResId& message, int /*kind*/, const STR& text, int repeat) {
    const int id = message.GetId();
    const bool wasReported = m_ReportedIds.Contains(id);
    if (m_Options.m_IsQuiet || (wasReported && repeat == 0)) {
        return;
    }
    if (!wasReported) {
        m_ReportedIds.Append(id);
    }
    ClearBar();
    const STR line = text.IsEmpty() ? message.GetString() : text;
    std::fprintf(stderr, "%s: %s\n", m_ShownName.GetText(), line.GetText());
}

void ConsoleOutput::PrintSummary(const STR& text) {
    ClearBar();
    if (m_Options.m_IsQuiet) {
        return;
    }
    std::FILE* stream = m_Options.m_SummariesToErrorStream ? stderr : stdout;
    // Written at once: an interrupt between two files must not lose it.
    if ((std::fprintf(stream, "%s%s\n", m_ShownName.GetText(), text.GetText()) < 0 ||
         std::fflush(stream) != 0) &&
        !m_HasLostSummary) {
        m_HasLostSummary = true;
        std::fprintf(stderr, "tabulorix: standard output: %s\n", std::strerror(errno));
    }
}

void ConsoleOutput::PrintError(const STR& text) {
    ClearBar();
    std::fprintf(stderr, "tabulorix: %s: %s\n", m_ShownName.GetText(), text.GetText());
}

void ConsoleOutput::DrawBar(int percent) {
    const int room = GetTerminalWidth() - kBarFrame;
    // A name that leaves no room for the bar is not shown.
    const STR name = m_ShownName.GetLength() <= room - kNarrowestBar ? m_ShownName : STR();
    const int barWidth = std::min(room - name.GetLength(), kWidestBar);
    if (barWidth < kNarrowestBar) {
        return;
    }
    char bar[kWidestBar];
    std::fill_n(bar, barWidth, '.');
    std::fill_n(bar, barWidth * percent / 100, '#');
    SetBarShown(true);
    std::fprintf(stderr, "\r%s [%.*s] %3d %%", name.GetText(), barWidth, bar, percent);
    m_ShownPercent = percent;
    m_ShownWidth = name.GetLength() + barWidth + kBarFrame - 1;
}

void ConsoleOutput::ClearBar() {
    if (m_ShownPercent >= 0) {
        std::fprintf(stderr, "\r%*s\r", m_ShownWidth, "");
        m_ShownPercent = -1;
        SetBarShown(false);
    }
}

}  // namespace tabulorix
