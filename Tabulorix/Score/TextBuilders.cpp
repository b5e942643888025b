#include "TextBuilders.h"

#include "ScoreElements.h"

namespace tabulorix {

TreeNode& AddStyledString(TreeNode& parent, std::string_view label, std::string_view text,
                          std::string_view textStyle) {
    TreeNode& styled = FindOrAddElement(parent, label, "StyledString");
    AddTextField(styled, "Text", text);
    AddTextField(styled, "TextStyle", textStyle);
    return styled;
}

TreeNode& AddText(TreeNode& items, int sr, std::string_view text, std::string_view textStyle,
                  bool drawAtStartOfSystem) {
    TreeNode& item = FindOrAddElement(items, {}, "Text");
    SetItemBasics(item, sr, kAllVoices);
    AddStyledString(item, "StyledString", text, textStyle);
    AddBoolField(item, "DrawAtStartOfSystem", drawAtStartOfSystem);
    return item;
}

TreeNode& AddSystemTextItem(TreeNode& items, int sr, std::string_view text,
                            std::string_view textStyle, int y) {
    TreeNode& item = FindOrAddElement(items, {}, "SystemTextItem");
    SetItemBasics(item, sr, kAllVoices);
    AddStyledString(item, "StyledString", text, textStyle);
    TreeNode& yPositions = FindOrAddElement(item, "YPositions", {});
    TreeNode& yPosition = FindOrAddElement(yPositions, {}, "YPosition");
    AddBoolField(yPosition, "Visible", true);
    AddIntField(yPosition, "Y", y);
    return item;
}

}  // namespace tabulorix
