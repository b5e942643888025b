// Whether all that an analysis found lies where its text can have it.

#pragma once

#include "TabAnalysis.h"

namespace tabulorix {

void CheckAnalysis(const TabAnalysis& analysis);

// The lines of the largest stave; 0 without staves.
int GetMostStrings(const TabAnalysis& analysis);

}  // namespace tabulorix
