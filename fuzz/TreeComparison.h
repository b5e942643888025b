// Comparing trees of any depth.

#pragma once

#include "TreeNode.h"

namespace tabulorix {

// Whether both have the same labels, texts and children all the way down.
bool AreEqual(const TreeNode& left, const TreeNode& right);

// Whether the tree's written form means this tree. It does not when a node without children stands
// before one that could be the rest of it:
//
//     A {} "1" { B }      is written as       A "1" { B }
//
// nor when a node below the root has nothing that could be written.
bool IsWrittenAsItIs(const TreeNode& root);

}  // namespace tabulorix
