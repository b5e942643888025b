// The generation stage: turns an analysed tab into a score.

#pragma once

#include <vector>

#include "RhythmLevel.h"
#include "SystemBars.h"
#include "TabAnalysis.h"

namespace tabulorix {

class ScoreGeneration {
public:
    // Both must outlive the object. The output shows the progress.
    ScoreGeneration(const TabAnalysis& tab, RhythmLevel level, PluginOutput& output)
        : m_Tab(tab), m_Level(level), m_Output(output) {}

    // Fills `score`, a blank score with its music, in place: one instrument on one stave and all
    // the bars of the tab. True when there is at least one bar. Call once. Progress goes from 20 to
    // 80 percent; ConverterCancelled passes through.
    bool GenerateScore(TreeNode& score);

    // What it wrote.
    int GetBarCount() const noexcept { return static_cast<int>(m_ScoreBars.size()); }
    int GetNoteCount() const noexcept { return m_NoteCount; }
    bool IsBass() const noexcept;
    // Which sources some bar's rhythm was taken from. When both are false no rhythms are shown.
    bool HasIndicatedRhythms() const noexcept { return m_HasIndicatedRhythms; }
    bool HasSpacedRhythms() const noexcept { return m_HasSpacedRhythms; }

private:
    void GenerateBars(TreeNode& bars);
    void GenerateBar(const TabBar& bar, TreeNode& bars);

    const TabAnalysis& m_Tab;
    const RhythmLevel m_Level;
    PluginOutput& m_Output;
    std::vector<ScoreBar> m_ScoreBars;  // score bar 1 first
    int m_NoteCount = 0;
    bool m_HasIndicatedRhythms = false;
    bool m_HasSpacedRhythms = false;
};

}  // namespace tabulorix
