#include "NoteBuilders.h"

#include "ScoreElements.h"

namespace tabulorix {

TreeNode& AddNoteRest(TreeNode& items, int sr, int voices, int durn, int trem, int artic,
                      int flags) {
    TreeNode& item = FindOrAddElement(items, {}, "NoteRest");
    SetItemBasics(item, sr, voices);
    AddIntField(item, "Durn", durn);
    AddIntField(item, "Trem", trem);
    AddIntField(item, "Artic", artic);
    AddIntField(item, "Flags", flags);
    return item;
}

TreeNode& AddNote(TreeNode& notes, int diat, int chrom2, int acc, int stringNum, int flags) {
    TreeNode& note = FindOrAddElement(notes, {}, "Note");
    AddIntField(note, "Diat", diat);
    AddIntField(note, "Chrom2", chrom2);
    AddIntField(note, "Acc", acc);
    AddIntField(note, "StringNum", stringNum);
    AddIntField(note, "Flags", flags);
    return note;
}

}  // namespace tabulorix
