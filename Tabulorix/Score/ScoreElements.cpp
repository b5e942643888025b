#include "ScoreElements.h"

#include <array>

namespace tabulorix {

namespace {

constexpr std::array<std::string_view, 9> kListLabels = {"Bars",        "Items",    "Staves",
                                                         "Barlines",    "Notes",    "Instruments",
                                                         "BarSpacings", "Brackets", "MidPoints"};

}  // namespace

TreeNode& FindOrAddElement(TreeNode& parent, std::string_view label, std::string_view type) {
    TreeNode* element = label.empty() ? nullptr : parent.FindChild(label);
    if (element == nullptr) {
        element = parent.AppendChild(std::make_unique<TreeNode>(label));
    }
    if (!type.empty()) {
        SetTextField(*element, "Type", type);
    }
    return *element;
}

void SetTextField(TreeNode& node, std::string_view label, std::string_view text) {
    if (TreeNode* child = node.FindChild(label)) {
        child->SetText(text);
    } else {
        AddTextField(node, label, text);
    }
}

void SetIntField(TreeNode& node, std::string_view label, int value) {
    if (TreeNode* child = node.FindChild(label)) {
        child->SetInt(value);
    } else {
        AddIntField(node, label, value);
    }
}

void AddTextField(TreeNode& node, std::string_view label, std::string_view text) {
    node.AppendChild(std::make_unique<TreeNode>(label, text));
}

void AddIntField(TreeNode& node, std::string_view label, int value) {
    node.AppendChild(std::make_unique<TreeNode>(label, value));
}

void AddBoolField(TreeNode& node, std::string_view label, bool value) {
    node.AppendChild(std::make_unique<TreeNode>(label, value));
}

std::string_view GetListLabel(ListKind kind) noexcept {
    const auto index = static_cast<std::size_t>(kind);
    return index < kListLabels.size() ? kListLabels[index] : std::string_view();
}

TreeNode& GetList(TreeNode& parent, ListKind kind) {
    return FindOrAddElement(parent, GetListLabel(kind), {});
}

void SetItemBasics(TreeNode& item, int sr, int voices, int dx, int dy) {
    AddIntField(item, "Sr", sr);
    AddIntField(item, "Voices", voices);
    AddIntField(item, "Dx", dx);
    AddIntField(item, "Dy", dy);
}

}  // namespace tabulorix
