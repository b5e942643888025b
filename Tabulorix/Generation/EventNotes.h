// The notes that are played at one column of a bar.

#pragma once

#include <vector>

#include "BarMusic.h"

namespace tabulorix {

struct ChordNote {
    int m_String;  // 0 for the bottom line
    int m_Chrom2;  // twice the MIDI note number
    int m_Diat;    // the diatonic step, seven to the octave
};

// The diatonic step of a pitch. Black keys are C sharp, E flat, F sharp, G sharp and B flat.
int GetDiatonicStep(int chrom2) noexcept;

// Appends the notes that the event's columns hold, bottom string first: one for each string with a
// digit among them.
void AppendNotes(const TabText& text, const TabBar& bar, const NoteEvent& event,
                 std::vector<ChordNote>& notes);

}  // namespace tabulorix
