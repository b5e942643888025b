// Reads chord names from the columns of one bar on one line of text.

#pragma once

#include <string_view>
#include <vector>

#include "Chord.h"

namespace tabulorix {

// The chords of `columns`, the bar's part of the line, from left to right.
std::vector<Chord> ReadChords(std::string_view columns);

}  // namespace tabulorix
