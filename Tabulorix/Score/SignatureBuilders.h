// Builders of the items that tell how a stave is read: signatures, clefs, transpositions and stave
// type changes. All go into the "Items" list of a bar.

#pragma once

#include <optional>
#include <string_view>

#include "TreeNode.h"

namespace tabulorix {

// Symbol numbers of the time signatures that are drawn as a sign; 0 draws digits.
constexpr int kSymbolCommonTime = 28;
constexpr int kSymbolCutTime = 29;

// TimeSignature: basics, Top, LogUnitLength (exponent of the unit in ticks), BeatGroups, SymbolNum,
// TimeSignatureString, and Flags when given. `bottom` is a power of two from 1 to 1024.
TreeNode& AddTimeSignature(TreeNode& items, int sr, int top, int bottom,
                           std::string_view beatGroups, int symbolNum, std::optional<int> flags);

// KeySignature: basics, Sharps, Flags.
TreeNode& AddKeySignature(TreeNode& items, int sr, int sharps, int flags);

// What kind of clef a clef item is; the other kind changes its flags.
enum class ClefKind { Ordinary, Flagged };

constexpr int kClefTab = 6;
constexpr int kClefNull = 21;

// The style name of a clef index, empty outside 0 ... 22.
std::string_view GetClefStyle(int clefIndex) noexcept;

// Clef: basics, Flags, ClefStyle.
TreeNode& AddClef(TreeNode& items, int sr, ClefKind clefKind, int clefIndex);

// Transposition: basics at the bar's start, PartDiat, PartChrom2.
TreeNode& AddTransposition(TreeNode& items, int partDiat, int partChrom2);

// StaveTypeChange: basics at the bar's start, StaveType.
TreeNode& AddStaveTypeChange(TreeNode& items, std::string_view staveTypeName);

}  // namespace tabulorix
