// The ground that all score builders stand on: fields, lists and the basics of an item.
//
// Every object of a score is a node whose first child is "Type". Objects in a list have no label,
// objects in a fixed place have one. A builder appends its children in the order in which the host
// reads them, so the order of calls is part of the format. Builders do not validate their arguments
// and report nothing; only lack of memory throws.

#pragma once

#include <string_view>

#include "TreeNode.h"

namespace tabulorix {

// The lists of a score. A list is a labelled node whose children are the list's objects.
enum class ListKind {
    Bars,
    Items,
    Staves,
    Barlines,
    Notes,
    Instruments,
    BarSpacings,
    Brackets,
    MidPoints
};

// The rhythmic position of an item that stands at the start of its bar, before any notes.
constexpr int kSrBarStart = 32512;
// A bit mask of the voices that an item applies to.
constexpr int kFirstVoice = 1;
constexpr int kAllVoices = 15;

// The first child with this label, or a new one appended when there is none or the label is empty;
// its "Type" becomes `type` unless that is empty.
TreeNode& FindOrAddElement(TreeNode& parent, std::string_view label, std::string_view type);

// The first child with this label gets the value; without one a new child is appended.
void SetTextField(TreeNode& node, std::string_view label, std::string_view text);
void SetIntField(TreeNode& node, std::string_view label, int value);

// Always append a new child, also when one with that label exists.
void AddTextField(TreeNode& node, std::string_view label, std::string_view text);
void AddIntField(TreeNode& node, std::string_view label, int value);
void AddBoolField(TreeNode& node, std::string_view label, bool value);

// Empty for a kind outside the enumeration.
std::string_view GetListLabel(ListKind kind) noexcept;
// The parent's list of this kind; a new empty one is appended when it has none.
TreeNode& GetList(TreeNode& parent, ListKind kind);

// Appends what every item of a bar has behind its "Type": "Sr", the rhythmic position in the bar
// (ticks, or kSrBarStart), "Voices", and the offsets "Dx" and "Dy".
void SetItemBasics(TreeNode& item, int sr, int voices, int dx = 0, int dy = 0);

}  // namespace tabulorix
