#include "AnalysisCheck.h"

#include <algorithm>

#include "FuzzTarget.h"

namespace tabulorix {

namespace {

void CheckSpan(const TabText& text, int line, int start, int end, const char* promise) {
    Require(line >= 0 && line < text.GetLineCount(), promise);
    Require(start >= 0 && start < end && end <= text.GetLineLength(line), promise);
}

void CheckBars(const TabText& text, const TabStave& stave) {
    Require(stave.m_Bars.size() == stave.m_BarLines.size() + 1, "bars stand between bar lines");
    int column = 0;
    for (std::size_t i = 0; i < stave.m_Bars.size(); ++i) {
        const TabBar& bar = *stave.m_Bars[i];
        Require(bar.m_StartColumn == column && bar.m_Width >= 0, "bars tile their stave");
        Require(bar.m_Stave == &stave && bar.m_FirstLine == stave.m_FirstLine &&
                    bar.m_LineCount == stave.m_LineCount,
                "a bar is as high as its stave");
        Require(!bar.m_HasTab || bar.m_BarLength > 0, "a bar with tab has a length");
        if (i < stave.m_BarLines.size()) {
            Require(bar.GetEndColumn() == stave.m_BarLines[i].m_Column, "a bar ends at a bar line");
            column = stave.m_BarLines[i].GetColumnBehind();
        }
        Require(bar.GetEndColumn() <= text.GetMaxLineLength(), "a bar lies on its lines");
    }
}

void CheckStave(const TabText& text, const TabStave& stave) {
    Require(stave.m_FirstLine >= 0 && stave.m_LineCount > 0 &&
                stave.GetEndLine() <= text.GetLineCount(),
            "a stave lies in its text");
    Require(stave.m_Tuning.size() == static_cast<std::size_t>(stave.m_LineCount),
            "every string is tuned");
    Require(std::ranges::all_of(stave.m_Tuning, [](int pitch) { return pitch >= 0; }),
            "a string has a pitch");
    CheckBars(text, stave);
}

}  // namespace

void CheckAnalysis(const TabAnalysis& analysis) {
    const TabText& text = analysis.GetText();
    for (const auto& stave : analysis.GetStaves()) {
        CheckStave(text, *stave);
    }
    for (const auto& mark : analysis.GetTimeSignatures()) {
        CheckSpan(text, mark->m_Line, mark->m_StartColumn, mark->m_SlashColumn,
                  "a numerator stands on its line");
        CheckSpan(text, mark->m_Line, mark->m_SlashColumn, mark->m_EndColumn + 1,
                  "a denominator stands on its line");
    }
    for (const auto& riff : analysis.GetRiffs()) {
        CheckSpan(text, riff->m_Line, riff->m_StartColumn, riff->m_EndColumn,
                  "a label stands on its line");
    }
}

int GetMostStrings(const TabAnalysis& analysis) {
    int most = 0;
    for (const auto& stave : analysis.GetStaves()) {
        most = std::max(most, stave->m_LineCount);
    }
    return most;
}

}  // namespace tabulorix
