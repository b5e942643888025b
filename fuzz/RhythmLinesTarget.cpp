// Lines beside a stave. The first byte is the rhythm level. Two lines follow that stand above the
// stave, the line of its top string, and what stands below:
//
//     1 C       G7
//     1 + 2 + 3   4
//     0---1-----3---|5---
//
// The stave is as wide as the widest line and has bar lines where the top string has them.

#include <algorithm>
#include <string>

#include "BarMusicReading.h"
#include "FuzzTarget.h"

namespace tabulorix {

namespace {

constexpr int kStringCount = 4;

struct SilentOutput : PluginOutput {
    void SetProgress(int, const STR&) override {}
    void ReportResult(const ResId&, int, const STR&, int) override {}
};

std::string_view TakeLine(std::string_view& text) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    return line;
}

std::string ComposeTab(std::string_view input) {
    const std::string_view first = TakeLine(input);
    const std::string_view second = TakeLine(input);
    const std::string_view top = TakeLine(input);
    const std::size_t width = std::max({first.size(), second.size(), top.size(), std::size_t{4}});
    std::string string(top);
    string.append(width - top.size(), '-');

    std::string tab;
    tab.append(first).append("\n").append(second).append("\n");
    for (int i = 0; i < kStringCount; ++i) {
        tab.append(string).append("\n");
        std::replace_if(
            string.begin(), string.end(), [](char c) { return c != '|'; }, '-');
    }
    return tab.append(input);
}

void CheckRhythms(const Rhythms& rhythms, int columnCount) {
    int position = 0;
    for (int column = 0; column < columnCount; ++column) {
        int length = -1;
        bool isTied = false;
        const int next = rhythms.PositionAt(column, length, isTied);
        Require(position <= next, "time does not run backwards");
        Require(next <= rhythms.GetTotalLength(), "a position lies in its bar");
        Require(length >= 0, "a length is not negative");
        position = next;
    }
}

void CheckEvents(const BarMusic& music) {
    int position = 0;
    for (const auto& [column, event] : music.m_Events) {
        Require(column == event.m_Column && column >= 0 && event.m_Width > 0,
                "an event is as wide as its frets");
        Require(event.GetFirstColumnRead() >= 0 && event.GetEndColumn() <= music.m_Bar.m_Width,
                "an event lies in its bar");
        Require(position <= event.m_Position, "events are in order");
        position = event.m_Position;
    }
}

void CheckBar(const TabAnalysis& analysis, const TabBar& bar, RhythmLevel level) {
    BarMusic music = ReadBarMusic(analysis, bar);
    if (music.m_Rhythms != nullptr) {
        CheckRhythms(*music.m_Rhythms, bar.m_Width);
    }
    PlaceInTime(music, level);
    CheckEvents(music);
}

}  // namespace

}  // namespace tabulorix

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tabulorix;
    if (size == 0) {
        return 0;
    }
    SilentOutput output;
    const TabText text(ComposeTab(GetInput(data, size).substr(1)), output);
    const TabAnalysis analysis(text);
    for (const TabBar* bar : analysis.GetTabBars()) {
        CheckBar(analysis, *bar, static_cast<RhythmLevel>(data[0] % 3));
    }
    return 0;
}
