#include "BarBuilders.h"

#include "ScoreElements.h"

namespace tabulorix {

TreeNode& AddBar(TreeNode& bars, bool makesStaveVisible, bool hasStaveTypeChanges) {
    TreeNode& bar = FindOrAddElement(bars, {}, "Bar");
    AddIntField(bar, "MakesStaveVisible", makesStaveVisible ? 1 : 0);
    AddIntField(bar, "HasStaveTypeChanges", hasStaveTypeChanges ? 1 : 0);
    return bar;
}

TreeNode& AddBarSpacing(TreeNode& barSpacings, int barLength) {
    const int barNumber = barSpacings.GetChildCount();
    TreeNode& spacing = FindOrAddElement(barSpacings, {}, "BarSpacing");
    AddIntField(spacing, "BarNum", barNumber);
    AddIntField(spacing, "BarLength", barLength);
    return spacing;
}

}  // namespace tabulorix
