// Writes the bars of a score as MusicXML:
//
//     <measure number="1" implicit="yes">  implicit: not as long as its time signature says
//         <attributes>   divisions, key, time, clef and strings; only changes after bar 1
//         <direction>    a section label, as a rehearsal mark
//         <harmony>      a chord symbol, before its notes
//         <note> ...     see NoteWriter.h
//     </measure>

#pragma once

#include <pugixml.hpp>

#include "ScoreReading.h"

namespace tabulorix {

class MeasureWriter {
public:
    // `score` must outlive this object. `part` takes the measures.
    MeasureWriter(const ScoreReading& score, pugi::xml_node part) : m_Score(score), m_Part(part) {}

    // The next bar.
    void Write(const MeasureReading& measure);

private:
    // In ticks. A bar without a length is as long as its time signature says.
    int GetWrittenLength(const MeasureReading& measure) const noexcept;
    void WriteAttributes(pugi::xml_node node, const MeasureReading& measure) const;
    void WriteStaff(pugi::xml_node attributes) const;
    void WriteEvents(pugi::xml_node node, const MeasureReading& measure) const;

    const ScoreReading& m_Score;
    pugi::xml_node m_Part;
    TimeReading m_Time;  // counts as 4/4 before the first time signature
    int m_Number = 0;
};

}  // namespace tabulorix
