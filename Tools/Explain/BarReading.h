// What became of the bars of a tab in the score.

#pragma once

#include <vector>

#include "BarMusic.h"
#include "DurationWriter.h"
#include "LabelLine.h"
#include "LabelRows.h"
#include "RhythmLevel.h"
#include "TabAnalysis.h"

namespace tabulorix {

// Columns are those of the text.
struct BarReading {
    struct ChordName {
        ColumnSpan m_Columns;
        bool m_IsWritten;  // it stands in the score
    };

    const TabBar* m_Bar = nullptr;
    int m_FirstNumber = 0;    // of its first bar in the score, which counts from 1
    int m_ScoreBarCount = 0;  // 0: nothing of it is in the score
    int m_NoteCount = 0;
    bool m_AreRhythmsShown = false;

    int m_RhythmLine = -1;          // -1: none stands beside it
    bool m_IsRhythmCounts = false;  // it has counts, not note values
    bool m_IsRhythmUsed = false;
    int m_ChordLine = -1;  // -1: it has no chord names
    std::vector<ChordName> m_Chords;

    // In ascending columns. The numbers of its score bars, each where it begins, and the values of
    // its notes.
    std::vector<ColumnLabel> m_Numbers;
    std::vector<ColumnLabel> m_Values;
    std::vector<ColumnSpan> m_LostFrets;  // ascending; what was played there is not in the score
};

// Reads the bars in the order in which the score is written.
class BarReader {
public:
    // The analysis must outlive the reader.
    BarReader(const TabAnalysis& tab, RhythmLevel level) : m_Tab(tab), m_Level(level) {}

    // `bar` is the next of the analysis' tab bars.
    BarReading ReadNext(const TabBar& bar);

private:
    const TabAnalysis& m_Tab;
    const RhythmLevel m_Level;
    int m_ScoreBarCount = 0;
};

}  // namespace tabulorix
