#include "LineRoles.h"

#include <algorithm>

#include "Ascii.h"

namespace tabulorix {

namespace {

constexpr std::size_t kMostRanges = 2;
constexpr std::size_t kMostRoles = 4;

void AddRole(std::vector<std::string>& roles, const std::string& role) {
    if (roles.size() < kMostRoles) {
        roles.push_back(role);
    } else {
        roles.back() = "and more";
    }
}

void AddRole(std::vector<std::string>& roles, const char* what, const BarRanges& bars) {
    if (!bars.IsEmpty()) {
        AddRole(roles, what + (" " + bars.GetText()));
    }
}

// 0 for what no bar takes.
template <class Key>
int FindBar(const std::map<const Key*, int>& bars, const Key& key) {
    const auto found = bars.find(&key);
    return found == bars.end() ? 0 : found->second;
}

}  // namespace

void BarRanges::Add(int first, int count) {
    if (count <= 0) {
        return;
    }
    const int last = first + count - 1;
    if (!m_Ranges.empty() && first <= m_Ranges.back().m_Last + 1) {
        m_Ranges.back().m_Last = last;
    } else if (m_Ranges.size() < kMostRanges) {
        m_Ranges.push_back({first, last});
    } else {
        m_HasMore = true;
    }
}

std::string BarRanges::GetText() const {
    std::string text;
    for (const Range& range : m_Ranges) {
        text += (text.empty() ? "" : ", ") + std::to_string(range.m_First);
        if (range.m_Last > range.m_First) {
            text += "-" + std::to_string(range.m_Last);
        }
    }
    return m_HasMore ? text + ", ..." : text;
}

void LineRoles::Add(const BarReading& bar) {
    if (bar.m_RhythmLine >= 0) {
        Line& line = m_Lines[bar.m_RhythmLine];
        if (bar.m_IsRhythmUsed) {
            (bar.m_IsRhythmCounts ? line.m_Counts : line.m_NoteValues)
                .Add(bar.m_FirstNumber, bar.m_ScoreBarCount);
        } else {
            line.m_HasUnusedRhythm = true;
        }
    }
    if (bar.m_ChordLine >= 0) {
        m_Lines[bar.m_ChordLine].m_Chords.Add(bar.m_FirstNumber, bar.m_ScoreBarCount);
    }
    if (bar.m_ScoreBarCount > 0) {
        m_TimeSignatureBars.try_emplace(bar.m_Bar->m_TimeSignature, bar.m_FirstNumber);
        m_LabelBars.try_emplace(bar.m_Bar->m_Riff, bar.m_FirstNumber);
    }
}

void LineRoles::MarkOn(Line& line, const ColumnSpan& columns, Mark mark) {
    const auto end = static_cast<std::size_t>(columns.m_End);
    if (line.m_Marks.size() < end) {
        line.m_Marks.resize(end, Mark::None);
    }
    std::fill(line.m_Marks.begin() + columns.m_Start, line.m_Marks.begin() + columns.m_End, mark);
}

void LineRoles::MarkColumns(const BarReading& bar) {
    for (const BarReading::ChordName& chord : bar.m_Chords) {
        MarkOn(m_Lines[bar.m_ChordLine], chord.m_Columns,
               chord.m_IsWritten ? Mark::Chord : Mark::Lost);
    }
    if (bar.m_IsRhythmUsed) {
        const int end =
            std::min(bar.m_Bar->GetEndColumn(), m_Tab.GetText().GetLineLength(bar.m_RhythmLine));
        const ColumnSpan columns{std::min(bar.m_Bar->m_StartColumn, end), end};
        MarkOn(m_Lines[bar.m_RhythmLine], columns, Mark::Rhythm);
    }
}

void LineRoles::AddLabels() {
    for (const auto& riff : m_Tab.GetRiffs()) {
        const int bar = FindBar(m_LabelBars, *riff);
        // Words between the frets of a string are seldom meant as labels.
        if (bar > 0 || !m_Tab.IsInStave(riff->m_Line)) {
            Line& line = m_Lines[riff->m_Line];
            line.m_LabelledBars.push_back(bar);
            MarkOn(line, {riff->m_StartColumn, riff->m_EndColumn}, Mark::Label);
        }
    }
}

void LineRoles::AddTimeSignatures() {
    for (const auto& mark : m_Tab.GetTimeSignatures()) {
        Line& line = m_Lines[mark->m_Line];
        const int bar = FindBar(m_TimeSignatureBars, *mark);
        AddRole(line.m_Roles,
                "time " + std::to_string(mark->m_Numerator) + "/" +
                    std::to_string(mark->m_Denominator) +
                    (bar > 0 ? ", bar " + std::to_string(bar) : std::string(", no bar")));
        MarkOn(line, {mark->m_StartColumn, mark->m_EndColumn + 1}, Mark::TimeSignature);
    }
}

void LineRoles::AddLabelRole(Line& line) {
    std::vector<int>& labelled = line.m_LabelledBars;
    std::sort(labelled.begin(), labelled.end());
    BarRanges bars;
    for (const int bar : labelled) {
        bars.Add(bar, bar > 0 ? 1 : 0);
    }
    if (!labelled.empty()) {
        AddRole(line.m_Roles, bars.IsEmpty() ? "label, no bar" : "label, bar " + bars.GetText());
    }
}

void LineRoles::AddMusicRoles(Line& line) {
    AddRole(line.m_Roles, "chords", line.m_Chords);
    AddRole(line.m_Roles, "note values", line.m_NoteValues);
    AddRole(line.m_Roles, "counts", line.m_Counts);
    if (line.m_HasUnusedRhythm) {
        AddRole(line.m_Roles, "rhythm, unused");
    }
}

void LineRoles::Finish() {
    AddLabels();
    for (auto& [number, line] : m_Lines) {
        AddLabelRole(line);
    }
    AddTimeSignatures();
    for (auto& [number, line] : m_Lines) {
        AddMusicRoles(line);
    }
}

const std::vector<std::string>& LineRoles::GetRoles(int line) const {
    static const std::vector<std::string> kNone;
    const auto found = m_Lines.find(line);
    return found == m_Lines.end() ? kNone : found->second.m_Roles;
}

const std::vector<Mark>& LineRoles::GetMarks(int line) const {
    static const std::vector<Mark> kNone;
    const auto found = m_Lines.find(line);
    return found == m_Lines.end() ? kNone : found->second.m_Marks;
}

}  // namespace tabulorix
