// The tuning of a stave, from the string names written at its left edge.

#pragma once

#include <vector>

#include "TabStave.h"
#include "TabText.h"

namespace tabulorix {

// One Chrom2 pitch a line, bottom line first. Without a column of string names before the dashes it
// is the standard tuning of a bass (exactly four lines) or a guitar.
std::vector<int> FindTuning(const TabText& text, const TabStave& stave);

// A letter that can name a string: A to H in either case.
bool IsStringName(char c) noexcept;

}  // namespace tabulorix
