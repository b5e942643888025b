// The rhythm of one bar as a line of text beside its stave tells it.

#pragma once

namespace tabulorix {

class Rhythms {
public:
    virtual ~Rhythms() = default;

    // The position in ticks, from the bar's start, of a column (0 for the bar's first). `length`
    // becomes the length in ticks that is written there, 0 where the line does not tell, and
    // `isTied` whether it is marked as tied to what stands before.
    virtual int PositionAt(int column, int& length, bool& isTied) const = 0;

    // The length of the bar in ticks, as the line has it. Not negative.
    int GetTotalLength() const noexcept { return m_TotalLength; }

protected:
    int m_TotalLength = 0;
};

}  // namespace tabulorix
