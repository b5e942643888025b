// A rhythm line of note-value letters:
//
//      Q   E E Q.  E  H
//     -0---2-3-5---3--2------|
//
// W is a whole note, H a half, Q a quarter, E an eighth, S a sixteenth, T a thirty-second and X a
// sixty-fourth; dots behind a letter lengthen it, and x, + or - before it ties it to what was
// before.

#pragma once

#include <vector>

#include "Rhythms.h"
#include "TabStave.h"
#include "TabText.h"

namespace tabulorix {

// Whether the columns firstColumn ... endColumn - 1 of the line hold note values worth a half note
// at least, and nothing that is rather a chord name or a word. Only there; what touches them
// outside is looked at, but does not count.
bool IsNoteLengthsLine(const TabText& text, int line, int firstColumn, int endColumn);

class NoteLengths : public Rhythms {
public:
    // Reads the bar's columns of a line that has passed the test above.
    NoteLengths(const TabText& text, const TabBar& bar, int line);

    // A letter counts for its own column and for the one before it. Elsewhere the position lies
    // between those of the neighbouring letters, and the length reaches to the right one.
    int PositionAt(int column, int& length, bool& isTied) const override;

private:
    struct Mark {
        int m_Column;
        int m_Length;    // dots included
        int m_Position;  // the sum of the lengths to its left
        bool m_IsTied;
    };
    using Marks = std::vector<Mark>;

    int Interpolate(Marks::const_iterator right, int column) const;

    Marks m_Marks;  // by column
    int m_ColumnCount;
};

}  // namespace tabulorix
