#include "TabAnalysis.h"

#include <algorithm>

#include "Riffs.h"
#include "StaveFinder.h"
#include "TimeSignatures.h"

namespace tabulorix {

TabAnalysis::TabAnalysis(const TabText& text) : m_Text(text) {
    FoundStaves found = FindStaves(text);
    m_Staves = std::move(found.m_Staves);
    m_TabLines = std::move(found.m_TabLines);
    m_TimeSignatures = FindTimeSignatures(text, m_Staves);
    m_TabBars = AssignTimeSignatures(m_Staves, m_TimeSignatures);
    m_Riffs = FindRiffs(text);
    AttachRiffs(m_Riffs, m_Staves);
}

bool TabAnalysis::IsInStave(int line) const noexcept {
    return std::binary_search(m_TabLines.begin(), m_TabLines.end(), line);
}

bool TabAnalysis::IsInTimeSignature(int line, int column) const noexcept {
    // Marks on one line may share digits ("1/2/4"), but they start and end in the same order, so it
    // is the first that ends at or behind the column, or none.
    const auto it = std::lower_bound(
        m_TimeSignatures.begin(), m_TimeSignatures.end(), column, [line](const auto& mark, int c) {
            return mark->m_Line < line || (mark->m_Line == line && mark->m_EndColumn < c);
        });
    return it != m_TimeSignatures.end() && (*it)->m_Line == line && (*it)->m_StartColumn <= column;
}

}  // namespace tabulorix
