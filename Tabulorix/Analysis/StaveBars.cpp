#include "StaveBars.h"

#include <algorithm>

#include "FretCharacters.h"

namespace tabulorix {

namespace {

// Everything beyond the stave's own longest line is NUL on every line: bar columns without tab, on
// which nothing can depend. They are not looked at, so that one long line elsewhere in the file
// does not cost anything for every stave.
int GetLongestLineLength(const TabText& text, const TabStave& stave) {
    int longest = 0;
    for (int line = stave.m_FirstLine; line < stave.GetEndLine(); ++line) {
        longest = std::max(longest, text.GetLineLength(line));
    }
    return longest;
}

bool IsBarColumn(const TabText& text, const TabStave& stave, int column) {
    const char top = text.GetChar(stave.m_FirstLine, column);
    if (IsFretCharacter(top) || top == '-') {
        return false;
    }
    for (int line = stave.m_FirstLine + 1; line < stave.GetEndLine(); ++line) {
        if (text.GetChar(line, column) != top) {
            return false;
        }
    }
    return true;
}

std::vector<BarLine> FindBarLines(const TabText& text, const TabStave& stave, int width) {
    std::vector<BarLine> barLines;
    int column = 0;
    while (column < width) {
        if (!IsBarColumn(text, stave, column)) {
            ++column;
            continue;
        }
        // The column behind the stave's longest line is still a column of the text, or is not one
        // at all; either way a bar that would start there holds nothing.
        const bool isDouble = column + 1 < width && IsBarColumn(text, stave, column + 1);
        barLines.push_back({isDouble, column});
        column = barLines.back().GetColumnBehind();
    }
    return barLines;
}

// One entry a column: whether some line of the stave has a dash there.
std::vector<bool> FindDashColumns(const TabText& text, const TabStave& stave, int width) {
    std::vector<bool> hasDash(static_cast<std::size_t>(width), false);
    for (int line = stave.m_FirstLine; line < stave.GetEndLine(); ++line) {
        const std::string_view characters = text.GetLine(line);
        for (std::size_t column = 0; column < characters.size(); ++column) {
            if (characters[column] == '-') {
                hasDash[column] = true;
            }
        }
    }
    return hasDash;
}

}  // namespace

void FindBars(const TabText& text, TabStave& stave) {
    const int width = GetLongestLineLength(text, stave);
    stave.m_BarLines = FindBarLines(text, stave, width);
    const std::vector<bool> hasDash = FindDashColumns(text, stave, width);

    const auto appendBar = [&](int start, int end) {
        const auto first = hasDash.begin() + start;
        const auto last = hasDash.begin() + end;
        const bool hasTab = std::find(first, last, true) != last;
        stave.m_Bars.push_back(std::make_unique<TabBar>(
            TabBar{stave.m_FirstLine, stave.m_LineCount, start, end - start, hasTab, &stave}));
        stave.m_TabBarCount += hasTab ? 1 : 0;
    };
    int start = 0;
    for (const BarLine& barLine : stave.m_BarLines) {
        appendBar(start, barLine.m_Column);
        start = barLine.GetColumnBehind();
    }
    appendBar(start, width);
}

}  // namespace tabulorix
