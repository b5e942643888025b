#include "TestSupport.h"

namespace tabulorix {

TEST_CASE("Columns that are the same on every line divide a stave into bars") {
    // The columns of the bar lines, "=" for a double one; then the bars, "*" where there is tab.
    const Cases cases = {
        {"e|--0--|-2-|\n" + MakeStave("B|-----|---|", 3), "1 7 11; 0+1 2+5* 8+3* 12+0"},
        {MakeStave("-- --||||--|:|--"), "2 5= 7= 11= 13; 0+2* 3+2* 7+0 9+2* 13+0 14+2*"},
        {"-9-x-X-\n-9-x-X-\n-9-x-X-\n-9-x-X-\n", "; 0+7*"},
        {"--|--|--|h|\n" + MakeStave("--|--:--|p", 3), "2 8; 0+2* 3+5* 9+2"}};
    CheckEach(cases, [](const std::string& text) {
        const AnalysedTab tab(text);
        const TabStave& stave = *tab.m_Analysis.GetStaves().at(0);
        const auto line = [](auto& l) { return Cat(l.m_Column, l.m_IsDouble ? "=" : ""); };
        const auto bar = [](auto& b) {
            return Cat(b->m_StartColumn, '+', b->m_Width, b->m_HasTab ? "*" : "");
        };
        return Cat(Join(stave.m_BarLines, line), "; ", Join(stave.m_Bars, bar));
    });
}

TEST_CASE("Time signatures are fractions above and between the staves") {
    const std::string stave = MakeStave("-------2/4---------");
    // The second digit of a denominator counts as the tens.
    const AnalysedTab tab("3/4\n112/8\nx2/2.6/8\n4/16 6/61\n3/40 3/04\n0/4 4/1 4/3 /4 4/\n/ 3/4\n" +
                          stave + "1/2/4\n12/8\n" + stave + "4/4\n");
    const auto describe = [](auto& mark) {
        return Cat(mark->m_Line, ':', mark->m_Numerator, '/', mark->m_Denominator, '@',
                   mark->m_StartColumn, '-', mark->m_EndColumn);
    };
    CHECK(Join(tab.m_Analysis.GetTimeSignatures(), describe) ==
          "0:3/4@0-2 1:12/8@1-4 2:2/2@1-3 2:6/8@5-7 3:6/16@5-8 4:3/4@0-3 13:1/2@0-2 "
          "13:2/4@2-4 14:12/8@0-3");
}

TEST_CASE("Each bar takes the time signature above it, and its length from the first of all") {
    const std::string stave = MakeStave("|----|----|");
    const std::string right = std::string(30, ' ') + "7/2\n";
    const Cases cases = {{stave, "none=1024 none=1024"},
                         {right + "  3/4\n" + stave + "\n" + stave, "3=3584 3=3584 3=3584 3=3584"},
                         {right + "   3/4\n" + stave, "7=3584 3=3584"},
                         {right + "      3/4\n" + stave, "7=3584 3=3584"},
                         {right + "       3/4\n" + stave, "7=3584 7=3584"},
                         // The topmost of several, and the leftmost on its line.
                         {right + "    5/4\n   3/4 6/8\n 4/4\n" + stave, "4=3584 5=3584"},
                         {"1/2/4\n" + stave + "12/8\n" + stave, "1=512 1=512 12=512 12=512"}};
    CheckEach(cases, [](const std::string& text) {
        return Join(AnalysedTab(text).m_Analysis.GetTabBars(), [](const TabBar* bar) {
            const TimeSignatureMark* mark = bar->m_TimeSignature;
            return Cat(mark == nullptr ? "none" : Cat(mark->m_Numerator), '=', bar->m_BarLength);
        });
    });
}

}  // namespace tabulorix
