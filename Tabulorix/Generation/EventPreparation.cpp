#include "EventPreparation.h"

#include <algorithm>

#include "BarColumns.h"
#include "FretRuns.h"

namespace tabulorix {

namespace {

constexpr int kMergedWidth = 2;

NoteEvent& FindOrAddEvent(NoteEvents& events, int column) {
    return events.try_emplace(column, NoteEvent{column}).first->second;
}

// Frets written side by side without a gap: each column is an event of its own for good.
void AddSingleColumnEvents(NoteEvents& events, int column, int count) {
    for (int i = 0; i < count; ++i) {
        NoteEvent& event = FindOrAddEvent(events, column + i);
        event.m_Width = 1;
        event.m_IsFixedWidth = true;
    }
}

void AddEventsOfString(NoteEvents& events, const FretRuns& runs) {
    for (int column = 0; column < runs.GetColumnCount();) {
        const int length = runs.GetLength(column);
        if (length == 0) {
            ++column;
        } else if (!runs.IsOneFret(column)) {
            AddSingleColumnEvents(events, column, length);
            column += length;
        } else {
            NoteEvent& event = FindOrAddEvent(events, column);
            if (!event.m_IsFixedWidth) {
                event.m_Width = std::max(event.m_Width, length);
            }
            column += event.m_Width;
        }
    }
}

void MergeOverlappingEvents(NoteEvents& events) {
    for (auto left = events.begin(); left != events.end();) {
        const auto right = std::next(left);
        if (right != events.end() && left->second.m_Width == kMergedWidth &&
            right->first == left->first + 1) {
            right->second.m_StartOffset = -1;
            events.erase(left);
        }
        left = right;
    }
}

}  // namespace

void PrepareEvents(const TabText& text, BarMusic& music) {
    const TabBar& bar = music.m_Bar;
    for (int line = bar.m_FirstLine; line < bar.m_FirstLine + bar.m_LineCount; ++line) {
        AddEventsOfString(music.m_Events, FretRuns(GetBarColumns(text, bar, line)));
    }
    MergeOverlappingEvents(music.m_Events);
}

}  // namespace tabulorix
