// Decides which lines of a text are tab and groups them into staves.
//
// A line with two dashes is a candidate. A run of consecutive candidates is trimmed at both ends of
// lines that only look like tab; what is left of it, when it is four lines or more, becomes a
// stave, or one every six lines, each of which takes all the lines that remain.

#pragma once

#include <vector>

#include "TabRun.h"
#include "TabStave.h"
#include "TabText.h"

namespace tabulorix {

// What is left of a run must be this many lines to be a stave.
constexpr int kFewestStaveLines = 4;

struct FoundStaves {
    TabStaves m_Staves;           // top to bottom, with their bars and tunings
    std::vector<int> m_TabLines;  // the lines of the staves, ascending
};

// From the top; each is as long as it can be.
std::vector<LineRange> FindCandidateRuns(const TabText& text);

// Dropped lines and runs are reported as messages to the text's output, run by run from the top.
FoundStaves FindStaves(const TabText& text);

}  // namespace tabulorix
