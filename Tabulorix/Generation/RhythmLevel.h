// The user's choice of which rhythms are imported.

#pragma once

namespace tabulorix {

// The values are those of the option file. Any other stored value means WhenIndicated.
enum class RhythmLevel {
    Never = 0,
    WhenIndicated = 1,  // only where a rhythm line stands beside the stave
    Always = 2          // elsewhere from the spacing of the fret numbers
};

}  // namespace tabulorix
