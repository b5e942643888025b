// The stave types of a score: which one fits a tuning, and how to add one that does.

#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "STR.h"
#include "TreeNode.h"

namespace tabulorix {

// What a stave type is for, as its "Category" says.
enum class StaveCategory { Normal = 0, Percussion = 1, Tab = 2 };

// The measures of a guitar tab stave, in the host's units.
constexpr int kTabStaveLineSeparation = 48;
constexpr int kTabBarlineDy = 120;

// The name of the first stave type of the category with exactly these pitches (Chrom2, top line
// first) that shows rhythms or not, as wanted. Nothing when the document has none.
std::optional<STR> FindStaveType(TreeNode& document, StaveCategory category,
                                 const std::vector<int>& pitches, bool showRhythms);

struct TabStaveType {
    std::string_view m_Name;
    int m_StaveLineSeparation = kTabStaveLineSeparation;
    int m_BarlineDy = kTabBarlineDy;
    std::vector<int> m_Pitches;  // Chrom2, top line first; one a stave line
    bool m_ShowRhythms = true;
};

// Appends a tab stave type that shows frets as numbers, so that FindStaveType finds it again: Name,
// StaveType, StaveLineSeparation, BarlineDy, Pitches, StaveLines, Category, AsNumbers, ShowRhythms.
// False when the document has no stave types.
bool AddStaveType(TreeNode& document, const TabStaveType& type);

}  // namespace tabulorix
