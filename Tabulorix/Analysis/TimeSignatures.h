// Finds the time signatures of a text and gives every bar its own.

#pragma once

#include <vector>

#include "TabStave.h"
#include "TabText.h"

namespace tabulorix {

// The fractions on the lines above and between the staves, line by line from the top and from left
// to right within a line. Lines inside staves and below the last one are not searched.
TimeSignatureMarks FindTimeSignatures(const TabText& text, const TabStaves& staves);

// Gives every bar that holds tab its time signature and its length, and returns these bars stave by
// stave, from left to right. The length of all bars is that of the first mark, or a whole note
// without one; later marks change the signature only. The bars stay owned by their staves and point
// to the marks.
std::vector<TabBar*> AssignTimeSignatures(const TabStaves& staves, const TimeSignatureMarks& marks);

}  // namespace tabulorix
