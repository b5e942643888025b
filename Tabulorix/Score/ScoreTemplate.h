// The blank score that every import starts from, and the way into a score document.
//
//     VifFileVersion "10100004"
//     {
//         Type "Score"
//         ScoreOptions { ... }
//         PrintSettings { ... }
//         MajorVersion "1"
//         Music { TextStyles, StaveTypes, BarSpacings, SystemStave, Staves, Instruments, ... }
//     }

#pragma once

#include <memory>
#include <string_view>

#include "TreeNode.h"

namespace tabulorix {

// A fresh copy from the program's resources; null when they hold no template. Throws what
// TreeNodeReader throws when the template is damaged.
std::unique_ptr<TreeNode> CreateBlankScore();
// The same from memory: UTF-16 text with a byte-order mark, or 8-bit text.
std::unique_ptr<TreeNode> ReadBlankScore(std::string_view bytes);

// The part of the document that holds the music, where all builders work; null when it has none.
TreeNode* GetMusic(TreeNode& document) noexcept;

}  // namespace tabulorix
