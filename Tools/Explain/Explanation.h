// What the analysis made of one tab, as rows to be shown: the lines of the tab as they were read,
// each with a margin that says what the line was taken for, and rows of bar numbers and note values
// between them.

#pragma once

#include <string>
#include <vector>

namespace tabulorix {

// What a column was taken for.
enum class Mark : unsigned char {
    None,
    Number,  // of a bar
    Value,   // of a note
    BarLine,
    Fret,
    Lost,  // a fret or a chord name that is not in the score
    Rhythm,
    Chord,
    Label,
    TimeSignature,
    LeftOut
};

struct ExplainedRow {
    int m_LineNumber = 0;       // of the tab, from 1; 0 for a row that the explanation adds
    std::string m_Margin;       // empty where there is nothing to say
    std::string m_Text;         // bytes of the tab, of any value but line feeds
    std::vector<Mark> m_Marks;  // by column; columns behind the last are Mark::None
    Mark m_Rest = Mark::None;   // of the columns that are Mark::None

    Mark GetMark(std::size_t column) const noexcept {
        const Mark mark = column < m_Marks.size() ? m_Marks[column] : Mark::None;
        return mark == Mark::None ? m_Rest : mark;
    }
};

struct Explanation {
    std::string m_Name;                  // of the input, as it is shown
    std::vector<std::string> m_Summary;  // lines of ASCII; what the score holds, or what is missing
    std::vector<ExplainedRow> m_Rows;    // from the top
    std::vector<std::string> m_LeftOut;  // what was left out and why; the margins name them from 1
};

}  // namespace tabulorix
