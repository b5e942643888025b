// Builders of texts.

#pragma once

#include <string_view>

#include "TreeNode.h"

namespace tabulorix {

// The text styles that the importer writes; the template has them.
constexpr std::string_view kTextStyleTempo = "Tempo";
constexpr std::string_view kTextStyleChordSymbol = "Chord symbol";
constexpr std::string_view kTextStyleInstrumentNames = "Instrument names";

// The system position of a text that belongs to the bar itself, before its first item.
constexpr int kSrBeforeBar = -1;

// StyledString, under the given label: Text, TextStyle.
TreeNode& AddStyledString(TreeNode& parent, std::string_view label, std::string_view text,
                          std::string_view textStyle);

// Text: basics, a StyledString, DrawAtStartOfSystem. It goes into the "Items" list of a bar.
TreeNode& AddText(TreeNode& items, int sr, std::string_view text, std::string_view textStyle,
                  bool drawAtStartOfSystem);

// SystemTextItem: basics, a StyledString, YPositions (one visible YPosition at `y`). It goes into
// the "Items" list of a bar of the system stave.
TreeNode& AddSystemTextItem(TreeNode& items, int sr, std::string_view text,
                            std::string_view textStyle, int y);

}  // namespace tabulorix
