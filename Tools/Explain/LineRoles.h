// What the lines around the staves were taken for: rhythm lines, chord names, labels and time
// signatures, each with the bars of the score that take it.

#pragma once

#include <map>
#include <string>
#include <vector>

#include "BarReading.h"
#include "Explanation.h"
#include "TabAnalysis.h"

namespace tabulorix {

// Numbers of bars as text: "1-4, 9". There are "..." for all ranges behind the first two.
class BarRanges {
public:
    // `first` is not below those of earlier calls. Nothing happens for 0 bars.
    void Add(int first, int count);
    bool IsEmpty() const noexcept { return m_Ranges.empty(); }
    std::string GetText() const;

private:
    struct Range {
        int m_First;
        int m_Last;
    };
    std::vector<Range> m_Ranges;
    bool m_HasMore = false;
};

class LineRoles {
public:
    // The analysis must outlive this object.
    explicit LineRoles(const TabAnalysis& tab) : m_Tab(tab) {}

    // All bars in the order of the score, then Finish.
    void Add(const BarReading& bar);
    // Marks the columns of the bar's rhythm line and chord names.
    void MarkColumns(const BarReading& bar);
    void Finish();

    // After Finish. Both are empty for a line that is nothing but text.
    const std::vector<std::string>& GetRoles(int line) const;
    const std::vector<Mark>& GetMarks(int line) const;

private:
    struct Line {
        BarRanges m_NoteValues;
        BarRanges m_Counts;
        BarRanges m_Chords;
        bool m_HasUnusedRhythm = false;
        std::vector<int> m_LabelledBars;  // 0 for a label that stands above no bar
        std::vector<std::string> m_Roles;
        std::vector<Mark> m_Marks;
    };

    void MarkOn(Line& line, const ColumnSpan& columns, Mark mark);
    void AddLabels();
    void AddTimeSignatures();
    static void AddLabelRole(Line& line);
    static void AddMusicRoles(Line& line);

    const TabAnalysis& m_Tab;
    std::map<int, Line> m_Lines;
    // The first bar of the score that takes them.
    std::map<const TimeSignatureMark*, int> m_TimeSignatureBars;
    std::map<const Riff*, int> m_LabelBars;
};

}  // namespace tabulorix
