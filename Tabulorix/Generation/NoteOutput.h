// Writes the notes and rests of one bar of the tab into bars of the score.

#pragma once

#include <vector>

#include "BarMusic.h"
#include "DurationWriter.h"
#include "TreeNode.h"

namespace tabulorix {

struct WrittenNotes {
    int m_BarCount = 0;   // score bars that were appended
    int m_NoteCount = 0;  // notes, each counted once however many tied parts it has
};

// The notes and rests of each score bar that the events need, in the order of time within a bar.
// `music` is final; the durations point to its chords.
std::vector<std::vector<Duration>> CollectDurations(const TabText& text, const BarMusic& music);

// Appends to `bars`, the list of the stave, the score bars that the events need: one as a rule,
// none when nothing has a length, several when the events run over the bar's length. `music` is
// final.
WrittenNotes WriteNotes(const TabText& text, const BarMusic& music, TreeNode& bars);

}  // namespace tabulorix
