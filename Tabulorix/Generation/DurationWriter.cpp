#include "DurationWriter.h"

#include <bit>

#include "Arithmetic.h"
#include "NoteBuilders.h"
#include "ScoreElements.h"
#include "TextBuilders.h"

namespace tabulorix {

namespace {

constexpr int kNoteRestFlags = 2;
constexpr int kTiedNoteFlags = 1;

void WriteSlice(TreeNode& items, int offset, int exponent, const std::vector<ChordNote>& notes,
                bool isTied) {
    TreeNode& noteRest = AddNoteRest(items, offset, kFirstVoice, exponent, 0, 0, kNoteRestFlags);
    if (notes.empty()) {
        return;
    }
    TreeNode& list = GetList(noteRest, ListKind::Notes);
    for (const ChordNote& note : notes) {
        AddNote(list, note.m_Diat, note.m_Chrom2, 0, note.m_String, isTied ? kTiedNoteFlags : 0);
    }
}

}  // namespace

void WriteDuration(TreeNode& bar, const Duration& duration) {
    TreeNode& items = GetList(bar, ListKind::Items);
    int offset = duration.m_Offset;
    for (auto rest = static_cast<unsigned>(duration.m_Length); rest > 0;) {
        const unsigned slice = std::bit_floor(rest);
        rest -= slice;
        WriteSlice(items, offset, std::countr_zero(slice), duration.m_Notes, rest > 0);
        if (duration.m_Chord != nullptr && offset == duration.m_Offset) {
            AddText(items, offset, GetChordText(*duration.m_Chord), kTextStyleChordSymbol, false);
        }
        offset = SaturatingAdd(offset, static_cast<int>(slice));
    }
}

}  // namespace tabulorix
