#include "Explain.h"

#include <algorithm>
#include <map>

#include "Ascii.h"
#include "NearMiss.h"
#include "TabReading.h"
#include "Wording.h"

namespace tabulorix {

namespace {

// "E2" for a Chrom2 pitch; middle C is C4.
std::string GetPitchName(int chrom2) {
    constexpr const char* kNames[] = {"C",  "C#", "D",  "Eb", "E",  "F",
                                      "F#", "G",  "G#", "A",  "Bb", "B"};
    constexpr int kSemitones = 12;
    const int pitch = std::max(chrom2 / 2, 0);
    return kNames[pitch % kSemitones] + std::to_string(pitch / kSemitones - 1);
}

void Summarize(const TabReading& tab, std::vector<std::string>& summary) {
    const std::size_t staves = tab.GetStaves().size();
    const bool hasIndicated = tab.HasIndicatedRhythms();
    const bool hasSpaced = tab.HasSpacedRhythms();
    summary.push_back(Count(static_cast<int>(staves), "stave") + ", " +
                      Count(tab.GetBarCount(), "bar") + ", " + Count(tab.GetNoteCount(), "note") +
                      ", " + DescribeRhythms(hasIndicated, hasSpaced) +
                      (hasIndicated || hasSpaced ? "" : ", so that every note is an eighth"));
    if (tab.GetReadStaveCount() < staves) {
        summary.push_back(
            "so many staves share their lines that bars and notes are told up to stave " +
            std::to_string(tab.GetReadStaveCount()) + " only");
    }
}

// Sets the rows of the whole tab, line by line from the top.
class RowWriter {
public:
    RowWriter(const TabReading& tab, Explanation& explanation);

    void WriteRows();

private:
    void WriteStaveHead(std::size_t index);
    void WriteLine(int line);
    void WriteStringLine(int line);
    void WriteTextLine(int line);
    void WriteRunFoot();
    void WriteLabels(const std::string& margin, const std::vector<ColumnLabel>& labels, Mark mark);
    void WriteRoles(const std::vector<std::string>& roles, std::size_t firstRole);

    const StaveReading& GetStave(std::size_t index) const { return m_Tab.GetStaves()[index]; }
    // The staves that began with the run at hand.
    std::size_t GetStaveCountOfRun() const { return m_NextStave - m_FirstOfRun; }

    const TabReading& m_Tab;
    std::vector<ExplainedRow>& m_Rows;
    std::map<int, int> m_MessageNumbers;  // by line, from 1
    std::size_t m_FirstOfRun = 0;
    std::size_t m_NextStave = 0;
};

RowWriter::RowWriter(const TabReading& tab, Explanation& explanation)
    : m_Tab(tab), m_Rows(explanation.m_Rows) {
    int number = 0;
    for (const MessageRecorder::Message& message : tab.GetMessages()) {
        ++number;
        for (int i = 0; i < message.m_Lines.m_Count; ++i) {
            m_MessageNumbers.emplace(message.m_Lines.m_First + i, number);
        }
    }
}

void RowWriter::WriteRows() {
    const std::vector<StaveReading>& staves = m_Tab.GetStaves();
    const TabText& text = m_Tab.GetText();
    // The line behind the last line feed is none to a reader.
    const int end = text.GetLineCount() - (text.GetLine(text.GetLineCount() - 1).empty() ? 1 : 0);
    for (int line = 0; line < end; ++line) {
        if (m_NextStave < staves.size() && GetStave(m_NextStave).m_Stave->m_FirstLine == line) {
            WriteStaveHead(m_NextStave);
            ++m_NextStave;
        }
        const bool isInStave = GetStaveCountOfRun() > 0;
        WriteLine(line);
        if (isInStave && GetStave(m_FirstOfRun).m_Stave->GetEndLine() == line + 1) {
            WriteRunFoot();
            m_FirstOfRun = m_NextStave;
        }
    }
}

void RowWriter::WriteStaveHead(std::size_t index) {
    if (GetStave(index).m_IsShown) {
        WriteLabels("stave " + std::to_string(index + 1) + ", bars", GetStave(index).m_Numbers,
                    Mark::Number);
    }
}

void RowWriter::WriteLabels(const std::string& margin, const std::vector<ColumnLabel>& labels,
                            Mark mark) {
    std::string rowMargin = margin;
    for (std::string& text : PlaceLabels(labels)) {
        m_Rows.push_back({0, std::exchange(rowMargin, {}), std::move(text), {}, mark});
    }
}

void RowWriter::WriteLine(int line) {
    const std::string_view text = m_Tab.GetText().GetLine(line);
    m_Rows.push_back({line + 1, {}, std::string(text), {}});
    if (GetStaveCountOfRun() > 0) {
        WriteStringLine(line);
    } else {
        WriteTextLine(line);
    }
}

// The row is there already; further roles get rows of their own.
void RowWriter::WriteRoles(const std::vector<std::string>& roles, std::size_t firstRole) {
    for (std::size_t i = firstRole; i < roles.size(); ++i) {
        m_Rows.push_back({0, roles[i], {}, {}});
    }
}

void RowWriter::WriteStringLine(int line) {
    const StaveReading& reading = GetStave(m_FirstOfRun);
    const TabStave& stave = *reading.m_Stave;
    const auto string = static_cast<std::size_t>(stave.GetEndLine() - 1 - line);
    ExplainedRow& row = m_Rows.back();
    row.m_Margin = "string " + std::to_string(line - stave.m_FirstLine + 1) + " " +
                   GetPitchName(stave.m_Tuning[string]);
    if (const std::size_t others = GetStaveCountOfRun() - 1; others > 0) {
        row.m_Margin += " +" + Count(static_cast<int>(others), "stave");
    }
    row.m_Marks = reading.GetMarks(row.m_Text);
    WriteRoles(m_Tab.GetRoles().GetRoles(line), 0);
}

void RowWriter::WriteTextLine(int line) {
    ExplainedRow& row = m_Rows.back();
    row.m_Marks = m_Tab.GetRoles().GetMarks(line);
    std::vector<std::string> roles = m_Tab.GetRoles().GetRoles(line);
    if (const auto number = m_MessageNumbers.find(line); number != m_MessageNumbers.end()) {
        roles.insert(roles.begin(), "left out (" + std::to_string(number->second) + ")");
        row.m_Rest = Mark::LeftOut;
    }
    const bool isBlank = std::all_of(row.m_Text.begin(), row.m_Text.end(), IsBlank);
    if (roles.empty() && !isBlank) {
        roles.emplace_back("text");
    }
    if (!roles.empty()) {
        row.m_Margin = roles.front();
        WriteRoles(roles, 1);
    }
}

void RowWriter::WriteRunFoot() {
    const std::size_t count = GetStaveCountOfRun();
    std::size_t hidden = 0;
    for (std::size_t i = m_FirstOfRun; i < m_NextStave; ++i) {
        if (!GetStave(i).m_IsShown) {
            ++hidden;
            continue;
        }
        const std::string margin =
            count == 1 ? "notes" : "stave " + std::to_string(i + 1) + ", notes";
        WriteLabels(margin, GetStave(i).m_Values, Mark::Value);
    }
    if (hidden > 0) {
        m_Rows.push_back({0, "and " + Count(static_cast<int>(hidden), "stave"), {}, {}});
    }
}

}  // namespace

Explanation Explain(std::string_view bytes, RhythmLevel level) {
    const TabRecognition found = RecognizeTab(bytes);
    if (!found.IsTab()) {
        return ExplainRefusal(bytes, found);
    }
    const TabReading tab(bytes, level);
    const DashedRuns runs(tab.GetText());
    Explanation explanation;
    RowWriter(tab, explanation).WriteRows();
    for (const MessageRecorder::Message& message : tab.GetMessages()) {
        explanation.m_LeftOut.push_back(ExplainMessage(message, runs));
    }
    if (tab.GetStaves().empty()) {
        ExplainMissingStave(bytes, runs, explanation);
    } else {
        Summarize(tab, explanation.m_Summary);
    }
    return explanation;
}

}  // namespace tabulorix
