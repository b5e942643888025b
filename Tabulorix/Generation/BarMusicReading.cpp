#include "BarMusicReading.h"

#include "BarChords.h"
#include "EventPreparation.h"
#include "RhythmIndication.h"
#include "RhythmStrategies.h"

namespace tabulorix {

BarMusic ReadBarMusic(const TabAnalysis& analysis, const TabBar& bar) {
    BarMusic music(bar);
    FindRhythmIndication(analysis, music);
    PrepareEvents(analysis.GetText(), music);
    FindChords(analysis.GetText(), music);
    return music;
}

void PlaceInTime(BarMusic& music, RhythmLevel level) {
    AssignTimings(music, level);
    AttachChords(music);
}

}  // namespace tabulorix
