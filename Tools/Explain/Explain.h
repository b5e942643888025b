// Tells how a tab was read: the analysis and the music of every bar, for a person who wonders why
// the score is as it is.

#pragma once

#include <string_view>

#include "Explanation.h"
#include "RhythmLevel.h"

namespace tabulorix {

// `bytes` are those of the file. One that is no tab gives the lines that come nearest to it. The
// name is left empty.
Explanation Explain(std::string_view bytes, RhythmLevel level);

}  // namespace tabulorix
