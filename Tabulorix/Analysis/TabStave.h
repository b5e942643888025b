// What the analysis finds in a text: staves with their bar lines and bars, time signatures and
// section labels.
//
// Lines and columns are 0-based positions in the TabText. Times are ticks (Ticks.h). Pitches are
// Chrom2 values: twice the MIDI note number, so 80 is the low E string of a guitar.

#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "STR.h"
#include "Ticks.h"

namespace tabulorix {

struct TabStave;

// A fraction such as 3/4 on a text line above a stave.
struct TimeSignatureMark {
    int m_Line;
    int m_SlashColumn;
    int m_StartColumn;  // of the first digit
    int m_EndColumn;    // of the last digit, inclusive
    int m_Numerator;    // 1 to 99
    int m_Denominator;  // 2, 4, 8 or 16

    // The exponent of the unit in ticks: 8 for quarters, 7 for eighths; 10 for 1 and 0.
    int GetLogUnitLength() const noexcept { return GetUnitExponent(m_Denominator); }
    int GetBarLength() const noexcept { return m_Numerator << GetLogUnitLength(); }
};

// A section label such as "Chorus 2".
struct Riff {
    int m_Line;
    int m_StartColumn;
    int m_EndColumn;          // one past the last character
    std::string_view m_Name;  // the section word in lower case, from a static table
};

struct BarLine {
    bool m_IsDouble;  // occupies the next column too
    int m_Column;

    int GetColumnBehind() const noexcept { return m_Column + 1 + (m_IsDouble ? 1 : 0); }
};

// The columns of one stave between two bar lines.
struct TabBar {
    int m_FirstLine;
    int m_LineCount;
    int m_StartColumn;
    int m_Width;    // 0 where two bar lines touch
    bool m_HasTab;  // at least one dash in it
    TabStave* m_Stave;

    // Set for bars that hold tab only.
    int m_BarLength = 0;
    const TimeSignatureMark* m_TimeSignature = nullptr;  // null: the file has none

    const Riff* m_Riff = nullptr;  // null: no label stands above the bar

    int GetEndColumn() const noexcept { return m_StartColumn + m_Width; }
};

// A run of consecutive lines that each stand for one string.
struct TabStave {
    int m_FirstLine;
    int m_LineCount;                  // normally 4 to 6; may overlap the next stave in a longer run
    std::vector<BarLine> m_BarLines;  // left to right
    std::vector<std::unique_ptr<TabBar>> m_Bars;  // left to right, tiling the columns between them
    std::vector<int> m_Tuning;                    // Chrom2, one a line, bottom line first
    int m_TabBarCount = 0;                        // how many of the bars hold tab

    int GetEndLine() const noexcept { return m_FirstLine + m_LineCount; }
};

using TabStaves = std::vector<std::unique_ptr<TabStave>>;
using TimeSignatureMarks = std::vector<std::unique_ptr<TimeSignatureMark>>;
using Riffs = std::vector<std::unique_ptr<Riff>>;

// The first line that can belong to what stands above stave `index`: the line behind the stave
// before it, or line 0. At or below the stave's own first line when the two overlap: then nothing
// stands between them.
inline int GetFirstLineAbove(const TabStaves& staves, std::size_t index) noexcept {
    return index == 0 ? 0 : staves[index - 1]->GetEndLine();
}

}  // namespace tabulorix
