// The stages through which the music of one bar goes. Whoever shows or checks how a bar was read
// calls these two as well, so that it is read as for the score.

#pragma once

#include "BarMusic.h"
#include "RhythmLevel.h"

namespace tabulorix {

// What stands in the text: the bar's rhythm line, its events, which have no time yet, and its
// chords. `bar` is one of the tab bars of the analysis, which must outlive the music.
BarMusic ReadBarMusic(const TabAnalysis& analysis, const TabBar& bar);

// Makes the music final: gives the events their time, which drops grace notes, and then their
// chords. Call once, on what ReadBarMusic gave.
void PlaceInTime(BarMusic& music, RhythmLevel level);

}  // namespace tabulorix
