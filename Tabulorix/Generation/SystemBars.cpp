#include "SystemBars.h"

#include "BarBuilders.h"
#include "ScoreElements.h"
#include "SignatureBuilders.h"
#include "TextBuilders.h"

namespace tabulorix {

namespace {

constexpr int kSpacingFlags = 7;
constexpr int kSpacingFlagsBeforeLabel = 6;  // a label's bar may start a new system
constexpr int kLabelY = 32;
constexpr int kLabelYAboveChords = 128;
constexpr int kGapBelowLabel = 400;
constexpr int kGapBelowChords = 256;
constexpr int kTimeSignatureFlags = 1;

// The label that starts at a bar; null when the bar before it has the same one.
const Riff* GetStartingRiff(const ScoreBar& bar, const ScoreBar* previous) {
    const Riff* riff = bar.m_TabBar->m_Riff;
    return previous != nullptr && previous->m_TabBar->m_Riff == riff ? nullptr : riff;
}

// The time signature to write at a bar; null when the bar before it has the same fraction.
const TimeSignatureMark* GetNewTimeSignature(const ScoreBar& bar, const ScoreBar* previous) {
    const TimeSignatureMark* mark = bar.m_TabBar->m_TimeSignature;
    const TimeSignatureMark* before =
        previous == nullptr ? nullptr : previous->m_TabBar->m_TimeSignature;
    const bool isSame = mark != nullptr && before != nullptr &&
                        mark->m_Numerator == before->m_Numerator &&
                        mark->m_Denominator == before->m_Denominator;
    return isSame ? nullptr : mark;
}

std::string_view GetRiffText(const TabText& text, const Riff& riff) {
    return text.GetLine(riff.m_Line)
        .substr(static_cast<std::size_t>(riff.m_StartColumn),
                static_cast<std::size_t>(riff.m_EndColumn - riff.m_StartColumn));
}

int GetGapBelow(const ScoreBar& bar, const Riff* startingRiff) {
    if (startingRiff != nullptr) {
        return kGapBelowLabel;
    }
    return bar.m_HasChords ? kGapBelowChords : 0;
}

// Either list may be missing from the music; then nothing is added to it.
class SystemBarWriter {
public:
    SystemBarWriter(const TabText& text, TreeNode& music)
        : m_Text(text), m_Spacings(music.FindChild(GetListLabel(ListKind::BarSpacings))) {
        if (TreeNode* systemStave = music.FindChild("SystemStave")) {
            m_Bars = &GetList(*systemStave, ListKind::Bars);
        }
    }

    void Write(const ScoreBar& bar, const ScoreBar* previous) {
        const Riff* riff = GetStartingRiff(bar, previous);
        WriteSpacing(bar, riff != nullptr && previous != nullptr);
        if (m_Bars != nullptr) {
            WriteBar(bar, riff, GetNewTimeSignature(bar, previous));
        }
    }

private:
    void WriteSpacing(const ScoreBar& bar, bool endsSection) {
        if (m_Spacings == nullptr) {
            return;
        }
        TreeNode* previous = m_Spacings->GetChild(m_Spacings->GetChildCount() - 1);
        if (endsSection && previous != nullptr) {
            SetIntField(*previous, "Flags", kSpacingFlagsBeforeLabel);
        }
        SetIntField(AddBarSpacing(*m_Spacings, bar.m_Length), "Flags", kSpacingFlags);
    }

    void WriteBar(const ScoreBar& bar, const Riff* riff, const TimeSignatureMark* timeSignature) {
        TreeNode& node = AddBar(*m_Bars, false, false);
        if (riff != nullptr) {
            AddSystemTextItem(GetList(node, ListKind::Items), kSrBeforeBar,
                              GetRiffText(m_Text, *riff), kTextStyleTempo,
                              bar.m_HasChords ? kLabelYAboveChords : kLabelY);
        }
        if (const int gap = GetGapBelow(bar, riff); gap > 0) {
            SetIntField(node, "GapBelowStave", gap);
        }
        if (timeSignature != nullptr) {
            AddTimeSignature(GetList(node, ListKind::Items), 0, timeSignature->m_Numerator,
                             timeSignature->m_Denominator, {}, 0, kTimeSignatureFlags);
        }
    }

    const TabText& m_Text;
    TreeNode* m_Spacings;
    TreeNode* m_Bars = nullptr;
};

}  // namespace

void AddSystemBars(const TabText& text, const std::vector<ScoreBar>& scoreBars, TreeNode& music) {
    SystemBarWriter writer(text, music);
    const ScoreBar* previous = nullptr;
    for (const ScoreBar& bar : scoreBars) {
        writer.Write(bar, previous);
        previous = &bar;
    }
}

}  // namespace tabulorix
