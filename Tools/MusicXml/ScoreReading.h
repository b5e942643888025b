// What a finished score document holds, as plain records: the instrument, its tab stave and the
// bars with their notes.
//
// Lengths and positions are ticks (Ticks.h). Texts belong to the document and are valid as long
// as it is.

#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "Ticks.h"
#include "TreeNode.h"

namespace tabulorix {

struct NoteReading {
    int m_Pitch;   // MIDI note number; absurd frets lead beyond 127
    int m_Step;    // diatonic steps from the C of MIDI note 0
    int m_String;  // 0 for the bottom line; the stave need not have it
};

// The notes that begin together, or a rest.
struct EventReading {
    int m_Start = 0;     // from the bar's start; not before the end of the event before it
    int m_Exponent = 0;  // of the length: 1 << m_Exponent ticks
    bool m_IsTiedToNext = false;
    bool m_IsTiedFromPrevious = false;
    std::string_view m_Chord;          // a chord symbol to show here; empty for none
    std::vector<NoteReading> m_Notes;  // empty for a rest

    int GetEnd() const noexcept;
};

struct TimeReading {
    int m_Top = 4;
    int m_Bottom = 4;

    int GetLength() const noexcept { return m_Top * (kWholeNoteTicks / m_Bottom); }
};

struct MeasureReading {
    // At least to the end of the last event; 0 for an empty bar of a length that nobody knows.
    int m_Length = 0;
    std::optional<TimeReading> m_NewTime;  // where it changes
    std::vector<std::string_view> m_Labels;
    std::vector<EventReading> m_Events;
};

struct ScoreReading {
    std::string_view m_FullName;
    std::string_view m_ShortName;
    int m_MidiChannel = 0;  // 0-based
    int m_MidiProgram = 0;  // 0-based General MIDI
    int m_Sharps = 0;       // of the key signature; flats are negative
    // The pitches of the open strings, bottom line first; Chrom2, twice the MIDI note number.
    std::vector<int> m_Tuning;
    bool m_ShowsRhythms = true;
    std::vector<MeasureReading> m_Measures;
};

// Whatever is missing in the document keeps its default.
ScoreReading ReadScore(const TreeNode& document);

}  // namespace tabulorix
