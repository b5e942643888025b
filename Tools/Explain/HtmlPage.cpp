// A page of explanations:
//
//     <!DOCTYPE html> ... <style> ... </style>
//     <h1>song.tab</h1> <p>1 stave, ...</p>
//     <pre><i>  3  note values 1-2  </i><b class="rhythm">  Q ...</b> ...</pre>
//     <ol><li>Line 5 looks like ...</li></ol>
//
// There is one <pre> for the rows of a tab, with the margin in <i> and every mark in a <b>.

#include "ExplanationPage.h"
#include "RowLayout.h"
#include "ShownText.h"

namespace tabulorix {

namespace {

constexpr const char* kHead =
    "<!DOCTYPE html>\n"
    "<html lang=\"en\">\n"
    "<head>\n"
    "<meta charset=\"utf-8\">\n"
    "<meta name=\"viewport\" content=\"width=device-width\">\n"
    "<title>How the tab was read</title>\n"
    "<style>\n"
    ":root { color-scheme: light dark; --paper: #fff; --ink: #222; --pale: #888; --rule: #ddd;\n"
    "  --bar: #07808f; --rhythm: #1a7f37; --lost: #c4202b; --chord: #1f5fd0; --label: #8b3fc0;\n"
    "  --time: #9a6200; }\n"
    "@media (prefers-color-scheme: dark) {\n"
    ":root { --paper: #16181c; --ink: #dcdfe4; --pale: #7d8590; --rule: #343a42; --bar: #4fc3d0;\n"
    "  --rhythm: #57c46f; --lost: #ff7b72; --chord: #79aaff; --label: #cf9bf5; --time: #e3b341; } "
    "}\n"
    "body { background: var(--paper); color: var(--ink); margin: 1.5em;\n"
    "  font: 14px/1.4 system-ui, sans-serif; }\n"
    "h1 { font-size: 1.2em; margin: 1.5em 0 0.3em; }\n"
    "p { margin: 0.2em 0; }\n"
    "pre { font: 13px/1.25 \"DejaVu Sans Mono\", Menlo, Consolas, monospace; overflow-x: auto;\n"
    "  border: 1px solid var(--rule); border-radius: 4px; padding: 0.8em;\n"
    "  direction: ltr; unicode-bidi: bidi-override; }\n"
    "pre i { font-style: normal; color: var(--pale); }\n"
    "pre b { font-weight: normal; }\n"
    ".number, .barline { color: var(--bar); }\n"
    ".value, .rhythm { color: var(--rhythm); }\n"
    "pre .fret { font-weight: bold; }\n"
    "pre .lost { font-weight: bold; color: var(--lost); text-decoration: underline; }\n"
    ".chord { color: var(--chord); }\n"
    ".label { color: var(--label); }\n"
    ".time { color: var(--time); }\n"
    ".leftout { color: var(--lost); }\n"
    "</style>\n"
    "</head>\n"
    "<body>\n";

const char* GetClass(Mark mark) {
    switch (mark) {
        case Mark::None:
            break;
        case Mark::Number:
            return "number";
        case Mark::Value:
            return "value";
        case Mark::BarLine:
            return "barline";
        case Mark::Fret:
            return "fret";
        case Mark::Lost:
            return "lost";
        case Mark::Rhythm:
            return "rhythm";
        case Mark::Chord:
            return "chord";
        case Mark::Label:
            return "label";
        case Mark::TimeSignature:
            return "time";
        case Mark::LeftOut:
            return "leftout";
    }
    return nullptr;
}

std::string Escape(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            default:
                escaped += c;
        }
    }
    return escaped;
}

std::string Element(const std::string& name, std::string_view text) {
    return "<" + name + ">" + Escape(text) + "</" + name + ">\n";
}

std::string ShowPiece(const ShownPiece& piece) {
    const char* name = GetClass(piece.m_Mark);
    if (name == nullptr) {
        return Escape(piece.m_Text);
    }
    return "<b class=\"" + std::string(name) + "\">" + Escape(piece.m_Text) + "</b>";
}

std::string ShowRows(const std::vector<ExplainedRow>& rows) {
    if (rows.empty()) {
        return {};
    }
    const RowLayout layout(rows);
    std::string html = "<pre>";
    for (const ExplainedRow& row : rows) {
        html += "<i>" + Escape(layout.GetMargin(row)) + "</i>";
        for (const ShownPiece& piece : GetShownPieces(row)) {
            html += ShowPiece(piece);
        }
        html += "\n";
    }
    return html + "</pre>\n";
}

class HtmlPage : public ExplanationPage {
public:
    std::string Begin() const override { return kHead; }
    std::string Show(const Explanation& explanation) const override;
    std::string End() const override { return ShowRows(MakeLegend(true)) + "</body>\n</html>\n"; }
};

std::string HtmlPage::Show(const Explanation& explanation) const {
    std::string html = Element("h1", GetShownText(explanation.m_Name));
    for (const std::string& line : explanation.m_Summary) {
        html += Element("p", line);
    }
    html += ShowRows(explanation.m_Rows);
    if (!explanation.m_LeftOut.empty()) {
        html += "<ol>\n";
        for (const std::string& line : explanation.m_LeftOut) {
            html += Element("li", line);
        }
        html += "</ol>\n";
    }
    return html;
}

}  // namespace

std::unique_ptr<ExplanationPage> MakeHtmlPage() {
    return std::make_unique<HtmlPage>();
}

}  // namespace tabulorix
