#include "Arithmetic.h"
#include "RhythmStrategies.h"

namespace tabulorix {

namespace {

constexpr int kEighthTicks = 128;

}  // namespace

void AssignPlainTimings(BarMusic& music) {
    music.m_Length = 0;
    for (auto& [column, event] : music.m_Events) {
        event.m_Position = music.m_Length;
        event.m_Length = kEighthTicks;
        music.m_Length = SaturatingAdd(music.m_Length, kEighthTicks);
    }
}

}  // namespace tabulorix
