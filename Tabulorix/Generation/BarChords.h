// The chord symbols of one bar: which line they are taken from, and which events they belong to.

#pragma once

#include "BarMusic.h"

namespace tabulorix {

// Fills the bar's chord list from the line directly above its stave or the one above that,
// whichever holds more chords; the nearer one on a tie. The bar's rhythm line is left out. Needs
// FindRhythmIndication.
void FindChords(const TabText& text, BarMusic& music);

// Gives each chord to the event nearest to its centre. Call when the events are final.
void AttachChords(BarMusic& music);

}  // namespace tabulorix
