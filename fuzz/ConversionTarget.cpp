// The whole conversion. The first byte is the rhythm level ('0', '1' or '2' in the seeds), the rest
// is the file.

#include <algorithm>

#include "AnalysisCheck.h"
#include "Arithmetic.h"
#include "Ascii.h"
#include "FuzzTarget.h"
#include "MusicXml.h"
#include "ScoreCheck.h"
#include "ScoreTemplate.h"
#include "TabRecognition.h"

namespace tabulorix {

namespace {

// Checks what the user would see.
class CheckingOutput : public PluginOutput {
public:
    explicit CheckingOutput(int lineCount) : m_LineCount(lineCount) {}

    void SetProgress(int percent, const STR&) override {
        Require(m_Percent <= percent && percent <= 100, "progress goes from 0 to 100");
        m_Percent = percent;
    }

    void ReportResult(const ResId&, int, const STR& text, int) override {
        int previous = 1;
        int number = 0;
        for (const char c : text.View()) {
            number = IsDigit(c) ? AppendDigit(number, c - '0') : number;
            if (!IsDigit(c) && number > 0) {
                Require(previous <= number && number <= m_LineCount, "a message names lines");
                previous = number;
                number = 0;
            }
        }
        Require(IsLetter(text.View().front()) && number == 0, "a message is a sentence");
    }

private:
    int m_LineCount;
    int m_Percent = 0;
};

int CountLines(std::string_view bytes) {
    return static_cast<int>(std::count(bytes.begin(), bytes.end(), '\n')) + 1;
}

const TreeNode& GetTemplate() {
    static const std::unique_ptr<TreeNode> s_Template = CreateBlankScore();
    return *s_Template;
}

void CheckRecognition(std::string_view bytes) {
    const int percent = RecognizeTab(bytes).GetTextPercent();
    Require(percent >= 0 && percent <= 100, "no file is more than text");
}

void Convert(std::string_view bytes, RhythmLevel level) {
    CheckingOutput output(CountLines(bytes));
    const TabText text(bytes, output);
    Require(text.GetLineCount() == CountLines(bytes), "every line feed ends a line");
    const TabAnalysis analysis(text);
    CheckAnalysis(analysis);

    TreeNode score(GetTemplate());
    Converter converter(output, level);
    const bool hasBars = converter.FillScore(bytes, score);
    const ConversionSummary& summary = converter.GetSummary();
    Require(hasBars == (summary.m_BarCount > 0), "a score has bars or not");
    Require(summary.m_StaveCount == static_cast<int>(analysis.GetStaves().size()),
            "all staves are counted");
    CheckScore(score, GetMostStrings(analysis), summary);
    CheckReadsBack(score);
    Require(!CanComposeMusicXml() || !ComposeMusicXml(score).empty(),
            "other programs get something too");
}

}  // namespace

}  // namespace tabulorix

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tabulorix;
    if (size > 0) {
        const std::string_view bytes = GetInput(data, size).substr(1);
        CheckRecognition(bytes);
        Convert(bytes, static_cast<RhythmLevel>(data[0] % 3));
    }
    return 0;
}
