// Section labels: "Intro", "Chorus 2 (x2)", "Riff A" and the like.

#pragma once

#include "TabStave.h"
#include "TabText.h"

namespace tabulorix {

// The labels of the whole text, line by line from the top and word by word within a line; of
// several with one span only the first. Both lists, with and without duplicates, go to the debug
// log.
Riffs FindRiffs(const TabText& text);

// Gives the labels of the nearest labelled line above each stave to the bars that their midpoints
// stand over; a later label replaces an earlier one. The bars point to the labels.
void AttachRiffs(const Riffs& riffs, const TabStaves& staves);

}  // namespace tabulorix
