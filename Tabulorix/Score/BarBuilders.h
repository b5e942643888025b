// Builders of bars and of the spacing entries that belong to them.

#pragma once

#include "TreeNode.h"

namespace tabulorix {

// Bar: MakesStaveVisible, HasStaveTypeChanges. Its "Items" list comes with its first item.
TreeNode& AddBar(TreeNode& bars, bool makesStaveVisible, bool hasStaveTypeChanges);

// BarSpacing: BarNum (the number of entries before this one), BarLength (ticks).
TreeNode& AddBarSpacing(TreeNode& barSpacings, int barLength);

}  // namespace tabulorix
