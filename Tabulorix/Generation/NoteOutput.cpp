#include "NoteOutput.h"

#include <algorithm>

#include "Arithmetic.h"
#include "BarBuilders.h"
#include "EventNotes.h"

namespace tabulorix {

namespace {

// Shares the durations of one tab bar out among score bars.
class ScoreBars {
public:
    explicit ScoreBars(int barLength) : m_BarLength(barLength) {}

    // A duration belongs to the bar in which it starts. A bar that is not there yet is appended,
    // one only, wherever the duration starts. Durations without a length are left out.
    void Add(int start, Duration duration) {
        if (duration.m_Length <= 0) {
            return;
        }
        const int index = m_BarLength > 0 ? start / m_BarLength : 0;
        duration.m_Offset = start - index * m_BarLength;
        if (static_cast<std::size_t>(index) >= m_Bars.size()) {
            m_Bars.emplace_back().push_back(std::move(duration));
        } else {
            m_Bars[static_cast<std::size_t>(index)].push_back(std::move(duration));
        }
    }

    void AddRest(int start, int end) { Add(start, {0, end - start, {}, nullptr}); }

    std::vector<std::vector<Duration>> TakeBars() { return std::move(m_Bars); }

private:
    int m_BarLength;
    std::vector<std::vector<Duration>> m_Bars;
};

// The consecutive events at the position of `first` as one duration; returns the event behind them.
NoteEvents::const_iterator ReadGroup(const TabText& text, const BarMusic& music,
                                     NoteEvents::const_iterator first, Duration& group) {
    const int position = first->second.m_Position;
    group.m_Column = first->first;
    auto it = first;
    for (; it != music.m_Events.end() && it->second.m_Position == position; ++it) {
        AppendNotes(text, music.m_Bar, it->second, group.m_Notes);
        group.m_Length = it->second.m_Length;
        if (group.m_Chord == nullptr) {
            group.m_Chord = it->second.m_Chord;
        }
    }
    std::stable_sort(
        group.m_Notes.begin(), group.m_Notes.end(),
        [](const ChordNote& left, const ChordNote& right) { return left.m_Diat < right.m_Diat; });
    return it;
}

}  // namespace

std::vector<std::vector<Duration>> CollectDurations(const TabText& text, const BarMusic& music) {
    ScoreBars bars(music.m_Length);
    int end = 0;
    for (auto event = music.m_Events.begin(); event != music.m_Events.end();) {
        const int start = event->second.m_Position;
        Duration group;
        event = ReadGroup(text, music, event, group);
        const int length = group.m_Length;
        bars.AddRest(end, start);
        bars.Add(start, std::move(group));
        end = SaturatingAdd(start, length);
    }
    bars.AddRest(end, music.m_Length);
    return bars.TakeBars();
}

WrittenNotes WriteNotes(const TabText& text, const BarMusic& music, TreeNode& bars) {
    WrittenNotes written;
    for (const std::vector<Duration>& durations : CollectDurations(text, music)) {
        TreeNode& bar = AddBar(bars, false, false);
        for (const Duration& duration : durations) {
            WriteDuration(bar, duration);
            written.m_NoteCount += static_cast<int>(duration.m_Notes.size());
        }
        ++written.m_BarCount;
    }
    return written;
}

}  // namespace tabulorix
