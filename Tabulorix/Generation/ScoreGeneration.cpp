#include "ScoreGeneration.h"

#include <cstdint>

#include "BarMusicReading.h"
#include "NoteOutput.h"
#include "ScoreElements.h"
#include "ScoreSkeleton.h"
#include "ScoreTemplate.h"

namespace tabulorix {

namespace {

constexpr int kBassStringCount = 4;
constexpr std::int64_t kFirstPercent = 20;
constexpr std::int64_t kPercentSpan = 60;

}  // namespace

bool ScoreGeneration::IsBass() const noexcept {
    const auto& tabBars = m_Tab.GetTabBars();
    return !tabBars.empty() && tabBars.front()->m_LineCount == kBassStringCount;
}

bool ScoreGeneration::GenerateScore(TreeNode& score) {
    TreeNode* music = GetMusic(score);
    if (music == nullptr) {
        return false;
    }
    TreeNode& stave = AddSkeleton(*music, IsBass() ? TabInstrument::Bass : TabInstrument::Guitar);
    GenerateBars(GetList(stave, ListKind::Bars));
    if (const auto& tabBars = m_Tab.GetTabBars(); !tabBars.empty()) {
        SetStaveType(score, stave, tabBars.front()->m_Stave->m_Tuning,
                     m_HasIndicatedRhythms || m_HasSpacedRhythms);
    }
    AddSystemBars(m_Tab.GetText(), m_ScoreBars, *music);
    return !m_ScoreBars.empty();
}

void ScoreGeneration::GenerateBars(TreeNode& bars) {
    const auto& tabBars = m_Tab.GetTabBars();
    const auto count = static_cast<std::int64_t>(tabBars.size());
    std::int64_t done = 0;
    for (const TabBar* bar : tabBars) {
        m_Output.SetProgress(static_cast<int>(kFirstPercent + kPercentSpan * done / count), {});
        GenerateBar(*bar, bars);
        ++done;
    }
}

void ScoreGeneration::GenerateBar(const TabBar& bar, TreeNode& bars) {
    BarMusic music = ReadBarMusic(m_Tab, bar);
    PlaceInTime(music, m_Level);
    if (music.m_AreRhythmsShown) {
        (music.m_Rhythms != nullptr ? m_HasIndicatedRhythms : m_HasSpacedRhythms) = true;
    }
    const WrittenNotes written = WriteNotes(m_Tab.GetText(), music, bars);
    m_NoteCount += written.m_NoteCount;
    m_ScoreBars.insert(
        m_ScoreBars.end(), static_cast<std::size_t>(written.m_BarCount),
        ScoreBar{
            .m_TabBar = &bar, .m_Length = music.m_Length, .m_HasChords = !music.m_Chords.empty()});
}

}  // namespace tabulorix
