// Builders of notes and rests.

#pragma once

#include "TreeNode.h"

namespace tabulorix {

// NoteRest: basics, Durn (exponent of the length in ticks: 8 for a quarter), Trem, Artic, Flags. It
// goes into the "Items" list of a bar; without notes it is a rest. `sr` is in ticks from the bar's
// start.
TreeNode& AddNoteRest(TreeNode& items, int sr, int voices, int durn, int trem, int artic,
                      int flags);

// Note: Diat, Chrom2, Acc, StringNum (0 for the bottom line), Flags. It goes into the "Notes" list
// of a note-rest.
TreeNode& AddNote(TreeNode& notes, int diat, int chrom2, int acc, int stringNum, int flags);

}  // namespace tabulorix
