#include "TestSupport.h"

namespace tabulorix {

TEST_CASE("Runs of lines with dashes become staves, and dropped lines are reported") {
    const std::string line = "----------";
    const std::string four = MakeStave(line, 4);
    const std::string indented = MakeStave("     " + line, 4);
    const Cases cases = {
        {"---\na---\n- -\na - b\n", ";;101 4 1 1 3 "},
        {"a-b\n" + MakeStave("-a -", 4), "1+4;1 2 3 4"},
        {MakeStave(line, 13), "0+13 6+7 12+1;0 1 2 3 4 5 6 7 8 9 10 11 12"},
        {four + "\n--\n\n" + four, "0+4 7+4;0 1 2 3 7 8 9 10;101 4 1 6 6 "},
        // 11 dashes are 65 percent of 18, rounded down.
        {"-----------\n" + MakeStave("------------------", 4), "0+5;0 1 2 3 4"},
        {"----------\n" + MakeStave("------------------", 4), "1+4;1 2 3 4;100 4 1 1 "},
        // 6 blanks are 120 percent of 26 / 5; 7 are more than that of 27 / 5.
        {indented + "--.......", "0+5;0 1 2 3 4"},
        {indented + "--...... ", "0+4;0 1 2 3;100 4 1 5 "},
        // A string name saves a line, but only in the leftmost of the best columns.
        {MakeStave("E" + line, 4) + "h - -", "0+5;0 1 2 3 4"},
        {"E--------\n" + MakeStave("E---a----", 3) + "--  c", "0+4;0 1 2 3;100 4 1 5 "},
        // The lines with one blank are judged by the blanks of the whole run, the first line's too.
        {"--\n--.......\n" + four + "--.......", "1+6;1 2 3 4 5 6;100 4 1 1 "},
        // From the top downwards, then from the bottom upwards, then what is left.
        {"--\n--\n" + MakeStave(line, 3) + "-----\n--\n",
         ";;100 4 1 1 ;100 4 1 2 ;100 4 1 7 ;100 4 1 6 ;101 4 1 3 5 "}};
    CheckEach(cases, [](const std::string& text) {
        const AnalysedTab tab(text);
        const auto describe = [](auto& s) { return Cat(s->m_FirstLine, '+', s->m_LineCount); };
        return Cat(Join(tab.m_Analysis.GetStaves(), describe), ';',
                   Join(tab.m_Analysis.GetTabLines()), tab.m_Output.m_Messages);
    });
}

TEST_CASE("A column of string names before the dashes tunes a stave, bottom line first") {
    // What stands in front of the names, and the name of each line from the top.
    const Cases cases = {{" EHGDAD", "76 90 100 110 118 128"},
                         {"EEHGDAD", "80 80 104 104 104 128"},
                         {" dHBDDC", "72 76 100 118 118 124"},
                         {" ABGAAG", "86 90 90 110 118 114"},
                         {" GDAA", "42 66 76 86"},
                         {" DeBGDAE", "80 90 100 110 118 128 60"},
                         {" iiiiiiiiiiiii", "80 90 100 110 118 128 56 66 76 86 94 104 80"}};
    CheckEach(cases, [](const std::string& names) {
        std::string text;
        for (const char name : names.substr(1)) {
            text += Cat(names[0], name, "|--e--A-\n");
        }
        return Join(AnalysedTab(text).m_Analysis.GetStaves().at(0)->m_Tuning);
    });
    // The names may stand behind the first dash of some line.
    const AnalysedTab tab(" D|---\n G|---\n D|---\n-A|---\n");
    CHECK(Join(tab.m_Analysis.GetStaves().at(0)->m_Tuning) == "42 52 62 76");
}

}  // namespace tabulorix
