#include <cstdint>

#include "Arithmetic.h"
#include "RhythmStrategies.h"
#include "Ticks.h"

namespace tabulorix {

namespace {

constexpr int kSnapTicks = kWholeNoteTicks / 32;

// The nearest multiple; halfway goes up. `position` is not negative.
int Snap(int position) {
    return ClampToInt((std::int64_t{position} + kSnapTicks / 2) / kSnapTicks * kSnapTicks);
}

// The gap, or the length that is written in the line where that is shorter.
int ChooseLength(int gap, int writtenLength) {
    return writtenLength != 0 && writtenLength < gap ? writtenLength : gap;
}

}  // namespace

void AssignIndicatedTimings(BarMusic& music) {
    NoteEvents& events = music.m_Events;
    music.m_Length = music.m_Rhythms->GetTotalLength();

    auto previous = events.end();
    int previousWrittenLength = 0;
    for (auto current = events.begin(); current != events.end(); ++current) {
        NoteEvent& event = current->second;
        int writtenLength = 0;
        event.m_Position =
            Snap(music.m_Rhythms->PositionAt(event.m_Column, writtenLength, event.m_IsTied));
        if (previous != events.end()) {
            NoteEvent& before = previous->second;
            if (before.m_Position == 0 && event.m_Position == 0) {
                // A grace note or a slide into the first beat.
                events.erase(previous);
            } else {
                before.m_Length =
                    ChooseLength(event.m_Position - before.m_Position, previousWrittenLength);
            }
        }
        previous = current;
        previousWrittenLength = writtenLength;
    }
    if (previous != events.end()) {
        NoteEvent& last = previous->second;
        last.m_Length = ChooseLength(music.m_Length - last.m_Position, previousWrittenLength);
    }
}

}  // namespace tabulorix
