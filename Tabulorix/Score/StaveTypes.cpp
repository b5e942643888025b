#include "StaveTypes.h"

#include "ScoreElements.h"
#include "ScoreTemplate.h"

namespace tabulorix {

namespace {

TreeNode* FindStaveTypes(TreeNode& document) {
    TreeNode* music = GetMusic(document);
    return music == nullptr ? nullptr : music->FindChild("StaveTypes");
}

bool HasPitches(const TreeNode& type, const std::vector<int>& pitches) {
    const TreeNode* list = type.FindChild("Pitches");
    const int count = list == nullptr ? 0 : list->GetChildCount();
    if (static_cast<std::size_t>(count) != pitches.size()) {
        return false;
    }
    for (int i = 0; i < count; ++i) {
        if (list->GetChildIntAt(i) != pitches[static_cast<std::size_t>(i)]) {
            return false;
        }
    }
    return true;
}

}  // namespace

std::optional<STR> FindStaveType(TreeNode& document, StaveCategory category,
                                 const std::vector<int>& pitches, bool showRhythms) {
    const TreeNode* types = FindStaveTypes(document);
    if (types == nullptr) {
        return std::nullopt;
    }
    for (const TreeNode* type : types->GetChildren()) {
        if (type->GetChildInt("Category", 0) == static_cast<int>(category) &&
            HasPitches(*type, pitches) && type->GetChildBool("ShowRhythms", true) == showRhythms) {
            return STR(type->GetChildText("Name", {}));
        }
    }
    return std::nullopt;
}

bool AddStaveType(TreeNode& document, const TabStaveType& type) {
    TreeNode* types = FindStaveTypes(document);
    if (types == nullptr) {
        return false;
    }
    TreeNode& entry = FindOrAddElement(*types, {}, "StaveType");
    AddTextField(entry, "Name", type.m_Name);
    AddTextField(entry, "StaveType", "tab");
    AddIntField(entry, "StaveLineSeparation", type.m_StaveLineSeparation);
    AddIntField(entry, "BarlineDy", type.m_BarlineDy);
    TreeNode& pitches = FindOrAddElement(entry, "Pitches", {});
    for (const int pitch : type.m_Pitches) {
        AddIntField(pitches, {}, pitch);
    }
    AddIntField(entry, "StaveLines", static_cast<int>(type.m_Pitches.size()));
    AddIntField(entry, "Category", static_cast<int>(StaveCategory::Tab));
    AddBoolField(entry, "AsNumbers", true);
    AddBoolField(entry, "ShowRhythms", type.m_ShowRhythms);
    return true;
}

}  // namespace tabulorix
