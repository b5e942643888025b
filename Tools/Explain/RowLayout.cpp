#include "RowLayout.h"

#include <algorithm>

namespace tabulorix {

namespace {

std::string GetNumber(const ExplainedRow& row) {
    return row.m_LineNumber > 0 ? std::to_string(row.m_LineNumber) : std::string();
}

ExplainedRow MakeColourKey() {
    ExplainedRow row{0, "colours", {}, {}};
    const auto add = [&row](const char* name, Mark mark) {
        row.m_Text += row.m_Text.empty() ? "" : "  ";
        row.m_Marks.resize(row.m_Text.size(), Mark::None);
        row.m_Text += name;
        row.m_Marks.resize(row.m_Text.size(), mark);
    };
    add("bar line", Mark::BarLine);
    add("fret", Mark::Fret);
    add("not in the score", Mark::Lost);
    add("rhythm", Mark::Rhythm);
    add("chord", Mark::Chord);
    add("label", Mark::Label);
    add("time signature", Mark::TimeSignature);
    add("left out", Mark::LeftOut);
    return row;
}

}  // namespace

RowLayout::RowLayout(const std::vector<ExplainedRow>& rows) {
    for (const ExplainedRow& row : rows) {
        m_NumberWidth = std::max(m_NumberWidth, GetNumber(row).size());
        m_MarginWidth = std::max(m_MarginWidth, row.m_Margin.size());
    }
}

std::string RowLayout::GetMargin(const ExplainedRow& row) const {
    const std::string number = GetNumber(row);
    std::string margin(m_NumberWidth - number.size(), ' ');
    margin += number;
    margin += m_NumberWidth > 0 ? "  " : "";
    margin += row.m_Margin;
    if (row.m_Text.empty()) {
        margin.resize(margin.find_last_not_of(' ') + 1);
        return margin;
    }
    return margin + std::string(m_MarginWidth - row.m_Margin.size() + 2, ' ');
}

std::vector<ExplainedRow> MakeLegend(bool hasColours) {
    std::vector<ExplainedRow> legend = {
        {0, "bars", "their numbers in the score; - is not in the score", {}},
        {0, {}, "4:h. is as long as its rhythm line says, not as its time signature", {}},
        {0, "notes", "w h q e s t x: whole note, half, ... to sixty-fourth", {}},
        {0, {}, "q. dotted  q~s tied  (q) rest  + together with what stands before it", {}},
        {0, {}, "* not in the score", {}}};
    if (hasColours) {
        legend.push_back(MakeColourKey());
    }
    return legend;
}

}  // namespace tabulorix
