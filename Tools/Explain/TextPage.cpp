// The text of an explanation:
//
//     song.tab
//     1 stave, 2 bars, 7 notes, rhythms from a rhythm line
//
//     3  note values 1-2     Q   Q   H    W
//        stave 1, bars      1            2
//     4  string 1 E4     e|--0---1---3---|-0--------|
//        ...
//        notes               q   q   h    w

#include "ExplanationPage.h"
#include "RowLayout.h"
#include "ShownText.h"

namespace tabulorix {

namespace {

// The parameters of the terminal's sequence for colours; null for text as it is.
const char* GetColour(Mark mark) {
    switch (mark) {
        case Mark::None:
            break;
        case Mark::Number:
        case Mark::BarLine:
            return "36";
        case Mark::Value:
        case Mark::Rhythm:
            return "32";
        case Mark::Fret:
            return "1";
        case Mark::Lost:
            return "1;31";
        case Mark::Chord:
            return "34";
        case Mark::Label:
            return "35";
        case Mark::TimeSignature:
            return "33";
        case Mark::LeftOut:
            return "31";
    }
    return nullptr;
}

constexpr const char* kMarginColour = "90";

class TextPage : public ExplanationPage {
public:
    explicit TextPage(bool hasColours) : m_HasColours(hasColours) {}

    std::string Begin() const override { return {}; }
    std::string Show(const Explanation& explanation) const override;
    std::string End() const override { return ShowRows(MakeLegend(m_HasColours)); }

private:
    std::string Paint(const std::string& text, const char* colour) const;
    std::string ShowRows(const std::vector<ExplainedRow>& rows) const;

    bool m_HasColours;
};

std::string TextPage::Paint(const std::string& text, const char* colour) const {
    if (!m_HasColours || colour == nullptr || text.empty()) {
        return text;
    }
    return "\x1b[" + std::string(colour) + "m" + text + "\x1b[0m";
}

std::string TextPage::ShowRows(const std::vector<ExplainedRow>& rows) const {
    const RowLayout layout(rows);
    std::string text;
    for (const ExplainedRow& row : rows) {
        text += Paint(layout.GetMargin(row), kMarginColour);
        for (const ShownPiece& piece : GetShownPieces(row)) {
            text += Paint(piece.m_Text, GetColour(piece.m_Mark));
        }
        text += "\n";
    }
    return rows.empty() ? text : text + "\n";
}

std::string TextPage::Show(const Explanation& explanation) const {
    std::string text = Paint(GetShownText(explanation.m_Name), "1") + "\n";
    for (const std::string& line : explanation.m_Summary) {
        text += line + "\n";
    }
    text += "\n";
    text += ShowRows(explanation.m_Rows);
    int number = 0;
    for (const std::string& line : explanation.m_LeftOut) {
        text += "(" + std::to_string(++number) + ") " + line + "\n";
    }
    return explanation.m_LeftOut.empty() ? text : text + "\n";
}

}  // namespace

std::unique_ptr<ExplanationPage> MakeTextPage(bool hasColours) {
    return std::make_unique<TextPage>(hasColours);
}

}  // namespace tabulorix
