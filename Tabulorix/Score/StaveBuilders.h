// Builders of staves, of the instruments that play them and of the barlines that join them.
//
// An instrument and a barline name their staves by index into the score's "Staves" list, one
// "StaveIndex" child a stave.

#pragma once

#include <string_view>
#include <vector>

#include "TreeNode.h"

namespace tabulorix {

// Stave: Small.
TreeNode& AddStave(TreeNode& staves, bool small);

// MIDIData, under "StaveMIDIData": Program (0-based General MIDI), Channel, Bank, MIDIflags. -1
// leaves a choice to the host.
TreeNode& AddStaveMidiData(TreeNode& stave, int program, int channel, int bank, int midiFlags);

// Barline: the stave indices.
TreeNode& AddBarline(TreeNode& barlines, const std::vector<int>& staveIndices);

struct NameOffsets {
    int m_FullNameX = 0;
    int m_FullNameY = 0;
    int m_ShortNameX = 0;
    int m_ShortNameY = 0;
};

struct InstrumentDetails {
    std::string_view m_FullName;
    std::string_view m_ShortName;
    std::string_view m_Group;  // the bracket group
    int m_PartClef = 0;        // a clef index
    NameOffsets m_Offsets;
    std::vector<int> m_StaveIndices;
};

// Instrument: FullName, ShortName, Group, PartClef, the four offsets, the stave indices.
TreeNode& AddInstrument(TreeNode& instruments, const InstrumentDetails& details);

// As AddInstrument, then DefaultInstrumentName: the host's instrument that this one stands for.
TreeNode& AddDefaultInstrument(TreeNode& instruments, std::string_view defaultName,
                               const InstrumentDetails& details);

}  // namespace tabulorix
