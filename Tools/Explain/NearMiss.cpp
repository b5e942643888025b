#include "NearMiss.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

#include "StaveFinder.h"
#include "Utf8.h"
#include "Wording.h"

namespace tabulorix {

namespace {

constexpr std::size_t kMostLinesShown = 10;
constexpr std::size_t kMostColumnsShown = 160;

struct OtherByte {
    unsigned m_Value = 0;
    std::int64_t m_Count = 0;
};

OtherByte FindCommonestOtherByte(std::string_view bytes) {
    std::array<std::int64_t, 256> counts{};
    for (const char c : bytes) {
        counts[static_cast<unsigned char>(c)] += IsTextByte(c) ? 0 : 1;
    }
    const auto most = std::max_element(counts.begin(), counts.end());
    return {static_cast<unsigned>(most - counts.begin()), *most};
}

std::string Hexadecimal(unsigned byte) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    return {'0', 'x', kDigits[byte / 16], kDigits[byte % 16]};
}

// Word processors put them in the place of the one that tabs are made of.
void MentionOtherDashes(std::string_view bytes, std::vector<std::string>& summary) {
    const std::string_view kWesternDashes[] = {"\x96", "\x97"};
    const std::string_view kUtf8Dashes[] = {"\xE2\x80\x93", "\xE2\x80\x94", "\xE2\x88\x92"};
    const auto dashes = IsUtf8(bytes) ? std::span<const std::string_view>(kUtf8Dashes)
                                      : std::span<const std::string_view>(kWesternDashes);
    int count = 0;
    for (const std::string_view dash : dashes) {
        for (std::size_t i = bytes.find(dash); i != std::string_view::npos;
             i = bytes.find(dash, i + dash.size())) {
            ++count;
        }
    }
    if (count > 0) {
        summary.push_back("dashes of another kind, which count as none: " + std::to_string(count) +
                          "; replace them with -");
    }
}

// Some old systems ended lines so.
void MentionLoneReturns(std::string_view bytes, std::vector<std::string>& summary) {
    int count = 0;
    for (std::size_t i = bytes.find('\r'); i != std::string_view::npos;
         i = bytes.find('\r', i + 1)) {
        count += bytes.substr(i + 1).starts_with('\n') ? 0 : 1;
    }
    if (count > 0) {
        summary.push_back("carriage returns without a line feed behind them, which end no line: " +
                          std::to_string(count));
    }
}

void ExplainDashes(const TabRecognition& found, std::vector<std::string>& summary) {
    if (!found.HasStringLine()) {
        summary.push_back("no line has more than " +
                          std::to_string(TabRecognition::kMostDashesInProse) +
                          " dashes; the most is " + std::to_string(found.m_MostDashesOnLine));
    }
}

void ExplainBytes(std::string_view bytes, const TabRecognition& found,
                  std::vector<std::string>& summary) {
    if (found.IsText()) {
        return;
    }
    const OtherByte other = FindCommonestOtherByte(bytes);
    summary.push_back("only " + std::to_string(found.GetTextPercent()) +
                      " % of its bytes are text (" + std::to_string(found.m_TextByteCount) +
                      " of " + std::to_string(found.m_ByteCount) + "); " +
                      std::to_string(TabRecognition::kLeastTextPercent) +
                      " % must be. The commonest other byte is " + Hexadecimal(other.m_Value) +
                      ", " + std::to_string(other.m_Count) + " times");
    if (other.m_Value == 0) {
        summary.push_back("text with such bytes is UTF-16 as a rule: save it as UTF-8 or ANSI");
    }
}

// The lines with the most dashes, from the top.
std::vector<int> FindNearestLines(const TabText& text, const DashedRuns& runs) {
    std::vector<int> lines;
    for (int line = 0; line < text.GetLineCount(); ++line) {
        if (runs.GetDashCount(line) > 0) {
            lines.push_back(line);
        }
    }
    const auto end =
        lines.begin() + static_cast<std::ptrdiff_t>(std::min(lines.size(), kMostLinesShown));
    std::partial_sort(lines.begin(), end, lines.end(), [&runs](int left, int right) {
        const int more = runs.GetDashCount(left) - runs.GetDashCount(right);
        return more > 0 || (more == 0 && left < right);
    });
    lines.erase(end, lines.end());
    std::sort(lines.begin(), lines.end());
    return lines;
}

void ShowNearestLines(std::string_view bytes, Explanation& explanation) {
    MessageRecorder messages;
    const TabText text(bytes, messages);
    const DashedRuns runs(text);
    for (const int line : FindNearestLines(text, runs)) {
        ExplainedRow row{line + 1, {}, {}, {}};
        const int dashes = runs.GetDashCount(line);
        row.m_Margin = Count(dashes, "dash", "es");
        row.m_Text = text.GetLine(line).substr(0, kMostColumnsShown);
        explanation.m_Rows.push_back(std::move(row));
    }
}

std::string DescribeRuns(const DashedRuns& runs) {
    const LineRange& longest = runs.GetLongest();
    if (runs.GetLineCount() == 1) {
        return "only one has";
    }
    std::string text = std::to_string(runs.GetLineCount()) + " have";
    if (longest.m_Count == 1) {
        return text + ", but no two of them stand below each other";
    }
    text += "; at most " + std::to_string(longest.m_Count) +
            " of them stand below each other, in line " + std::to_string(longest.m_First + 1) +
            " first";
    return longest.m_Count < kFewestStaveLines ? text
                                               : text + ", but not all of these look like tab";
}

}  // namespace

Explanation ExplainRefusal(std::string_view bytes, const TabRecognition& found) {
    Explanation explanation;
    std::vector<std::string>& summary = explanation.m_Summary;
    summary.emplace_back("not a tab");
    if (bytes.empty()) {
        summary.emplace_back("it is empty");
        return explanation;
    }
    ExplainDashes(found, summary);
    ExplainBytes(bytes, found, summary);
    MentionOtherDashes(bytes, summary);
    MentionLoneReturns(bytes, summary);
    ShowNearestLines(bytes, explanation);
    if (!explanation.m_Rows.empty()) {
        summary.emplace_back("these lines come nearest:");
    }
    return explanation;
}

void ExplainMissingStave(std::string_view bytes, const DashedRuns& runs, Explanation& explanation) {
    std::vector<std::string>& summary = explanation.m_Summary;
    summary.emplace_back(kNoStave);
    summary.push_back("a stave takes " + std::to_string(kFewestStaveLines) +
                      " lines below each other with two dashes or more: " + DescribeRuns(runs));
    MentionLoneReturns(bytes, summary);
}

}  // namespace tabulorix
