#include "BeatPositions.h"

#include <algorithm>
#include <cstdint>
#include <map>

#include "Arithmetic.h"
#include "Ascii.h"
#include "Ticks.h"

namespace tabulorix {

namespace {

constexpr int kMostKinds = 3;
constexpr int kLeastMarks = 2;
constexpr int kLeastMarksWhenTouching = 3;
constexpr int kEarlyColumns = 2;
constexpr int kFirstMarkBelowPercent = 25;
constexpr int kLastMarkAbovePercent = 60;

// All beat numbers are of one kind.
char GetKind(char c) {
    return IsDigit(c) ? '0' : c;
}

// What the test of a line looks at.
struct CountLineFigures {
    std::map<char, int> m_Kinds;  // with their number of marks
    int m_MarkCount = 0;
    int m_FirstColumn = 0;  // of the marks; one in column 0 leaves it to the next
    int m_LastColumn = 0;
    bool m_TouchEarly = false;
    bool m_TouchLate = false;
};

CountLineFigures CollectFigures(const TabText& text, const TabBar& bar, int line) {
    CountLineFigures figures;
    bool wasBlank = true;
    for (int column = 0; column < bar.m_Width; ++column) {
        const char c = text.GetChar(line, bar.m_StartColumn + column);
        if (IsBlank(c)) {
            wasBlank = true;
            continue;
        }
        ++figures.m_Kinds[GetKind(c)];
        ++figures.m_MarkCount;
        if (!wasBlank) {
            (column < kEarlyColumns ? figures.m_TouchEarly : figures.m_TouchLate) = true;
        }
        wasBlank = false;
        figures.m_LastColumn = column;
        if (figures.m_FirstColumn == 0) {
            figures.m_FirstColumn = column;
        }
    }
    return figures;
}

int GetPercentage(int column, int columnCount) {
    return ClampToInt(std::int64_t{column} * 100 / std::max(columnCount, 1));
}

bool HasFittingKinds(const CountLineFigures& figures) {
    const auto& kinds = figures.m_Kinds;
    const bool hasRoot = std::any_of(kinds.begin(), kinds.end(),
                                     [](const auto& kind) { return IsChordRoot(kind.first); });
    const bool isRepeated =
        std::any_of(kinds.begin(), kinds.end(), [](const auto& kind) { return kind.second > 1; });
    const bool isPair = kinds.size() == 2 && figures.m_MarkCount == 2;
    return !hasRoot && (isRepeated || isPair) && kinds.size() <= kMostKinds;
}

int GetBeatLength(const TimeSignatureMark* timeSignature) {
    return timeSignature == nullptr ? kQuarterNoteTicks : 1 << timeSignature->GetLogUnitLength();
}

}  // namespace

bool IsBeatCountLine(const TabText& text, const TabBar& bar, int line) {
    const CountLineFigures figures = CollectFigures(text, bar, line);
    const bool isSpread =
        GetPercentage(figures.m_FirstColumn, bar.m_Width) < kFirstMarkBelowPercent &&
        GetPercentage(figures.m_LastColumn, bar.m_Width) > kLastMarkAbovePercent;
    const int leastMarks = figures.m_TouchEarly ? kLeastMarksWhenTouching : kLeastMarks;
    return HasFittingKinds(figures) && isSpread && !figures.m_TouchLate &&
           figures.m_MarkCount >= leastMarks;
}

BeatPositions::BeatPositions(const TabAnalysis& analysis, const TabBar& bar, int line)
    : m_BeatLength(GetBeatLength(bar.m_TimeSignature)), m_ColumnCount(bar.m_Width) {
    PlaceMarks(ReadMarks(analysis, bar, line));
    if (m_Entries.empty()) {
        m_TotalLength = bar.m_BarLength;
    }
}

// The digits of a time signature on the line are no beats.
BeatPositions::Marks BeatPositions::ReadMarks(const TabAnalysis& analysis, const TabBar& bar,
                                              int line) {
    Marks marks;
    for (int column = 0; column < bar.m_Width; ++column) {
        const int textColumn = bar.m_StartColumn + column;
        const char c = analysis.GetText().GetChar(line, textColumn);
        if (!IsBlank(c) && !analysis.IsInTimeSignature(line, textColumn)) {
            marks.push_back({column, GetKind(c)});
        }
    }
    return marks;
}

void BeatPositions::PlaceMarks(const Marks& marks) {
    if (marks.empty()) {
        return;
    }
    const bool hasDigits = std::any_of(marks.begin(), marks.end(),
                                       [](const Mark& mark) { return mark.m_Kind == '0'; });
    const char beatKind = hasDigits ? '0' : marks.front().m_Kind;
    const auto isBeat = [beatKind](const Mark& mark) { return mark.m_Kind == beatKind; };

    auto beat = std::find_if(marks.begin(), marks.end(), isBeat);
    if (beat != marks.begin()) {
        // What stands before the first beat mark divides a beat whose own mark is not written.
        AppendBeat(marks.begin(), beat, 1);
    }
    while (beat != marks.end()) {
        const auto next = std::find_if(std::next(beat), marks.end(), isBeat);
        AppendBeat(beat, next, 0);
        beat = next;
    }
}

// The marks are the parts firstPart, firstPart + 1, ... of the beat behind those so far.
void BeatPositions::AppendBeat(Marks::const_iterator first, Marks::const_iterator end,
                               int firstPart) {
    const int partCount = firstPart + static_cast<int>(end - first);
    const auto getOffset = [&](int part) {
        return static_cast<int>(std::int64_t{m_BeatLength} * part / partCount);
    };
    int part = firstPart;
    for (auto mark = first; mark != end; ++mark, ++part) {
        m_Entries.push_back({mark->m_Column, SaturatingAdd(m_TotalLength, getOffset(part)),
                             getOffset(part + 1) - getOffset(part)});
    }
    m_TotalLength = SaturatingAdd(m_TotalLength, m_BeatLength);
}

int BeatPositions::PositionAt(int column, int& length, bool& isTied) const {
    length = 0;
    isTied = false;
    const auto next =
        std::upper_bound(m_Entries.begin(), m_Entries.end(), column,
                         [](int c, const Entry& entry) { return c < entry.m_Column; });
    if (next == m_Entries.begin()) {
        return 0;
    }
    const Entry& entry = *std::prev(next);
    const int endColumn = next == m_Entries.end() ? m_ColumnCount : next->m_Column;
    const std::int64_t way =
        std::int64_t{entry.m_Span} * (column - entry.m_Column) / (endColumn - entry.m_Column);
    return ClampToInt(entry.m_Position + way);
}

}  // namespace tabulorix
