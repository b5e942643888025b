// Writes notes and rests as MusicXML. The notes of a chord follow each other, all but the first
// with <chord/>:
//
//     <note>
//         <pitch> <step>C</step> <alter>1</alter> <octave>4</octave> </pitch>
//         <duration>256</duration>
//         <tie type="start"/>
//         <voice>1</voice>
//         <type>quarter</type>
//         <stem>none</stem>                   where rhythms are not shown
//         <notations> <tied type="start"/>
//             <technical> <string>2</string> <fret>2</fret> </technical>
//         </notations>
//     </note>

#pragma once

#include <pugixml.hpp>

#include "ScoreReading.h"

namespace tabulorix {

struct Pitch {
    char m_Step;   // C to B
    int m_Alter;   // in semitones
    int m_Octave;  // 4 begins with middle C
};

// `pitch` is a MIDI note number, `step` its diatonic number. One that MIDI does not have is set
// into octave 8, which ends below its last note.
Pitch SpellPitch(int pitch, int step) noexcept;

struct PitchElementNames {
    const char* m_Step;
    const char* m_Alter;
    const char* m_Octave;
};

// Appends the three elements; an alteration of 0 is left out.
void AddPitch(pugi::xml_node node, const Pitch& pitch, const PitchElementNames& names);

// A rest for a bar of any length, in ticks.
void AddMeasureRest(pugi::xml_node measure, int length);

class NoteWriter {
public:
    // `score` must outlive this object.
    NoteWriter(const ScoreReading& score, pugi::xml_node measure)
        : m_Score(score), m_Measure(measure) {}

    // Events longer than any note value of the format come as several, tied ones.
    void Write(const EventReading& event);

private:
    void WriteSlice(const EventReading& slice);
    void WriteNote(const EventReading& slice, const NoteReading& note, bool isFirst);
    void AddLength(pugi::xml_node node, const EventReading& slice) const;
    void AddNotations(pugi::xml_node node, const EventReading& slice,
                      const NoteReading& note) const;
    // The fret at which the note lies on its string; below 0 when it has no place there.
    int GetFret(const NoteReading& note) const noexcept;

    const ScoreReading& m_Score;
    pugi::xml_node m_Measure;
};

}  // namespace tabulorix
