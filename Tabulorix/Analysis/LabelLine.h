// How far a section label reaches on its line.
//
// A label takes in the words beside the section word until three spaces have been met: "Chorus 2
// (x2)" is one label, and "Verse   Chorus" are two.

#pragma once

#include <compare>
#include <string_view>
#include <vector>

namespace tabulorix {

struct ColumnSpan {
    int m_Start;
    int m_End;  // one past the last column

    auto operator<=>(const ColumnSpan&) const = default;
};

// One line with at least one label. The positions that end a label are collected once, so that a
// long line with many labels costs no more than its length.
class LabelLine {
public:
    explicit LabelLine(std::string_view characters);

    // `word` lies within the line and is not empty.
    ColumnSpan FindSpanAround(const ColumnSpan& word) const;

private:
    int FindStart(int column) const;
    int FindEnd(int column) const;

    // All in ascending order.
    std::vector<int> m_Spaces;
    std::vector<int> m_Ends;      // the NULs, and the end of the line
    std::vector<int> m_NotWhite;  // everything but white space
    std::vector<int> m_Printing;  // everything but white space and NUL
};

}  // namespace tabulorix
