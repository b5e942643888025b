#include "TestSupport.h"

namespace tabulorix {

TEST_CASE("A section word and the words beside it are one label") {
    const Cases cases = {
        {"one two three four intro \n  [CODA]: 2SOLO1", "intro@8-24 coda@2-16"},
        {"a  fig. 1  b c\nx   bridge   x", "fig@0-9 bridge@4-10"},
        {"Verse   Chorus\nOutro   Pattern", "verse@0-5 chorus@8-14 pattern@8-15 outro@0-5"},
        {"Intro riff   here\nRiff Intro", "intro@0-10 intro@0-10"},
        {{"intro\0 x\npre-chorus\nPrechorus", 29}, "intro@0-5 chorus@0-10 prechorus@0-9"},
        {"riffs\nfigure\nintroduction\nsubverse\nRIFFS\nrriff", ""},
        {"Riff A    Riff B", "riff@0-6"}};  // the second one is too near to the line's end
    CheckEach(cases, [](const std::string& text) {
        return Join(AnalysedTab(text).m_Analysis.GetRiffs(), [](auto& riff) {
            return Cat(riff->m_Name, '@', riff->m_StartColumn, '-', riff->m_EndColumn);
        });
    });
}

TEST_CASE("The nearest labelled line above a stave names the bars below its labels") {
    const std::string stave = MakeStave("|------------|----|");
    const Cases cases = {{"          Verse\n" + stave, "verse -"},
                         {"           Verse\n" + stave, "- -"},
                         {"Solo   Verse\n" + stave, "solo -"},  // the last one found
                         {"Verse\n            Solo\n\n" + stave, "- solo"},
                         {"Intro\n" + stave + "                    Verse\n" + stave, "intro - - -"},
                         {"|-solo-------|----|\n" + stave + "Intro", "- - - -"}};
    CheckEach(cases, [](const std::string& text) {
        const auto name = [](auto* bar) { return bar->m_Riff ? bar->m_Riff->m_Name : "-"; };
        return Join(AnalysedTab(text).m_Analysis.GetTabBars(), name);
    });
}

}  // namespace tabulorix
