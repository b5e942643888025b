#include "LeftOutLines.h"

#include <algorithm>

#include "Arithmetic.h"
#include "Ascii.h"
#include "Messages.h"
#include "StaveFinder.h"
#include "Wording.h"

namespace tabulorix {

namespace {

// The line numbers in the text of a message, which stand where its pattern has "%1" and "%2".
std::vector<int> ReadLineNumbers(std::string_view pattern, std::string_view text) {
    std::vector<int> numbers;
    while (!pattern.empty() && !text.empty()) {
        if (!pattern.starts_with("%1") && !pattern.starts_with("%2")) {
            pattern.remove_prefix(1);
            text.remove_prefix(1);
            continue;
        }
        pattern.remove_prefix(2);
        numbers.push_back(0);
        for (; !text.empty() && IsDigit(text.front()); text.remove_prefix(1)) {
            numbers.back() = AppendDigit(numbers.back(), text.front() - '0');
        }
    }
    return numbers;
}

}  // namespace

void MessageRecorder::SetProgress(int /*percent*/, const STR& /*caption*/) {}

void MessageRecorder::ReportResult(const ResId& message, int /*kind*/, const STR& text,
                                   int /*repeat*/) {
    const std::vector<int> numbers = ReadLineNumbers(message.GetString(), text);
    if (!numbers.empty()) {
        const int first = numbers.front();
        m_Messages.push_back({message.GetId(), {first - 1, numbers.back() - first + 1}, text});
    }
}

DashedRuns::DashedRuns(const TabText& text) {
    for (int line = 0; line < text.GetLineCount(); ++line) {
        const std::string_view characters = text.GetLine(line);
        const auto dashes = std::count(characters.begin(), characters.end(), '-');
        m_DashCounts.push_back(static_cast<int>(dashes));
    }
    for (const LineRange& lines : FindCandidateRuns(text)) {
        const auto first = m_DashCounts.begin() + lines.m_First;
        m_Runs.push_back({lines, *std::max_element(first, first + lines.m_Count)});
        m_LineCount += lines.m_Count;
        if (lines.m_Count > m_Longest.m_Count) {
            m_Longest = lines;
        }
    }
}

int DashedRuns::GetMostDashesBeside(int line) const {
    const auto behind =
        std::upper_bound(m_Runs.begin(), m_Runs.end(), line,
                         [](int l, const Run& run) { return l < run.m_Lines.m_First; });
    return behind == m_Runs.begin() ? 0 : std::prev(behind)->m_MostDashes;
}

std::string ExplainMessage(const MessageRecorder::Message& message, const DashedRuns& runs) {
    const std::string text(message.m_Text.View());
    const LineRange& lines = message.m_Lines;
    if (message.m_Id == TABULORIX_MESSAGE_LINE_IGNORED) {
        return text + " (" + Count(runs.GetDashCount(lines.m_First), "dash", "es") +
               ", where a line beside it has " +
               std::to_string(runs.GetMostDashesBeside(lines.m_First)) +
               "; more blanks than those, and no string name where they have one)";
    }
    return text + " (" + std::to_string(lines.m_Count) + " below each other, where a stave has " +
           std::to_string(kFewestStaveLines) + " at least)";
}

}  // namespace tabulorix
