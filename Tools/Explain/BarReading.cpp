#include "BarReading.h"

#include <algorithm>
#include <set>

#include "BarMusicReading.h"
#include "BeatPositions.h"
#include "NoteOutput.h"
#include "NoteValue.h"

namespace tabulorix {

namespace {

using DurationsOfBars = std::vector<std::vector<Duration>>;

// Adds what is to be shown of the music of one bar, which is final.
class MusicExplainer {
public:
    MusicExplainer(const BarMusic& music, const DurationsOfBars& durations, BarReading& reading)
        : m_Music(music), m_Durations(durations), m_Reading(reading) {}

    void AddNumbers();
    void AddValues();
    void AddChords();
    // `played` are the events before they were given time.
    void AddUnwrittenEvents(const NoteEvents& played);

private:
    int GetTextColumn(int column) const { return m_Music.m_Bar.m_StartColumn + column; }
    std::string GetUnusualLength() const;
    void AddValue(const Duration& duration);
    void AddLabel(int column, const char* text);

    const BarMusic& m_Music;
    const DurationsOfBars& m_Durations;
    BarReading& m_Reading;
};

// The bar's length where its rhythm line tells another one than its time signature.
std::string MusicExplainer::GetUnusualLength() const {
    const TimeSignatureMark* mark = m_Music.m_Bar.m_TimeSignature;
    const int usual = mark == nullptr ? kWholeNoteTicks : mark->GetBarLength();
    const bool isUnusual = m_Reading.m_IsRhythmUsed && m_Music.m_Length != usual;
    return isUnusual ? ":" + GetNoteValue(m_Music.m_Length) : std::string();
}

void MusicExplainer::AddNumbers() {
    const int start = GetTextColumn(0);
    int number = m_Reading.m_FirstNumber;
    std::vector<ColumnLabel>& numbers = m_Reading.m_Numbers;
    for (const std::vector<Duration>& durations : m_Durations) {
        const auto first = std::find_if(durations.begin(), durations.end(),
                                        [](const Duration& d) { return d.m_Column >= 0; });
        if (numbers.empty()) {
            numbers.push_back({start, std::to_string(number) + GetUnusualLength()});
        } else if (first != durations.end()) {
            numbers.push_back({GetTextColumn(first->m_Column), std::to_string(number)});
        }
        ++number;
    }
    if (numbers.empty()) {
        numbers.push_back({start, "-"});
    }
}

// A rest that nobody wrote belongs behind the note before it, or at the bar's start.
void MusicExplainer::AddValue(const Duration& duration) {
    const std::string value = GetNoteValue(duration.m_Length);
    std::vector<ColumnLabel>& values = m_Reading.m_Values;
    if (duration.m_Column < 0 && !values.empty()) {
        values.back().m_Text += "(" + value + ")";
        return;
    }
    const int column = GetTextColumn(std::max(duration.m_Column, 0));
    values.push_back({column, duration.m_Notes.empty() ? "(" + value + ")" : value});
}

void MusicExplainer::AddValues() {
    for (const std::vector<Duration>& durations : m_Durations) {
        for (const Duration& duration : durations) {
            AddValue(duration);
            m_Reading.m_NoteCount += static_cast<int>(duration.m_Notes.size());
        }
    }
}

void MusicExplainer::AddChords() {
    std::set<const Chord*> written;
    for (const std::vector<Duration>& durations : m_Durations) {
        for (const Duration& duration : durations) {
            written.insert(duration.m_Chord);
        }
    }
    for (const Chord& chord : m_Music.m_Chords) {
        m_Reading.m_Chords.push_back(
            {{GetTextColumn(chord.m_StartColumn), GetTextColumn(chord.m_EndColumn)},
             written.contains(&chord)});
    }
}

void MusicExplainer::AddLabel(int column, const char* text) {
    m_Reading.m_Values.push_back({GetTextColumn(column), text});
}

void MusicExplainer::AddUnwrittenEvents(const NoteEvents& played) {
    std::set<int> written;
    for (const std::vector<Duration>& durations : m_Durations) {
        for (const Duration& duration : durations) {
            written.insert(duration.m_Column);
        }
    }
    const NoteEvent* before = nullptr;
    bool isBeforeWritten = false;
    for (const auto& [column, event] : played) {
        const auto timed = m_Music.m_Events.find(column);
        const bool isTimed = timed != m_Music.m_Events.end();
        if (written.contains(column)) {
            isBeforeWritten = true;
        } else if (isTimed && isBeforeWritten && timed->second.m_Position == before->m_Position) {
            AddLabel(column, "+");
        } else {
            AddLabel(column, "*");
            m_Reading.m_LostFrets.push_back(
                {GetTextColumn(event.GetFirstColumnRead()), GetTextColumn(event.GetEndColumn())});
            isBeforeWritten = isBeforeWritten && !isTimed;
        }
        before = isTimed ? &timed->second : before;
    }
    std::stable_sort(m_Reading.m_Values.begin(), m_Reading.m_Values.end(),
                     [](const ColumnLabel& left, const ColumnLabel& right) {
                         return left.m_Column < right.m_Column;
                     });
}

}  // namespace

BarReading BarReader::ReadNext(const TabBar& bar) {
    BarMusic music = ReadBarMusic(m_Tab, bar);
    const NoteEvents played = music.m_Events;
    PlaceInTime(music, m_Level);
    const DurationsOfBars durations = CollectDurations(m_Tab.GetText(), music);

    BarReading reading;
    reading.m_Bar = &bar;
    reading.m_FirstNumber = m_ScoreBarCount + 1;
    reading.m_ScoreBarCount = static_cast<int>(durations.size());
    reading.m_AreRhythmsShown = music.m_AreRhythmsShown;
    reading.m_RhythmLine = music.m_RhythmLine;
    reading.m_ChordLine = music.m_ChordLine;
    m_ScoreBarCount += reading.m_ScoreBarCount;
    reading.m_IsRhythmCounts = dynamic_cast<const BeatPositions*>(music.m_Rhythms.get()) != nullptr;
    reading.m_IsRhythmUsed = music.m_Rhythms != nullptr && music.m_AreRhythmsShown;
    MusicExplainer explainer(music, durations, reading);
    explainer.AddNumbers();
    explainer.AddValues();
    explainer.AddChords();
    explainer.AddUnwrittenEvents(played);
    return reading;
}

}  // namespace tabulorix
