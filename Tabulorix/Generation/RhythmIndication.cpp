#include "RhythmIndication.h"

#include "BeatPositions.h"
#include "NoteLengths.h"

namespace tabulorix {

namespace {

std::vector<int> GetCandidateLines(const TabAnalysis& analysis, const TabBar& bar) {
    const int above = bar.m_FirstLine - 1;
    const int below = bar.m_FirstLine + bar.m_LineCount;
    std::vector<int> lines;
    for (const int line : {above, above - 1, below, below + 1}) {
        if (line >= 0 && line < analysis.GetText().GetLineCount() && !analysis.IsInStave(line)) {
            lines.push_back(line);
        }
    }
    return lines;
}

}  // namespace

void FindRhythmIndication(const TabAnalysis& analysis, BarMusic& music) {
    const TabText& text = analysis.GetText();
    const TabBar& bar = music.m_Bar;
    const std::vector<int> lines = GetCandidateLines(analysis, bar);
    for (const int line : lines) {
        if (IsNoteLengthsLine(text, line, bar.m_StartColumn, bar.GetEndColumn())) {
            music.m_Rhythms = std::make_unique<NoteLengths>(text, bar, line);
            music.m_RhythmLine = line;
            return;
        }
    }
    for (const int line : lines) {
        if (IsBeatCountLine(text, bar, line)) {
            music.m_Rhythms = std::make_unique<BeatPositions>(analysis, bar, line);
            music.m_RhythmLine = line;
            return;
        }
    }
}

}  // namespace tabulorix
