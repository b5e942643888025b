// The three ways to give the events of a bar their positions and lengths, and the choice of one.

#pragma once

#include "BarMusic.h"
#include "RhythmLevel.h"

namespace tabulorix {

// Runs the strategy that fits the level and the bar, and notes whether its rhythms are shown. Needs
// FindRhythmIndication and PrepareEvents.
void AssignTimings(BarMusic& music, RhythmLevel level);

// From the bar's rhythm line, which must have been found. The bar becomes as long as the line says.
void AssignIndicatedTimings(BarMusic& music);

// From the columns in which the events stand.
void AssignSpacedTimings(BarMusic& music);

// An eighth for every event. The bar becomes as long as its events.
void AssignPlainTimings(BarMusic& music);

}  // namespace tabulorix
