#include "RhythmStrategies.h"

namespace tabulorix {

void AssignTimings(BarMusic& music, RhythmLevel level) {
    music.m_AreRhythmsShown = true;
    if (music.m_Rhythms != nullptr && level != RhythmLevel::Never) {
        AssignIndicatedTimings(music);
    } else if (level == RhythmLevel::Always) {
        AssignSpacedTimings(music);
    } else {
        AssignPlainTimings(music);
        music.m_AreRhythmsShown = false;
    }
}

}  // namespace tabulorix
