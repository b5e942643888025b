#include "BarChords.h"

#include <cstdlib>

#include "BarColumns.h"
#include "ChordReader.h"

namespace tabulorix {

namespace {

constexpr int kCandidateLines = 2;

int GetDistance(const NoteEvent& event, const Chord& chord) {
    return std::abs(event.m_Column - chord.GetCentreColumn());
}

// The event at or behind the column or the one before it, whichever is nearer, the one before on a
// tie. Null without events.
NoteEvent* FindNearestEvent(NoteEvents& events, int column) {
    const auto behind = events.lower_bound(column);
    if (behind == events.begin()) {
        return behind == events.end() ? nullptr : &behind->second;
    }
    const auto before = std::prev(behind);
    const bool isBehindNearer =
        behind != events.end() && behind->first - column < column - before->first;
    return isBehindNearer ? &behind->second : &before->second;
}

}  // namespace

void FindChords(const TabText& text, BarMusic& music) {
    const TabBar& bar = music.m_Bar;
    for (int line = bar.m_FirstLine - 1; line >= bar.m_FirstLine - kCandidateLines; --line) {
        if (line < 0 || line == music.m_RhythmLine) {
            continue;
        }
        std::vector<Chord> chords = ReadChords(GetBarColumns(text, bar, line));
        if (chords.size() > music.m_Chords.size()) {
            music.m_Chords = std::move(chords);
            music.m_ChordLine = line;
        }
    }
}

void AttachChords(BarMusic& music) {
    for (const Chord& chord : music.m_Chords) {
        NoteEvent* event = FindNearestEvent(music.m_Events, chord.GetCentreColumn());
        if (event == nullptr) {
            continue;
        }
        if (event->m_Chord == nullptr ||
            GetDistance(*event, chord) < GetDistance(*event, *event->m_Chord)) {
            event->m_Chord = &chord;
        }
    }
}

}  // namespace tabulorix
