#include "StaveBuilders.h"

#include "ScoreElements.h"
#include "TextBuilders.h"

namespace tabulorix {

namespace {

void AddStaveIndices(TreeNode& node, const std::vector<int>& staveIndices) {
    for (const int index : staveIndices) {
        AddIntField(node, "StaveIndex", index);
    }
}

}  // namespace

TreeNode& AddStave(TreeNode& staves, bool small) {
    TreeNode& stave = FindOrAddElement(staves, {}, "Stave");
    AddBoolField(stave, "Small", small);
    return stave;
}

TreeNode& AddStaveMidiData(TreeNode& stave, int program, int channel, int bank, int midiFlags) {
    TreeNode& data = FindOrAddElement(stave, "StaveMIDIData", "MIDIData");
    AddIntField(data, "Program", program);
    AddIntField(data, "Channel", channel);
    AddIntField(data, "Bank", bank);
    AddIntField(data, "MIDIflags", midiFlags);
    return data;
}

TreeNode& AddBarline(TreeNode& barlines, const std::vector<int>& staveIndices) {
    TreeNode& barline = FindOrAddElement(barlines, {}, "Barline");
    AddStaveIndices(barline, staveIndices);
    return barline;
}

TreeNode& AddInstrument(TreeNode& instruments, const InstrumentDetails& details) {
    TreeNode& instrument = FindOrAddElement(instruments, {}, "Instrument");
    AddStyledString(instrument, "FullName", details.m_FullName, kTextStyleInstrumentNames);
    AddStyledString(instrument, "ShortName", details.m_ShortName, kTextStyleInstrumentNames);
    AddTextField(instrument, "Group", details.m_Group);
    AddIntField(instrument, "PartClef", details.m_PartClef);
    AddIntField(instrument, "FullNameOffsetX", details.m_Offsets.m_FullNameX);
    AddIntField(instrument, "FullNameOffsetY", details.m_Offsets.m_FullNameY);
    AddIntField(instrument, "ShortNameOffsetX", details.m_Offsets.m_ShortNameX);
    AddIntField(instrument, "ShortNameOffsetY", details.m_Offsets.m_ShortNameY);
    AddStaveIndices(instrument, details.m_StaveIndices);
    return instrument;
}

TreeNode& AddDefaultInstrument(TreeNode& instruments, std::string_view defaultName,
                               const InstrumentDetails& details) {
    TreeNode& instrument = AddInstrument(instruments, details);
    AddTextField(instrument, "DefaultInstrumentName", defaultName);
    return instrument;
}

}  // namespace tabulorix
