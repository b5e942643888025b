// The written value of a length in ticks: "q" for a quarter, "q." dotted, "q~s" for a quarter tied
// to a sixteenth.

#pragma once

#include <string>

namespace tabulorix {

// The letters are w h q e s t x, from a whole note to a sixty-fourth; shorter ones are numbers (128
// for the hundred-and-twenty-eighth), longer ones whole notes ("2w"). It names the same parts, from
// the longest to the shortest, that the score ties together. Empty when `ticks` is not above 0.
std::string GetNoteValue(int ticks);

}  // namespace tabulorix
