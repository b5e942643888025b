// Divides the columns of a stave into bars.

#pragma once

#include "TabStave.h"
#include "TabText.h"

namespace tabulorix {

// Fills the stave's bar lines and bars. A bar column holds the same character on every line, any
// but a fret character or a dash; two of them side by side are one double bar line. Needs the
// stave's lines; call once.
void FindBars(const TabText& text, TabStave& stave);

}  // namespace tabulorix
