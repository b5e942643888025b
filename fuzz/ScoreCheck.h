// Whether a score has what its conversion says, and every number in it is one that the host takes.

#pragma once

#include "Converter.h"

namespace tabulorix {

// `stringCount` is the number of strings of the largest stave of the tab.
void CheckScore(const TreeNode& score, int stringCount, const ConversionSummary& summary);

// Whether the score's text reads as the same tree.
void CheckReadsBack(const TreeNode& score);

}  // namespace tabulorix
