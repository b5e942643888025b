// One tab with what became of it in the score: the analysis, and the music of all its bars.

#pragma once

#include <string_view>
#include <vector>

#include "LabelRows.h"
#include "LeftOutLines.h"
#include "LineRoles.h"
#include "RhythmLevel.h"
#include "TabAnalysis.h"

namespace tabulorix {

// What is shown of a stave. A run of far more than six lines has many staves, each with all the
// lines that remain; only the first few of them are shown.
struct StaveReading {
    const TabStave* m_Stave;
    int m_PlaceInRun;  // 0 for the first stave of a run of lines
    bool m_IsShown;
    std::vector<ColumnLabel> m_Numbers;  // of the bars
    std::vector<ColumnLabel> m_Values;   // of the notes
    // By column, as far as the stave's bars reach: BarLine; Fret where frets are in the score, Lost
    // where they are not. Of the first stave of a run only.
    std::vector<Mark> m_Columns;

    // The marks of one of the stave's lines.
    std::vector<Mark> GetMarks(std::string_view characters) const;
};

class TabReading {
public:
    TabReading(std::string_view bytes, RhythmLevel level);

    const TabText& GetText() const noexcept { return m_Text; }
    const std::vector<StaveReading>& GetStaves() const noexcept { return m_Staves; }
    const LineRoles& GetRoles() const noexcept { return m_Roles; }
    const std::vector<MessageRecorder::Message>& GetMessages() const noexcept {
        return m_Messages.GetMessages();
    }

    // How many of the staves were read. All, unless so many overlap that reading their shared lines
    // again and again would be out of proportion; then all counts and roles are those so far.
    std::size_t GetReadStaveCount() const noexcept { return m_ReadStaveCount; }

    // Of the score.
    int GetBarCount() const noexcept { return m_BarCount; }
    int GetNoteCount() const noexcept { return m_NoteCount; }
    bool HasIndicatedRhythms() const noexcept { return m_HasIndicatedRhythms; }
    bool HasSpacedRhythms() const noexcept { return m_HasSpacedRhythms; }

private:
    void ReadStaves();
    void ReadBars(std::size_t byteCount, RhythmLevel level);
    void Show(const BarReading& bar, StaveReading& stave);

    MessageRecorder m_Messages;
    TabText m_Text;
    TabAnalysis m_Analysis;
    std::vector<StaveReading> m_Staves;  // as in the analysis
    LineRoles m_Roles;
    std::size_t m_ReadStaveCount = 0;
    int m_BarCount = 0;
    int m_NoteCount = 0;
    bool m_HasIndicatedRhythms = false;
    bool m_HasSpacedRhythms = false;
};

}  // namespace tabulorix
