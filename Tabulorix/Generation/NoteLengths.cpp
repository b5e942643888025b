#include "NoteLengths.h"

#include <algorithm>
#include <cstdint>

#include "Arithmetic.h"
#include "Ascii.h"
#include "Ticks.h"

namespace tabulorix {

namespace {

constexpr int kLeastSum = kWholeNoteTicks / 2;
constexpr int kEnoughEighths = 4;
constexpr int kInterpolationSteps = 1000;

// The length in ticks of a note-value letter, 0 for any other character.
constexpr int GetLetterLength(char c) {
    switch (c) {
        case 'W':
            return kWholeNoteTicks;
        case 'H':
            return kWholeNoteTicks / 2;
        case 'Q':
            return kWholeNoteTicks / 4;
        case 'E':
            return kWholeNoteTicks / 8;
        case 'S':
            return kWholeNoteTicks / 16;
        case 'T':
            return kWholeNoteTicks / 32;
        case 'X':
            return kWholeNoteTicks / 64;
        default:
            return 0;
    }
}

bool IsIsolated(const TabText& text, int line, int column) {
    const char behind = text.GetChar(line, column + 1);
    return !IsLetter(text.GetChar(line, column - 1)) && !IsLetter(behind) && behind != '#';
}

// The letter's length with its dots, each of which adds half of what was added before.
int ReadDottedLength(const TabText& text, int line, int column) {
    int addition = GetLetterLength(text.GetChar(line, column));
    int length = addition;
    for (++column; text.GetChar(line, column) == '.'; ++column) {
        addition /= 2;
        length += addition;
    }
    return length;
}

bool IsTieCharacter(char c) {
    return c == 'x' || c == '+' || c == '-';
}

}  // namespace

bool IsNoteLengthsLine(const TabText& text, int line, int firstColumn, int endColumn) {
    int sum = 0;
    int eighths = 0;
    bool isLastIsolated = false;
    for (int column = firstColumn; column < endColumn; ++column) {
        const char c = text.GetChar(line, column);
        if (c == 'E') {
            // The E of a chord name such as Em or E#dim is no note value.
            if (IsIsolated(text, line, column)) {
                sum = SaturatingAdd(sum, GetLetterLength(c));
                ++eighths;
            }
        } else if (IsChordRoot(c)) {
            return false;
        } else if (GetLetterLength(c) > 0) {
            sum = SaturatingAdd(sum, GetLetterLength(c));
            isLastIsolated = IsIsolated(text, line, column);
        }
    }
    return sum >= kLeastSum && (isLastIsolated || eighths >= kEnoughEighths);
}

NoteLengths::NoteLengths(const TabText& text, const TabBar& bar, int line)
    : m_ColumnCount(bar.m_Width) {
    for (int column = 0; column < m_ColumnCount; ++column) {
        const int textColumn = bar.m_StartColumn + column;
        if (GetLetterLength(text.GetChar(line, textColumn)) == 0) {
            continue;
        }
        const int length = ReadDottedLength(text, line, textColumn);
        const bool isTied = column > 0 && IsTieCharacter(text.GetChar(line, textColumn - 1));
        m_Marks.push_back({column, length, m_TotalLength, isTied});
        m_TotalLength = SaturatingAdd(m_TotalLength, length);
    }
}

int NoteLengths::PositionAt(int column, int& length, bool& isTied) const {
    const auto mark = std::lower_bound(m_Marks.begin(), m_Marks.end(), column,
                                       [](const Mark& m, int c) { return m.m_Column < c; });
    if (mark != m_Marks.end() && mark->m_Column <= column + 1) {
        length = mark->m_Length;
        isTied = mark->m_IsTied;
        return mark->m_Position;
    }
    isTied = false;
    const int position = Interpolate(mark, column);
    length = (mark == m_Marks.end() ? m_TotalLength : mark->m_Position) - position;
    return position;
}

int NoteLengths::Interpolate(Marks::const_iterator right, int column) const {
    const bool hasLeft = right != m_Marks.begin();
    const int leftColumn = hasLeft ? std::prev(right)->m_Column : 0;
    const int leftPosition = hasLeft ? std::prev(right)->m_Position : 0;
    const bool hasRight = right != m_Marks.end();
    const int rightColumn = hasRight ? right->m_Column : m_ColumnCount;
    const int rightPosition = hasRight ? right->m_Position : m_TotalLength;

    const std::int64_t step = std::int64_t{column - leftColumn} * kInterpolationSteps /
                              std::max(rightColumn - leftColumn, 1);
    const std::int64_t way = step * (rightPosition - leftPosition) / kInterpolationSteps;
    return ClampToInt(leftPosition + way);
}

}  // namespace tabulorix
