// Tabs whose score is known: a piece is drawn by lot, printed as tab, and listed as the score that
// must come of it. The program has no part in either.

#pragma once

#include <string>
#include <vector>

#include "RhythmLevel.h"

namespace tabulorix {

struct RenderedTab {
    RhythmLevel m_Level;
    std::string m_Bytes;
    // First the instrument with its program and its stave type, then each bar: the flags and length
    // of its spacing, what stands above it, and its items:
    //
    //     Bass Guitar, 33, tuned 86 76 66 56, rhythms shown
    //     7/1024 gap 400 "Verse 2" at 32 3/4: 0/8[0/80/46 5/128/74]~ (Am7) 256/7[] ...
    //
    // An item is Sr/Durn, its notes as string/Chrom2/Diat, ~ for a tie to the next, and its chord
    // symbol.
    std::vector<std::string> m_Score;
};

// The same seed gives the same tab everywhere.
RenderedTab RenderTab(unsigned seed);

}  // namespace tabulorix
