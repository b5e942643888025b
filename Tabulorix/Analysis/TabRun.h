// The figures of one run of candidate lines, by which the lines at its ends are judged.

#pragma once

#include <vector>

#include "TabText.h"

namespace tabulorix {

// Consecutive lines of the text.
struct LineRange {
    int m_First;
    int m_Count;

    int GetLast() const noexcept { return m_First + m_Count - 1; }
};

class TabRun {
public:
    // `lines` is not empty. The figures stay those of the whole run, whatever is trimmed later.
    TabRun(const TabText& text, const LineRange& lines);

    // A line of the run looks like tab when it has nearly as many dashes as the best one, or not
    // many more blanks than the average, or a string name where most lines have one. The line with
    // the most dashes always does.
    bool LooksLikeTab(int line) const;

private:
    struct LineFigures {
        int m_Dashes;
        int m_Blanks;  // over the width of the whole run
        bool m_IsNamed;
    };

    void CountCharacters(const TabText& text, int width);
    void FindNamedLines(const TabText& text, int width);

    LineRange m_Lines;
    std::vector<LineFigures> m_Figures;
    int m_MaxDashes = 0;
    int m_AverageBlanks = 0;
};

}  // namespace tabulorix
