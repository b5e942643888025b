// Writes one note, chord or rest as note-rests of lengths that have a sign in notation.

#pragma once

#include <vector>

#include "Chord.h"
#include "EventNotes.h"
#include "TreeNode.h"

namespace tabulorix {

struct Duration {
    int m_Offset = 0;                // ticks from the start of its score bar
    int m_Length = 0;                // ticks
    std::vector<ChordNote> m_Notes;  // lowest first; none for a rest
    const Chord* m_Chord = nullptr;  // the chord symbol above it, or null
    int m_Column = -1;               // of its first event in the tab bar; -1 fills a gap
};

// Appends the duration to the bar as a chain of slices, each the largest power of two ticks that
// still fits; all but the last slice are tied to the next. The chord symbol stands behind the
// first.
void WriteDuration(TreeNode& bar, const Duration& duration);

}  // namespace tabulorix
