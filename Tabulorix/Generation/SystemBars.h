// The bars of the system stave: spacing, section labels and time signatures.

#pragma once

#include <vector>

#include "TabAnalysis.h"
#include "TreeNode.h"

namespace tabulorix {

// One bar of the score and what it was made from.
struct ScoreBar {
    const TabBar* m_TabBar;
    int m_Length;      // ticks
    bool m_HasChords;  // its tab bar carries chord names
};

// Appends a bar to the system stave and an entry to the bar spacings for every score bar, in order.
// Bar 0 stands in both already.
void AddSystemBars(const TabText& text, const std::vector<ScoreBar>& scoreBars, TreeNode& music);

}  // namespace tabulorix
