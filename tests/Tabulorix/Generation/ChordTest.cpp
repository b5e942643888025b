#include "ChordReader.h"
#include "TestSupport.h"

namespace tabulorix {

TEST_CASE("Chords are read from a line and spelled in one way") {
    const Cases cases = {
        {" hello [1] F#m   Bb7 AM7 E", "11-14 F#m 17-20 Bb7 21-24 Amaj7 25-26 E"},
        {"Csus4 Gadd9 DDIM Aaug Dmiadd9",
         "0-5 Csus4 6-11 Gadd9 12-16 Ddim 17-21 Aaug 22-29 Dmadd9"},
        {"C(add9) D7b5 Em7#5", "0-7 C(add9) 8-12 D7b5 13-18 Em7#5"},
        {"Cminmaj7 Ddrop7 D+ Absent", "0-8 Cmmaj7 9-15 D7 16-18 D 19-25 Ab"},
        {"D6/9 C#m6/9/G# A/Bb C/Gm", "0-4 D6/9 5-14 C#m6/9/G# 15-19 A/Bb 20-23 C/G"},
        {"Am / / / G C/9 D6/F C /G", "0-4 Am 9-10 G 11-13 C 15-19 D6/F 20-24 C/G"},
        // Only a change of the kind of character ends a chord at a root letter.
        {"AmG Am7G CG", "0-3 Am 4-7 Am7 7-8 G 9-11 C"},
        {"A  7  sus", "0-9 A7sus"},
        // Three blanks do not end a chord, four do.
        {"A   7   A    7 Am   (x2)", "0-5 A7 8-9 A 15-24 Am(2)"}};
    CheckEach(cases, [](const std::string& columns) {
        return Join(ReadChords(columns), [](const Chord& chord) {
            return Cat(chord.m_StartColumn, '-', chord.m_EndColumn, ' ', GetChordText(chord));
        });
    });
}

}  // namespace tabulorix
