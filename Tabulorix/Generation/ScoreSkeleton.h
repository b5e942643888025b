// What stands in a score before its first note: the instrument, its stave and their settings.

#pragma once

#include <string_view>
#include <vector>

#include "TreeNode.h"

namespace tabulorix {

// The stave type names for a tuning that the template has no stave type for.
constexpr std::string_view kStaveTypeWithRhythms = "Standard guitar";
constexpr std::string_view kStaveTypeWithoutRhythms = "Standard guitar (no rhythms)";

// The instrument that plays the tab.
enum class TabInstrument { Guitar, Bass };

// Appends the instrument, its barline and its stave to the score's music. The stave has one bar,
// bar 0, that holds its signatures and clef only; the bars of the music follow it. Returns the
// stave.
TreeNode& AddSkeleton(TreeNode& music, TabInstrument instrument);

// Gives the stave a type with this tuning (Chrom2, bottom string first) from its bar 0 on: one of
// the document's own, or a new one when none fits.
void SetStaveType(TreeNode& document, TreeNode& stave, const std::vector<int>& tuning,
                  bool showRhythms);

}  // namespace tabulorix
