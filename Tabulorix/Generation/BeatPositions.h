// A rhythm line of beat counts:
//
//     -0-2-3-5-3---2---|
//      1 + 2 + 3   4
//
// The digits start the beats, or the first kind of mark when there are no digits. The marks from
// one beat to the next divide the beat evenly.

#pragma once

#include <vector>

#include "Rhythms.h"
#include "TabAnalysis.h"

namespace tabulorix {

// Whether the bar's columns of the line hold marks of one to three kinds that are spread over the
// bar and stand apart.
bool IsBeatCountLine(const TabText& text, const TabBar& bar, int line);

class BeatPositions : public Rhythms {
public:
    // Reads the bar's columns of a line that has passed the test above.
    BeatPositions(const TabAnalysis& analysis, const TabBar& bar, int line);

    // The position between the mark at or left of the column and the next one. Left of all marks it
    // is 0. The line does not tell lengths or ties.
    int PositionAt(int column, int& length, bool& isTied) const override;

private:
    struct Mark {
        int m_Column;
        char m_Kind;  // '0' for every digit
    };
    using Marks = std::vector<Mark>;

    // A mark with its place in the bar, in ticks.
    struct Entry {
        int m_Column;
        int m_Position;
        int m_Span;
    };

    static Marks ReadMarks(const TabAnalysis& analysis, const TabBar& bar, int line);
    void PlaceMarks(const Marks& marks);
    void AppendBeat(Marks::const_iterator first, Marks::const_iterator end, int firstPart);

    std::vector<Entry> m_Entries;  // by column
    int m_BeatLength;
    int m_ColumnCount;
};

}  // namespace tabulorix
