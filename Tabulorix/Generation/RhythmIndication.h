// Finds the line of text that tells the rhythm of a bar.

#pragma once

#include "BarMusic.h"

namespace tabulorix {

// Looks at the two lines above and the two below the bar's stave, nearest first, leaving out those
// of other staves: first for note-value letters, then for beat counts. Sets the bar's rhythms and
// their line when there is one.
void FindRhythmIndication(const TabAnalysis& analysis, BarMusic& music);

}  // namespace tabulorix
