// The lines that look like tab but were left out of the staves, and why.

#pragma once

#include <string>
#include <vector>

#include "PluginOutput.h"
#include "TabRun.h"
#include "TabText.h"

namespace tabulorix {

// Keeps the messages of the analysis instead of showing them.
class MessageRecorder : public PluginOutput {
public:
    struct Message {
        int m_Id;
        LineRange m_Lines;
        STR m_Text;
    };

    void SetProgress(int percent, const STR& caption) override;
    void ReportResult(const ResId& message, int kind, const STR& text, int repeat) override;

    const std::vector<Message>& GetMessages() const noexcept { return m_Messages; }

private:
    std::vector<Message> m_Messages;
};

// Rows of lines with two dashes or more, which is what staves are made of.
class DashedRuns {
public:
    explicit DashedRuns(const TabText& text);

    int GetDashCount(int line) const { return m_DashCounts.at(static_cast<std::size_t>(line)); }
    // The most dashes on a line of the run that `line` is part of.
    int GetMostDashesBeside(int line) const;
    int GetLineCount() const noexcept { return m_LineCount; }
    // The first of the longest runs; of 0 lines when there is none.
    const LineRange& GetLongest() const noexcept { return m_Longest; }

private:
    struct Run {
        LineRange m_Lines;
        int m_MostDashes;
    };

    std::vector<int> m_DashCounts;  // by line
    std::vector<Run> m_Runs;        // from the top
    LineRange m_Longest{0, 0};
    int m_LineCount = 0;
};

// What is to be shown of a message: its own words, and the figures behind them.
std::string ExplainMessage(const MessageRecorder::Message& message, const DashedRuns& runs);

}  // namespace tabulorix
