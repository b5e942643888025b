#include "NoteLengths.h"
#include "TestSupport.h"

namespace tabulorix {

TEST_CASE("The rhythm line of a bar holds note values or else beat counts") {
    // "letters" or "counts" with the line, or "none", for the last bar.
    const auto describe = [](const std::string& text) {
        const AnalysedTab tab(text);
        const BarMusic music = ReadMusic(tab, RhythmLevel::Never);
        const bool isLetters = dynamic_cast<const NoteLengths*>(music.m_Rhythms.get()) != nullptr;
        const char* kind = isLetters ? "letters " : "counts ";
        return music.m_Rhythms == nullptr ? "none" : Cat(kind, music.m_RhythmLine);
    };
    const std::string stave = MakeStave("--------------------");
    const auto check = [&](const std::string& kind, std::initializer_list<std::string> lines) {
        for (const std::string& line : lines) {
            CAPTURE(line);
            CHECK(describe(Cat(line, '\n', stave)) == kind);
        }
    };
    // The last letter other than E decides, and each letter counts; E only counts by itself.
    check("letters 0", {"Q   Q   Q   Q", "H", "QQ  Q", "E   E   E   E", "Em E   E   E   E"});
    check("none", {"Q", "Q  QQ", "Q  QQ  E", "H#", "xH", "E   E   E", "E E E QQ",
                   "Em E#  E   E   E", "A   B   C   D", "Q   Q   Q   Q    G"});
    // The first mark, but for column 0, stands in the first quarter, the last beyond 60 percent.
    check("counts 0", {" 1 & 2 & 3 & 4 & ", " q   q   q   q", " 1           +", " 1    2    +    e",
                       "12           3", "    1        2"});
    check("none", {"     1       2", "    1       2", "1    2       3", " 1     e     +",
                   " 1  2 + e  a 3 +", " 1  A  1  A  1  A", " 1   2   3  10", " 12          3"});

    const std::string letters = " Q   Q    Q  Q\n";
    const std::string counts = " 1   2    3  4\n";
    CheckEach({{letters + letters + stave + letters, "letters 1"},
               {letters + counts + stave + letters, "letters 0"},
               {counts + "\n" + stave + letters + letters, "letters 8"},
               {counts + counts + stave + "\n" + letters, "letters 9"},
               {letters + "\n\n" + stave + "\n\n" + counts, "none"},
               {MakeStave("---", 3) + "---W---\n\n" + stave, "none"},
               // Only what stands in the bar counts, but what touches it is seen.
               {"G H  G\n" + MakeStave("||---|"), "letters 0"},
               {"    Ha\n" + MakeStave("||---|"), "none"}},
              describe);
}

TEST_CASE("A rhythm line tells the position and the length at each column") {
    const std::string stave = MakeStave("----------");
    const Cases cases = {
        {"Q. Q...+H\n" + MakeStave("---------"),
         "0/384 127/257 384/480 384/480 480/384 576/288 672/192 864/512~ 864/512~ of 1376"},
        {"Q   xH H...\n" + MakeStave("|---|---|"), "0/512 512/960 512/960 of 1472"},
        {"1 + a 2 3\n" + stave, "0 42 85 127 170 213 256 384 512 640 of 768"},
        {"6/8\n . + + .\n" + stave, "0 0 21 42 63 85 106 128 170 213 of 256"},
        // The bar starts at the last digit of a time signature.
        {"3/4 & 1 + 2\n" + MakeStave("||----------"),
         "0 0 128 192 256 320 384 448 512 640 of 768"}};
    CheckEach(cases, [](const std::string& text) {
        const AnalysedTab tab(text);
        const BarMusic music = ReadMusic(tab, RhythmLevel::Never);
        std::string positions;
        for (int column = 0; column < music.m_Bar.m_Width; ++column) {
            int length = -1;
            bool isTied = true;
            positions += Cat(music.m_Rhythms->PositionAt(column, length, isTied));
            positions += Cat(length == 0 ? "" : Cat('/', length), isTied ? "~ " : " ");
        }
        return Cat(positions, "of ", music.m_Rhythms->GetTotalLength());
    });
}

}  // namespace tabulorix
