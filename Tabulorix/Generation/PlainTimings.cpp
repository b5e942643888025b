#include "Arithmetic.h"
#include "RhythmStrategies.h"
#include "Ticks.h"

namespace tabulorix {

void AssignPlainTimings(BarMusic& music) {
    music.m_Length = 0;
    for (auto& [column, event] : music.m_Events) {
        event.m_Position = music.m_Length;
        event.m_Length = kEighthNoteTicks;
        music.m_Length = SaturatingAdd(music.m_Length, kEighthNoteTicks);
    }
}

}  // namespace tabulorix
