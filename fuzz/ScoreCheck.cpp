#include "ScoreCheck.h"

#include <climits>

#include "FuzzTarget.h"
#include "ScoreElements.h"
#include "TreeComparison.h"
#include "TreeNodeReader.h"

namespace tabulorix {

namespace {

constexpr int kLongestDuration = 30;  // as a power of two ticks
constexpr int kTied = 1;

// None when there is no such list.
const TVAList<TreeNode*>& GetEntries(const TreeNode& parent, ListKind kind) {
    static const TreeNode s_Empty;
    const TreeNode* list = parent.FindChild(GetListLabel(kind));
    return (list == nullptr ? s_Empty : *list).GetChildren();
}

bool IsWithin(const TreeNode& node, std::string_view label, int least, int most) {
    const int value = node.GetChildInt(label, least - 1);
    return least <= value && value <= most;
}

// Returns how many notes end here, which are all that are not tied to the next.
int CheckNotes(const TreeNode& noteRest, int stringCount) {
    int ending = 0;
    for (const TreeNode* note : GetEntries(noteRest, ListKind::Notes)) {
        Require(IsWithin(*note, "StringNum", 0, stringCount - 1), "a note is on a string");
        Require(IsWithin(*note, "Chrom2", 0, INT_MAX) && IsWithin(*note, "Diat", 0, INT_MAX),
                "a note has a pitch");
        ending += note->GetChildInt("Flags", 0) == kTied ? 0 : 1;
    }
    return ending;
}

int CheckBar(const TreeNode& bar, int stringCount) {
    int noteCount = 0;
    for (const TreeNode* item : GetEntries(bar, ListKind::Items)) {
        Require(IsWithin(*item, "Sr", 0, INT_MAX), "an item stands in its bar");
        if (item->GetChildText("Type", {}) == "NoteRest") {
            Require(IsWithin(*item, "Durn", 0, kLongestDuration), "a duration is a power of two");
            noteCount += CheckNotes(*item, stringCount);
        }
    }
    return noteCount;
}

void CheckSpacings(const TreeNode& music) {
    int index = 0;
    for (const TreeNode* spacing : GetEntries(music, ListKind::BarSpacings)) {
        Require(spacing->GetChildInt("BarNum", -1) == index, "bars are numbered from 0 on");
        Require(IsWithin(*spacing, "BarLength", 0, INT_MAX), "a bar has a length");
        ++index;
    }
}

}  // namespace

void CheckScore(const TreeNode& score, int stringCount, const ConversionSummary& summary) {
    const TreeNode& music = *score.FindChild("Music");
    const auto& staves = GetEntries(music, ListKind::Staves);
    Require(staves.GetCount() == 1, "a score has one stave");
    const auto& bars = GetEntries(*staves[0], ListKind::Bars);
    const auto& systemBars = GetEntries(*music.FindChild("SystemStave"), ListKind::Bars);
    const int barCount = summary.m_BarCount + 1;
    Require(bars.GetCount() == barCount && systemBars.GetCount() == barCount &&
                GetEntries(music, ListKind::BarSpacings).GetCount() == barCount,
            "all lists have as many bars");
    int noteCount = 0;
    for (const TreeNode* bar : bars) {
        noteCount += CheckBar(*bar, stringCount);
    }
    Require(noteCount == summary.m_NoteCount, "notes are counted once each");
    CheckSpacings(music);
}

void CheckReadsBack(const TreeNode& score) {
    STR text;
    score.WriteText(text, 0);
    Require(AreEqual(score, *TreeNodeReader(text).Read()), "a score reads back");
}

}  // namespace tabulorix
