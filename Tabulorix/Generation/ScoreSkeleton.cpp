#include "ScoreSkeleton.h"

#include <optional>

#include "BarBuilders.h"
#include "ScoreElements.h"
#include "SignatureBuilders.h"
#include "StaveBuilders.h"
#include "StaveTypes.h"

namespace tabulorix {

namespace {

struct InstrumentNames {
    std::string_view m_DefaultName;
    std::string_view m_FullName;
    std::string_view m_ShortName;
    int m_Program;  // General MIDI, 0-based
};

constexpr InstrumentNames kGuitar = {"Guitar", "Guitar", "Gtr.", 25};
constexpr InstrumentNames kBass = {"Bass guitar", "Bass Guitar", "Bass", 33};
constexpr std::string_view kBracketGroup = "GuitarBracket";

constexpr int kStaveIndex = 0;
constexpr int kHostsChoice = -1;
constexpr int kSignatureFlags = 1;

void AddInstrumentOfTab(TreeNode& music, const InstrumentNames& names) {
    InstrumentDetails details;
    details.m_FullName = names.m_FullName;
    details.m_ShortName = names.m_ShortName;
    details.m_Group = kBracketGroup;
    details.m_PartClef = kClefNull;
    details.m_StaveIndices = {kStaveIndex};
    AddDefaultInstrument(GetList(music, ListKind::Instruments), names.m_DefaultName, details);
}

// Bar 0 has a spacing entry of its own in the template, which needs a length like all others.
void CompleteFirstBarSpacing(TreeNode& music) {
    TreeNode* spacings = music.FindChild(GetListLabel(ListKind::BarSpacings));
    TreeNode* first = spacings == nullptr ? nullptr : spacings->GetChild(0);
    if (first != nullptr && first->FindChild("BarLength") == nullptr) {
        AddIntField(*first, "BarLength", 0);
    }
}

void AddFirstBar(TreeNode& stave) {
    TreeNode& bar = AddBar(GetList(stave, ListKind::Bars), false, false);
    TreeNode& items = GetList(bar, ListKind::Items);
    AddKeySignature(items, 0, 0, kSignatureFlags);
    AddTransposition(items, 0, 0);
    AddClef(items, kSrBarStart, ClefKind::Ordinary, kClefTab);
}

}  // namespace

TreeNode& AddSkeleton(TreeNode& music, TabInstrument instrument) {
    const InstrumentNames& names = instrument == TabInstrument::Bass ? kBass : kGuitar;
    // The host beams everything afresh on loading, so no beams are written.
    AddBoolField(music, "ReBeamAll", true);
    AddInstrumentOfTab(music, names);
    AddBarline(GetList(music, ListKind::Barlines), {kStaveIndex});
    CompleteFirstBarSpacing(music);
    TreeNode& stave = AddStave(GetList(music, ListKind::Staves), false);
    AddStaveMidiData(stave, names.m_Program, 0, kHostsChoice, kHostsChoice);
    AddFirstBar(stave);
    return stave;
}

void SetStaveType(TreeNode& document, TreeNode& stave, const std::vector<int>& tuning,
                  bool showRhythms) {
    TabStaveType type;
    type.m_Name = showRhythms ? kStaveTypeWithRhythms : kStaveTypeWithoutRhythms;
    type.m_Pitches.assign(tuning.rbegin(), tuning.rend());
    type.m_ShowRhythms = showRhythms;
    std::optional<STR> name =
        FindStaveType(document, StaveCategory::Tab, type.m_Pitches, showRhythms);
    if (!name) {
        if (!AddStaveType(document, type)) {
            return;
        }
        name = STR(type.m_Name);
    }
    TreeNode& firstBar = *GetList(stave, ListKind::Bars).GetChild(0);
    AddStaveTypeChange(GetList(firstBar, ListKind::Items), *name);
    SetIntField(firstBar, "HasStaveTypeChanges", 1);
}

}  // namespace tabulorix
