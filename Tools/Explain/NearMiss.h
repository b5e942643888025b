// What is missing where a file is no tab, or a tab has no stave.

#pragma once

#include <string_view>

#include "Explanation.h"
#include "LeftOutLines.h"
#include "TabRecognition.h"

namespace tabulorix {

// Of bytes that were not recognized as a tab: the reasons, and the lines that come nearest.
Explanation ExplainRefusal(std::string_view bytes, const TabRecognition& found);

// Appends why no stave was found to the summary.
void ExplainMissingStave(std::string_view bytes, const DashedRuns& runs, Explanation& explanation);

}  // namespace tabulorix
