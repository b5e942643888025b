// Writes the notes and rests of one bar of the tab into bars of the score.

#pragma once

#include "BarMusic.h"
#include "TreeNode.h"

namespace tabulorix {

struct WrittenNotes {
    int m_BarCount = 0;   // score bars that were appended
    int m_NoteCount = 0;  // notes, each counted once however many tied parts it has
};

// Appends to `bars`, the list of the stave, the score bars that the events need: one as a rule,
// none when nothing has a length, several when the events run over the bar's length. `music` is
// final.
WrittenNotes WriteNotes(const TabText& text, const BarMusic& music, TreeNode& bars);

}  // namespace tabulorix
