#include "SignatureBuilders.h"

#include <array>

#include "ScoreElements.h"
#include "Ticks.h"

namespace tabulorix {

namespace {

constexpr int kFlagsOfFlaggedClef = 5;

constexpr std::array<std::string_view, 23> kClefStyles = {"Treble",
                                                          "Alto",
                                                          "Tenor",
                                                          "Bass",
                                                          "Percussion",
                                                          "Percussion 2",
                                                          "Tab",
                                                          "Treble up 15",
                                                          "Treble up 8",
                                                          "Treble down 8",
                                                          "Treble (down 8)",
                                                          "Treble down 8 (old)",
                                                          "French violin",
                                                          "Soprano",
                                                          "Mezzo-soprano",
                                                          "Tenor down 8",
                                                          "Baritone C",
                                                          "Bass up 8",
                                                          "Bass down 8",
                                                          "Bass up 15",
                                                          "Baritone F",
                                                          "Null",
                                                          "Small tab"};

// "4\n\4", with the three characters backslash, n, backslash between the digits.
STR GetTimeSignatureString(int top, int bottom, int symbolNum) {
    switch (symbolNum) {
        case kSymbolCommonTime:
            return "c";
        case kSymbolCutTime:
            return "C";
        default:
            return STR::FromInt(top) + "\\n\\" + STR::FromInt(bottom);
    }
}

}  // namespace

TreeNode& AddTimeSignature(TreeNode& items, int sr, int top, int bottom,
                           std::string_view beatGroups, int symbolNum, std::optional<int> flags) {
    TreeNode& item = FindOrAddElement(items, {}, "TimeSignature");
    SetItemBasics(item, sr, kAllVoices);
    AddIntField(item, "Top", top);
    AddIntField(item, "LogUnitLength", GetUnitExponent(bottom));
    AddTextField(item, "BeatGroups", beatGroups);
    AddIntField(item, "SymbolNum", symbolNum);
    AddTextField(item, "TimeSignatureString", GetTimeSignatureString(top, bottom, symbolNum));
    if (flags) {
        AddIntField(item, "Flags", *flags);
    }
    return item;
}

TreeNode& AddKeySignature(TreeNode& items, int sr, int sharps, int flags) {
    TreeNode& item = FindOrAddElement(items, {}, "KeySignature");
    SetItemBasics(item, sr, kAllVoices);
    AddIntField(item, "Sharps", sharps);
    AddIntField(item, "Flags", flags);
    return item;
}

std::string_view GetClefStyle(int clefIndex) noexcept {
    const auto index = static_cast<std::size_t>(clefIndex);
    return index < kClefStyles.size() ? kClefStyles[index] : std::string_view();
}

TreeNode& AddClef(TreeNode& items, int sr, ClefKind clefKind, int clefIndex) {
    TreeNode& item = FindOrAddElement(items, {}, "Clef");
    SetItemBasics(item, sr, kAllVoices);
    AddIntField(item, "Flags", clefKind == ClefKind::Flagged ? kFlagsOfFlaggedClef : 0);
    AddTextField(item, "ClefStyle", GetClefStyle(clefIndex));
    return item;
}

TreeNode& AddTransposition(TreeNode& items, int partDiat, int partChrom2) {
    TreeNode& item = FindOrAddElement(items, {}, "Transposition");
    SetItemBasics(item, kSrBarStart, kAllVoices);
    AddIntField(item, "PartDiat", partDiat);
    AddIntField(item, "PartChrom2", partChrom2);
    return item;
}

TreeNode& AddStaveTypeChange(TreeNode& items, std::string_view staveTypeName) {
    TreeNode& item = FindOrAddElement(items, {}, "StaveTypeChange");
    SetItemBasics(item, kSrBarStart, kAllVoices);
    AddTextField(item, "StaveType", staveTypeName);
    return item;
}

}  // namespace tabulorix
