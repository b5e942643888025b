#include "StaveFinder.h"

#include "Messages.h"
#include "StaveBars.h"
#include "StaveTuning.h"

namespace tabulorix {

namespace {

constexpr int kLinesPerStave = 6;

bool IsCandidate(const TabText& text, int line) {
    const int first = text.FindChar(line, 0, '-');
    return first >= 0 && text.FindChar(line, first + 1, '-') >= 0;
}

STR LineNumberText(int line) {
    return STR::FromInt(line + 1);
}

void ReportLineIgnored(const TabText& text, int line) {
    const ResId message(TABULORIX_MESSAGE_LINE_IGNORED);
    text.GetOutput().ReportResult(message, PluginOutput::kResultKindWarning,
                                  STR(message, LineNumberText(line)), 1);
}

void ReportLinesIgnored(const TabText& text, const LineRange& lines) {
    const ResId message(TABULORIX_MESSAGE_LINES_IGNORED);
    text.GetOutput().ReportResult(
        message, PluginOutput::kResultKindWarning,
        STR(message, LineNumberText(lines.m_First), LineNumberText(lines.GetLast())), 1);
}

// Drops the lines at both ends that do not look like the rest of the run.
LineRange TrimRun(const TabText& text, LineRange run) {
    const TabRun statistics(text, run);
    while (!statistics.LooksLikeTab(run.m_First)) {
        ReportLineIgnored(text, run.m_First);
        ++run.m_First;
        --run.m_Count;
    }
    while (!statistics.LooksLikeTab(run.GetLast())) {
        ReportLineIgnored(text, run.GetLast());
        --run.m_Count;
    }
    return run;
}

std::unique_ptr<TabStave> MakeStave(const TabText& text, int firstLine, int lineCount) {
    auto stave = std::make_unique<TabStave>(TabStave{firstLine, lineCount, {}, {}, {}});
    FindBars(text, *stave);
    stave->m_Tuning = FindTuning(text, *stave);
    return stave;
}

// Every stave of a long run takes all the lines that remain, not just its six, so that a seventh
// string is read with the six above it. The lines below the sixth are then in several staves.
void CutIntoStaves(const TabText& text, const LineRange& run, FoundStaves& found) {
    for (int offset = 0; offset < run.m_Count; offset += kLinesPerStave) {
        found.m_Staves.push_back(MakeStave(text, run.m_First + offset, run.m_Count - offset));
    }
    for (int line = run.m_First; line <= run.GetLast(); ++line) {
        found.m_TabLines.push_back(line);
    }
}

void CheckRun(const TabText& text, LineRange run, FoundStaves& found) {
    if (run.m_Count >= kFewestStaveLines) {
        run = TrimRun(text, run);
    }
    if (run.m_Count >= kFewestStaveLines) {
        CutIntoStaves(text, run, found);
    } else {
        ReportLinesIgnored(text, run);
    }
}

}  // namespace

std::vector<LineRange> FindCandidateRuns(const TabText& text) {
    std::vector<LineRange> runs;
    for (int line = 0; line < text.GetLineCount(); ++line) {
        if (!IsCandidate(text, line)) {
            continue;
        }
        if (runs.empty() || runs.back().GetLast() != line - 1) {
            runs.push_back({line, 0});
        }
        ++runs.back().m_Count;
    }
    return runs;
}

FoundStaves FindStaves(const TabText& text) {
    FoundStaves found;
    for (const LineRange& run : FindCandidateRuns(text)) {
        CheckRun(text, run, found);
    }
    return found;
}

}  // namespace tabulorix
