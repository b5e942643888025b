// The fret numbers on one string line of a bar.
//
// A run is a row of fret characters without a gap. Everything is worked out once from right to
// left, so that asking in the middle of a run costs nothing.

#pragma once

#include <string_view>
#include <vector>

namespace tabulorix {

class FretRuns {
public:
    // A number above this is no fret: its digits were written side by side for single frets.
    static constexpr int kHighestFret = 22;

    // `columns` is the bar's part of the string line.
    explicit FretRuns(std::string_view columns);

    int GetColumnCount() const noexcept { return static_cast<int>(m_Runs.size()) - 1; }
    // How many columns the run goes on from this one; 0 when no fret character stands there.
    int GetLength(int column) const { return At(column).m_Length; }
    // Whether the run's digits from this column on make one fret number. An x is no digit. Asked
    // where a run is.
    bool IsOneFret(int column) const { return At(column).m_Value <= kHighestFret; }

private:
    struct Run {
        int m_Length = 0;
        int m_DigitCount = 0;  // stops counting where a further digit is too much anyway
        int m_Value = 0;       // stops growing above the highest fret
    };

    static Run Prepend(char c, const Run& rest);
    const Run& At(int column) const { return m_Runs.at(static_cast<std::size_t>(column)); }

    std::vector<Run> m_Runs;  // one a column, and an empty one behind the last
};

}  // namespace tabulorix
