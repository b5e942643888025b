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

// One entry a column: whether all lines of the stave have the same character there, one that can
// stand for a bar line. Only characters that exist are looked at: what is beyond the ends of short
// lines must not cost anything.
std::vector<bool> FindBarColumns(const TabText& text, const TabStave& stave, int width) {
    const std::string_view top = text.GetLine(stave.m_FirstLine);
    const auto getTop = [top](std::size_t column) {
        return column < top.size() ? top[column] : '\0';
    };
    std::vector<bool> isBar(static_cast<std::size_t>(width), true);
    std::size_t shortest = top.size();
    for (std::size_t column = 0; column < top.size(); ++column) {
        isBar[column] = !IsFretCharacter(top[column]) && top[column] != '-';
    }
    for (int line = stave.m_FirstLine + 1; line < stave.GetEndLine(); ++line) {
        const std::string_view characters = text.GetLine(line);
        for (std::size_t column = 0; column < characters.size(); ++column) {
            if (characters[column] != getTop(column)) {
                isBar[column] = false;
            }
        }
        shortest = std::min(shortest, characters.size());
    }
    for (std::size_t column = shortest; column < top.size(); ++column) {
        if (top[column] != '\0') {
            isBar[column] = false;
        }
    }
    return isBar;
}

std::vector<BarLine> FindBarLines(const std::vector<bool>& isBar) {
    std::vector<BarLine> barLines;
    for (std::size_t column = 0; column < isBar.size(); ++column) {
        if (isBar[column]) {
            // The column behind the stave's longest line makes no bar line double that matters: a
            // bar that would start there holds nothing.
            const bool isDouble = column + 1 < isBar.size() && isBar[column + 1];
            barLines.push_back({isDouble, static_cast<int>(column)});
            column += isDouble ? 1 : 0;
        }
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
    stave.m_BarLines = FindBarLines(FindBarColumns(text, stave, width));
    const std::vector<bool> hasDash = FindDashColumns(text, stave, width);

    const auto appendBar = [&](int start, int end) {
        const auto first = hasDash.begin() + start;
        const auto last = hasDash.begin() + end;
        const bool hasTab = std::find(first, last, true) != last;
        stave.m_Bars.push_back(std::make_unique<TabBar>(TabBar{.m_FirstLine = stave.m_FirstLine,
                                                               .m_LineCount = stave.m_LineCount,
                                                               .m_StartColumn = start,
                                                               .m_Width = end - start,
                                                               .m_HasTab = hasTab,
                                                               .m_Stave = &stave}));
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
