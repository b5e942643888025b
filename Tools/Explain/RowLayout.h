// What both kinds of page set in the same way: the margins of the rows, and the legend.

#pragma once

#include <string>
#include <vector>

#include "Explanation.h"

namespace tabulorix {

class RowLayout {
public:
    // Of rows that stand below each other.
    explicit RowLayout(const std::vector<ExplainedRow>& rows);

    // Line number and margin, as wide in all rows so that their texts are in line. Without blanks
    // at the end where no text follows.
    std::string GetMargin(const ExplainedRow& row) const;

private:
    std::size_t m_NumberWidth = 0;
    std::size_t m_MarginWidth = 0;
};

// How to read the rows that an explanation adds and, when there are colours, what these mean.
std::vector<ExplainedRow> MakeLegend(bool hasColours);

}  // namespace tabulorix
