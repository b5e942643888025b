#include "TabRun.h"

#include <algorithm>
#include <cstdint>

#include "Ascii.h"
#include "StaveTuning.h"

namespace tabulorix {

namespace {

constexpr std::int64_t kDashPercent = 65;
constexpr std::int64_t kBlankPercent = 120;

std::int64_t GetPercentage(int value, std::int64_t percent) {
    return value * percent / 100;
}

int GetGreatestLength(const TabText& text, const LineRange& lines) {
    int greatest = 0;
    for (int line = lines.m_First; line <= lines.GetLast(); ++line) {
        greatest = std::max(greatest, text.GetLineLength(line));
    }
    return greatest;
}

}  // namespace

TabRun::TabRun(const TabText& text, const LineRange& lines) : m_Lines(lines) {
    const int width = GetGreatestLength(text, lines);
    CountCharacters(text, width);
    FindNamedLines(text, width);
}

void TabRun::CountCharacters(const TabText& text, int width) {
    std::int64_t allBlanks = 0;
    for (int line = m_Lines.m_First; line <= m_Lines.GetLast(); ++line) {
        const std::string_view characters = text.GetLine(line);
        const auto dashes = std::count(characters.begin(), characters.end(), '-');
        // Beyond a line's end stand NULs up to the run's width, and they are blank.
        const auto blanks = std::count_if(characters.begin(), characters.end(), IsBlank) + width -
                            static_cast<std::ptrdiff_t>(characters.size());
        m_Figures.push_back({static_cast<int>(dashes), static_cast<int>(blanks), false});
        m_MaxDashes = std::max(m_MaxDashes, static_cast<int>(dashes));
        allBlanks += blanks;
    }
    m_AverageBlanks = static_cast<int>(allBlanks / m_Lines.m_Count);
}

void TabRun::FindNamedLines(const TabText& text, int width) {
    std::vector<int> namesInColumn(static_cast<std::size_t>(width) + 1, 0);
    for (int line = m_Lines.m_First; line <= m_Lines.GetLast(); ++line) {
        const std::string_view characters = text.GetLine(line);
        for (std::size_t column = 0; column < characters.size(); ++column) {
            namesInColumn[column] += IsStringName(characters[column]) ? 1 : 0;
        }
    }
    // The leftmost of the best columns. When no line has a name anywhere it is column 0, where then
    // no line is named.
    const auto best = std::max_element(namesInColumn.begin(), namesInColumn.end());
    const auto nameColumn = static_cast<int>(best - namesInColumn.begin());
    for (int i = 0; i < m_Lines.m_Count; ++i) {
        m_Figures[static_cast<std::size_t>(i)].m_IsNamed =
            IsStringName(text.GetChar(m_Lines.m_First + i, nameColumn));
    }
}

bool TabRun::LooksLikeTab(int line) const {
    const LineFigures& figures = m_Figures.at(static_cast<std::size_t>(line - m_Lines.m_First));
    return figures.m_Dashes >= GetPercentage(m_MaxDashes, kDashPercent) ||
           figures.m_Blanks <= GetPercentage(m_AverageBlanks, kBlankPercent) || figures.m_IsNamed;
}

}  // namespace tabulorix
