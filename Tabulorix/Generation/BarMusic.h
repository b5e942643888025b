// What the generation stage works out for one bar of the tab, from the columns in which something
// is played to its notes' positions and lengths.
//
// Columns are relative to the bar's first column; times are ticks (Ticks.h). The stages that
// fill it stand in BarMusicReading, in their order.

#pragma once

#include <map>
#include <memory>
#include <vector>

#include "Chord.h"
#include "Rhythms.h"
#include "TabAnalysis.h"

namespace tabulorix {

// Everything that is played at one column.
struct NoteEvent {
    int m_Column;
    int m_Width = 0;        // columns that the fret text occupies
    int m_StartOffset = 0;  // from the column to the first one read for frets: 0 or -1
    int m_Position = 0;     // from the bar's start
    int m_Length = 0;
    bool m_IsFixedWidth = false;     // the width must not be widened
    bool m_IsTied = false;           // so marked in the rhythm line
    const Chord* m_Chord = nullptr;  // the chord symbol above it, or null

    int GetFirstColumnRead() const noexcept { return m_Column + m_StartOffset; }
    int GetEndColumn() const noexcept { return m_Column + m_Width; }
};

// By column.
using NoteEvents = std::map<int, NoteEvent>;

struct BarMusic {
    explicit BarMusic(const TabBar& bar) : m_Bar(bar), m_Length(bar.m_BarLength) {}

    const TabBar& m_Bar;
    // That of the time signature at first; a rhythm strategy may change it.
    int m_Length;
    NoteEvents m_Events;
    std::unique_ptr<Rhythms> m_Rhythms;  // null: no rhythm line was found
    int m_RhythmLine = -1;               // the text line that it was found on
    bool m_AreRhythmsShown = false;
    std::vector<Chord> m_Chords;  // the events point to these
    int m_ChordLine = -1;         // the text line that they were read from
};

}  // namespace tabulorix
