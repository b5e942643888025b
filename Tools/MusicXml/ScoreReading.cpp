#include "ScoreReading.h"

#include <algorithm>

#include "Arithmetic.h"
#include "ScoreElements.h"
#include "TextBuilders.h"

namespace tabulorix {

namespace {

constexpr int kLargestExponent = 30;
constexpr int kFirstMusicBar = 1;  // bar 0 holds the signatures of the stave

// An empty node where there is none, so that a way through the document needs no checks.
const TreeNode& GetPart(const TreeNode& node, std::string_view label) {
    static const TreeNode kNothing;
    const TreeNode* child = node.FindChild(label);
    return child == nullptr ? kNothing : *child;
}

const TVAList<TreeNode*>& GetEntries(const TreeNode& node, ListKind kind) {
    return GetPart(node, GetListLabel(kind)).GetChildren();
}

const TreeNode& GetFirst(const TreeNode& node, ListKind kind) {
    static const TreeNode kNothing;
    const TreeNode* first = GetPart(node, GetListLabel(kind)).GetChild(0);
    return first == nullptr ? kNothing : *first;
}

bool IsOfType(const TreeNode& node, std::string_view type) {
    return node.GetChildText("Type", {}) == type;
}

std::string_view GetStyledText(const TreeNode& item, std::string_view label) {
    return GetPart(item, label).GetChildText("Text", {});
}

std::string_view GetTextStyle(const TreeNode& item) {
    return GetPart(item, "StyledString").GetChildText("TextStyle", {});
}

NoteReading ReadNote(const TreeNode& note) {
    return {note.GetChildInt("Chrom2", 0) / 2, note.GetChildInt("Diat", 0),
            note.GetChildInt("StringNum", 0)};
}

EventReading ReadEvent(const TreeNode& item, const EventReading* previous) {
    EventReading event;
    event.m_Start = item.GetChildInt("Sr", 0);
    event.m_Exponent = std::clamp(item.GetChildInt("Durn", 0), 0, kLargestExponent);
    event.m_IsTiedFromPrevious = previous != nullptr && previous->m_IsTiedToNext;
    for (const TreeNode* note : GetEntries(item, ListKind::Notes)) {
        event.m_Notes.push_back(ReadNote(*note));
        event.m_IsTiedToNext = (note->GetChildInt("Flags", 0) & 1) != 0;
    }
    return event;
}

void ReadBar(const TreeNode& bar, MeasureReading& measure) {
    std::vector<EventReading>& events = measure.m_Events;
    for (const TreeNode* item : GetEntries(bar, ListKind::Items)) {
        if (IsOfType(*item, "NoteRest")) {
            events.push_back(ReadEvent(*item, events.empty() ? nullptr : &events.back()));
            measure.m_Length = std::max(measure.m_Length, events.back().GetEnd());
        } else if (GetTextStyle(*item) == kTextStyleChordSymbol && !events.empty()) {
            // A chord symbol stands behind the notes that it belongs to.
            events.back().m_Chord = GetStyledText(*item, "StyledString");
        }
    }
}

TimeReading ReadTime(const TreeNode& item) {
    const int unit = std::clamp(item.GetChildInt("LogUnitLength", 0), 0, kWholeNoteExponent);
    return {item.GetChildInt("Top", 4), 1 << (kWholeNoteExponent - unit)};
}

void ReadSystemBar(const TreeNode& bar, MeasureReading& measure) {
    for (const TreeNode* item : GetEntries(bar, ListKind::Items)) {
        if (IsOfType(*item, "TimeSignature")) {
            measure.m_NewTime = ReadTime(*item);
        } else if (IsOfType(*item, "SystemTextItem")) {
            measure.m_Labels.push_back(GetStyledText(*item, "StyledString"));
        }
    }
}

void ReadStaveType(const TreeNode& music, std::string_view name, ScoreReading& score) {
    for (const TreeNode* type : GetPart(music, "StaveTypes").GetChildren()) {
        if (type->GetChildText("Name", {}) == name) {
            for (const TreeNode* pitch : GetPart(*type, "Pitches").GetChildren()) {
                score.m_Tuning.push_back(pitch->GetInt());
            }
            std::reverse(score.m_Tuning.begin(), score.m_Tuning.end());
            score.m_ShowsRhythms = type->GetChildBool("ShowRhythms", true);
            return;
        }
    }
}

void ReadStaveStart(const TreeNode& music, const TreeNode& firstBar, ScoreReading& score) {
    for (const TreeNode* item : GetEntries(firstBar, ListKind::Items)) {
        if (IsOfType(*item, "KeySignature")) {
            score.m_Sharps = item->GetChildInt("Sharps", 0);
        } else if (IsOfType(*item, "StaveTypeChange")) {
            ReadStaveType(music, item->GetChildText("StaveType", {}), score);
        }
    }
}

}  // namespace

int EventReading::GetEnd() const noexcept {
    return SaturatingAdd(m_Start, 1 << m_Exponent);
}

ScoreReading ReadScore(const TreeNode& document) {
    const TreeNode& music = GetPart(document, "Music");
    const TreeNode& instrument = GetFirst(music, ListKind::Instruments);
    const TreeNode& stave = GetFirst(music, ListKind::Staves);
    const TreeNode& midi = GetPart(stave, "StaveMIDIData");
    ScoreReading score;
    score.m_FullName = GetStyledText(instrument, "FullName");
    score.m_ShortName = GetStyledText(instrument, "ShortName");
    score.m_MidiChannel = midi.GetChildInt("Channel", 0);
    score.m_MidiProgram = midi.GetChildInt("Program", 0);
    ReadStaveStart(music, GetFirst(stave, ListKind::Bars), score);

    const TreeNode& spacings = GetPart(music, "BarSpacings");
    const TreeNode& systemBars = GetPart(GetPart(music, "SystemStave"), "Bars");
    const TreeNode& bars = GetPart(stave, "Bars");
    for (int i = kFirstMusicBar; i < bars.GetChildCount(); ++i) {
        MeasureReading& measure = score.m_Measures.emplace_back();
        if (const TreeNode* spacing = spacings.GetChild(i)) {
            measure.m_Length = std::max(spacing->GetChildInt("BarLength", 0), 0);
        }
        if (const TreeNode* systemBar = systemBars.GetChild(i)) {
            ReadSystemBar(*systemBar, measure);
        }
        ReadBar(*bars.GetChild(i), measure);
    }
    return score;
}

}  // namespace tabulorix
