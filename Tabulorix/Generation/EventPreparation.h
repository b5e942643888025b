// Finds the columns of a bar at which something is played.

#pragma once

#include "BarMusic.h"

namespace tabulorix {

// Fills the bar's events: one for each column in which a fret starts on some string, as wide as the
// widest fret there; then lets a two-column event and one that starts in its second column be one,
// since such frets were written right-aligned. Call once, on a bar without events.
void PrepareEvents(const TabText& text, BarMusic& music);

}  // namespace tabulorix
