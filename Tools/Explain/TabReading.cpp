#include "TabReading.h"

#include <algorithm>
#include <cstdint>

#include "BarReading.h"
#include "FretCharacters.h"

namespace tabulorix {

namespace {

constexpr int kMostStavesShownOfRun = 4;

// A run of a thousand lines takes so much.
constexpr std::int64_t kMostColumnsReadPerByte = 100;

void MarkColumns(std::vector<Mark>& marks, int start, int end, Mark mark) {
    std::fill(marks.begin() + start, marks.begin() + end, mark);
}

std::vector<Mark> MakeColumns(const TabStave& stave) {
    std::vector<Mark> columns(static_cast<std::size_t>(stave.m_Bars.back()->GetEndColumn()),
                              Mark::None);
    for (const auto& bar : stave.m_Bars) {
        if (bar->m_HasTab) {
            MarkColumns(columns, bar->m_StartColumn, bar->GetEndColumn(), Mark::Fret);
        }
    }
    for (const BarLine& barLine : stave.m_BarLines) {
        MarkColumns(columns, barLine.m_Column, barLine.GetColumnBehind(), Mark::BarLine);
    }
    return columns;
}

}  // namespace

std::vector<Mark> StaveReading::GetMarks(std::string_view characters) const {
    std::vector<Mark> marks(std::min(characters.size(), m_Columns.size()), Mark::None);
    for (std::size_t column = 0; column < marks.size(); ++column) {
        const Mark mark = m_Columns[column];
        const char c = characters[column];
        if (mark == Mark::BarLine) {
            marks[column] = mark;
        } else if (mark != Mark::None && IsFretCharacter(c)) {
            // A muted string has no note.
            marks[column] = IsDigit(c) ? mark : Mark::Lost;
        }
    }
    return marks;
}

TabReading::TabReading(std::string_view bytes, RhythmLevel level)
    : m_Text(bytes, m_Messages), m_Analysis(m_Text), m_Roles(m_Analysis) {
    ReadStaves();
    ReadBars(bytes.size(), level);
    m_Roles.Finish();
}

void TabReading::ReadStaves() {
    const TabStaves& staves = m_Analysis.GetStaves();
    int place = 0;
    for (std::size_t i = 0; i < staves.size(); ++i) {
        const TabStave& stave = *staves[i];
        place = stave.m_FirstLine < GetFirstLineAbove(staves, i) ? place + 1 : 0;
        StaveReading reading{&stave, place, place < kMostStavesShownOfRun, {}, {}, {}};
        if (place == 0) {
            reading.m_Columns = MakeColumns(stave);
        }
        m_Staves.push_back(std::move(reading));
    }
}

void TabReading::ReadBars(std::size_t byteCount, RhythmLevel level) {
    BarReader reader(m_Analysis, level);
    const std::int64_t mostColumns = kMostColumnsReadPerByte * static_cast<std::int64_t>(byteCount);
    std::int64_t columns = 0;
    auto stave = m_Staves.begin();
    for (const TabBar* tabBar : m_Analysis.GetTabBars()) {
        while (stave->m_Stave != tabBar->m_Stave) {
            ++stave;
        }
        if (stave->m_PlaceInRun > 0) {
            columns += std::int64_t{tabBar->m_LineCount} * (tabBar->m_Width + 1);
        }
        if (columns > mostColumns) {
            m_ReadStaveCount = static_cast<std::size_t>(stave - m_Staves.begin());
            return;
        }
        const BarReading bar = reader.ReadNext(*tabBar);
        m_BarCount += bar.m_ScoreBarCount;
        m_NoteCount += bar.m_NoteCount;
        if (bar.m_AreRhythmsShown) {
            (bar.m_RhythmLine >= 0 ? m_HasIndicatedRhythms : m_HasSpacedRhythms) = true;
        }
        m_Roles.Add(bar);
        if (stave->m_IsShown) {
            Show(bar, *stave);
        }
    }
    m_ReadStaveCount = m_Staves.size();
}

void TabReading::Show(const BarReading& bar, StaveReading& stave) {
    m_Roles.MarkColumns(bar);
    stave.m_Numbers.insert(stave.m_Numbers.end(), bar.m_Numbers.begin(), bar.m_Numbers.end());
    stave.m_Values.insert(stave.m_Values.end(), bar.m_Values.begin(), bar.m_Values.end());
    if (stave.m_PlaceInRun == 0) {
        for (const ColumnSpan& lost : bar.m_LostFrets) {
            MarkColumns(stave.m_Columns, lost.m_Start, lost.m_End, Mark::Lost);
        }
    }
}

}  // namespace tabulorix
