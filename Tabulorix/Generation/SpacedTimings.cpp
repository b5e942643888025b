#include <algorithm>
#include <cstdint>

#include "Arithmetic.h"
#include "RhythmStrategies.h"
#include "Ticks.h"

namespace tabulorix {

namespace {

constexpr int kRoundTicks = kWholeNoteTicks / 16;
// As many events as sixteenths are all that a bar is taken to hold.
constexpr int kShortestNoteTicks = kWholeNoteTicks / 16;
// An event in one of these columns stands at the bar's start: the bar then lasts from it on.
constexpr int kStartColumns = 3;

int Round(int ticks) {
    return (ticks + kRoundTicks / 2) / kRoundTicks * kRoundTicks;
}

// A tab without bar lines: more events than a bar can hold, in a stave with a single bar.
bool IsUndivided(const BarMusic& music) {
    const auto eventCount = static_cast<std::int64_t>(music.m_Events.size());
    return music.m_Bar.m_Stave->m_TabBarCount == 1 &&
           eventCount > music.m_Length / kShortestNoteTicks;
}

// Eighths without end; the last one fills its bar.
void AssignRunningEighths(BarMusic& music) {
    std::int64_t position = 0;
    for (auto& [column, event] : music.m_Events) {
        event.m_Position = ClampToInt(position);
        event.m_Length = kEighthNoteTicks;
        position += kEighthNoteTicks;
    }
    NoteEvent& last = music.m_Events.rbegin()->second;
    const std::int64_t barEnd =
        (std::int64_t{last.m_Position} / music.m_Length + 1) * music.m_Length;
    last.m_Length = ClampToInt(barEnd - last.m_Position);
}

// Times the columns between any two events it is the bar's length at most.
int GetTicksPerColumn(const BarMusic& music) {
    const int columnCount = music.m_Bar.m_Width;
    const int firstColumn = music.m_Events.begin()->first;
    const int span = firstColumn < kStartColumns ? columnCount - firstColumn : columnCount - 1;
    return music.m_Length / std::max(span, 1);
}

}  // namespace

void AssignSpacedTimings(BarMusic& music) {
    if (music.m_Events.empty()) {
        return;
    }
    if (IsUndivided(music)) {
        AssignRunningEighths(music);
        return;
    }
    const int ticks = GetTicksPerColumn(music);
    const int firstColumn = music.m_Events.begin()->first;
    NoteEvent* previous = nullptr;
    for (auto& [column, event] : music.m_Events) {
        event.m_Position = Round(ticks * (column - firstColumn));
        if (previous != nullptr) {
            previous->m_Length = event.m_Position - previous->m_Position;
        }
        previous = &event;
    }
    const int rest = Round(ticks * (music.m_Bar.m_Width - previous->m_Column));
    previous->m_Length = std::min(rest, music.m_Length - previous->m_Position);
}

}  // namespace tabulorix
