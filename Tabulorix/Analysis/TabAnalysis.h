// The parse stage: what one text holds, from its staves down to their bars.
//
// Creating the analysis runs the whole stage; afterwards it is read-only. Lines that are dropped on
// the way are reported to the text's output.

#pragma once

#include <vector>

#include "TabStave.h"
#include "TabText.h"

namespace tabulorix {

class TabAnalysis {
public:
    // `text` must outlive the analysis.
    explicit TabAnalysis(const TabText& text);

    const TabText& GetText() const noexcept { return m_Text; }
    // The lines of the staves, ascending; each lies inside a stave.
    const std::vector<int>& GetTabLines() const noexcept { return m_TabLines; }
    const TabStaves& GetStaves() const noexcept { return m_Staves; }
    // Every bar that holds tab, stave by stave from the top, left to right. Owned by the staves.
    const std::vector<TabBar*>& GetTabBars() const noexcept { return m_TabBars; }
    // By line from the top, left to right within a line.
    const TimeSignatureMarks& GetTimeSignatures() const noexcept { return m_TimeSignatures; }
    const Riffs& GetRiffs() const noexcept { return m_Riffs; }

    bool IsInStave(int line) const noexcept;
    // Whether the digits or the slash of a time signature stand there.
    bool IsInTimeSignature(int line, int column) const noexcept;

private:
    const TabText& m_Text;
    std::vector<int> m_TabLines;
    // Declared after what their bars point to, so that they are destroyed first.
    TimeSignatureMarks m_TimeSignatures;
    Riffs m_Riffs;
    TabStaves m_Staves;
    std::vector<TabBar*> m_TabBars;
};

}  // namespace tabulorix
