#include "TestSupport.h"

namespace tabulorix {

TEST_CASE("Events get positions and lengths, and chords from the line that has more of them") {
    // The level in front of the tab; "position:length" of the events, "~" for a tie, and the chord;
    // then the length of the bar, "!" when its rhythms are shown.
    const Cases cases = {
        {"0Q   Q   H\n" + MakeStave("0---0---0--"), "0:128 128:128 256:128 of 384"},
        {"1" + MakeStave("0---0---0--"), "0:128 128:128 256:128 of 384"},
        {"1Q   Q  +Q\n" + MakeStave("0-0-----0---"), "0:128 128:128 512:256~ of 768!"},
        {"2Q   Q   H\n" + MakeStave("0-----------"), "0:256 of 1024!"},
        // Two events at the start of the bar: the second one is the beat.
        {"2 H   H\n0----0---\n" + MakeStave("-1-------", 5), "0:512 512:512 of 1024!"},
        // So are two events at one mark elsewhere, which stay.
        {"2H   H\n0---0----\n" + MakeStave("---1-----", 5), "0:512 512:0 512:512 of 1024!"},
        // Positions are rounded to 32 ticks, 16 upwards.
        {"2X   H\n" + MakeStave("0---0-----"), "0:16 32:496 of 528!"},
        {"21 + a 2\n" + MakeStave("0-0-0-0--"), "0:96 96:64 160:96 256:256 of 512!"},
        // From the spacing, rounded to 64 ticks, 32 upwards.
        {"2" + MakeStave("0---0---0---0----"), "0:256 256:256 512:192 704:320 of 1024!"},
        {"2" + MakeStave("--0-----------0---"), "0:768 768:256 of 1024!"},
        {"2" + MakeStave("---0----0"), "0:640 640:128 of 1024!"},
        {"21/4\n" + MakeStave("0-0-0-0-"), "0:64 64:64 128:64 192:64 of 256!"},
        // More than fit into the only bar of a stave are eighths, and the last one fills its bar.
        {"21/4\n" + MakeStave("|0-0-0-0-0-|"), "0:128 128:128 256:128 384:128 512:256 of 256!"},
        {"21/4\n" + MakeStave("---|0-0-0-0-0-"), "0:64 64:64 128:0 128:64 192:64 of 256!"},
        // Each chord belongs to the event nearest to its centre, the earlier of two on a tie.
        {"0   C D\n" + MakeStave("0---0---0"), "0:128 128:128C 256:128 of 384"},
        {"0  C7D     A\n" + MakeStave("0---0---0---"), "0:128 128:128D 256:128A of 384"},
        {"0 C\n  D\n" + MakeStave("0---0---0"), "0:128D 128:128 256:128 of 384"},
        {"0A B C\n  G D\n" + MakeStave("0---0---0"), "0:128A 128:128C 256:128 of 384"},
        // The nearer line is a rhythm line of four eighths.
        {"0 B\nE   E   E   E\n" + MakeStave("0---0--------"), "0:128B 128:128 of 256"}};
    CheckEach(cases, [](const std::string& text) {
        const AnalysedTab tab(text.substr(1));
        const BarMusic music = ReadMusic(tab, static_cast<RhythmLevel>(text[0] - '0'));
        const auto describe = [](auto& entry) {
            const NoteEvent& event = entry.second;
            return Cat(event.m_Position, ':', event.m_Length, event.m_IsTied ? "~" : "",
                       event.m_Chord == nullptr ? "" : GetChordText(*event.m_Chord));
        };
        return Cat(Join(music.m_Events, describe), " of ", music.m_Length,
                   music.m_AreRhythmsShown ? "!" : "");
    });
}

}  // namespace tabulorix
