#include "NoteWriter.h"

#include <algorithm>
#include <array>

#include "XmlText.h"

namespace tabulorix {

namespace {

constexpr int kStepsPerOctave = 7;
constexpr int kSemitonesPerOctave = 12;
constexpr int kHighestMidiPitch = 127;
constexpr int kOctaveOfUnplayable = 8;
constexpr const char* kVoice = "1";

// By the exponent of their length in ticks.
constexpr std::array<const char*, 13> kNoteTypes = {"1024th", "512th", "256th",  "128th",   "64th",
                                                    "32nd",   "16th",  "eighth", "quarter", "half",
                                                    "whole",  "breve", "long"};
constexpr int kLongestExponent = static_cast<int>(kNoteTypes.size()) - 1;

void AddTies(pugi::xml_node node, const char* name, const EventReading& slice) {
    if (slice.m_IsTiedFromPrevious) {
        node.append_child(name).append_attribute("type") = "stop";
    }
    if (slice.m_IsTiedToNext) {
        node.append_child(name).append_attribute("type") = "start";
    }
}

}  // namespace

Pitch SpellPitch(int pitch, int step) noexcept {
    constexpr std::array<int, kStepsPerOctave> kNaturals = {0, 2, 4, 5, 7, 9, 11};
    const int octave = std::max(step, 0) / kStepsPerOctave;
    const auto index = static_cast<std::size_t>(std::max(step, 0) % kStepsPerOctave);
    const int alter = pitch - (octave * kSemitonesPerOctave + kNaturals[index]);
    return {"CDEFGAB"[index], alter, pitch > kHighestMidiPitch ? kOctaveOfUnplayable : octave - 1};
}

void AddPitch(pugi::xml_node node, const Pitch& pitch, const PitchElementNames& names) {
    AddElement(node, names.m_Step, std::string_view(&pitch.m_Step, 1));
    if (pitch.m_Alter != 0) {
        AddElement(node, names.m_Alter, pitch.m_Alter);
    }
    AddElement(node, names.m_Octave, pitch.m_Octave);
}

void AddMeasureRest(pugi::xml_node measure, int length) {
    pugi::xml_node node = measure.append_child("note");
    node.append_child("rest").append_attribute("measure") = "yes";
    AddElement(node, "duration", length);
    AddElement(node, "voice", kVoice);
}

void NoteWriter::Write(const EventReading& event) {
    EventReading slice = event;
    slice.m_Exponent = std::min(event.m_Exponent, kLongestExponent);
    const bool isSounding = !event.m_Notes.empty();
    for (int left = 1 << (event.m_Exponent - slice.m_Exponent); left > 0; --left) {
        slice.m_IsTiedToNext = event.m_IsTiedToNext || (isSounding && left > 1);
        WriteSlice(slice);
        slice.m_IsTiedFromPrevious = isSounding;
    }
}

void NoteWriter::WriteSlice(const EventReading& slice) {
    if (slice.m_Notes.empty()) {
        pugi::xml_node node = m_Measure.append_child("note");
        node.append_child("rest");
        AddLength(node, slice);
    }
    bool isFirst = true;
    for (const NoteReading& note : slice.m_Notes) {
        WriteNote(slice, note, isFirst);
        isFirst = false;
    }
}

void NoteWriter::WriteNote(const EventReading& slice, const NoteReading& note, bool isFirst) {
    pugi::xml_node node = m_Measure.append_child("note");
    if (!isFirst) {
        node.append_child("chord");
    }
    AddPitch(node.append_child("pitch"), SpellPitch(note.m_Pitch, note.m_Step),
             {"step", "alter", "octave"});
    AddLength(node, slice);
    if (!m_Score.m_ShowsRhythms) {
        AddElement(node, "stem", "none");
    }
    AddNotations(node, slice, note);
}

void NoteWriter::AddLength(pugi::xml_node node, const EventReading& slice) const {
    AddElement(node, "duration", 1 << slice.m_Exponent);
    AddTies(node, "tie", slice);
    AddElement(node, "voice", kVoice);
    AddElement(node, "type", kNoteTypes[static_cast<std::size_t>(slice.m_Exponent)]);
}

void NoteWriter::AddNotations(pugi::xml_node node, const EventReading& slice,
                              const NoteReading& note) const {
    pugi::xml_node notations = node.append_child("notations");
    AddTies(notations, "tied", slice);
    if (const int fret = GetFret(note); fret >= 0) {
        pugi::xml_node technical = notations.append_child("technical");
        // The format counts strings from the top.
        AddElement(technical, "string", static_cast<int>(m_Score.m_Tuning.size()) - note.m_String);
        AddElement(technical, "fret", fret);
    }
}

int NoteWriter::GetFret(const NoteReading& note) const noexcept {
    const auto string = static_cast<std::size_t>(note.m_String);
    if (string >= m_Score.m_Tuning.size() || note.m_Pitch > kHighestMidiPitch) {
        return -1;
    }
    return note.m_Pitch - m_Score.m_Tuning[string] / 2;
}

}  // namespace tabulorix
