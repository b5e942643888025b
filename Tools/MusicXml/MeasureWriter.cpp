#include "MeasureWriter.h"

#include "EventNotes.h"
#include "HarmonyWriter.h"
#include "NoteWriter.h"
#include "XmlText.h"

namespace tabulorix {

namespace {

constexpr int kTabClefLine = 5;

void AddTime(pugi::xml_node attributes, const TimeReading& time, bool isShown) {
    pugi::xml_node node = attributes.append_child("time");
    if (!isShown) {
        node.append_attribute("print-object") = "no";
    }
    AddElement(node, "beats", time.m_Top);
    AddElement(node, "beat-type", time.m_Bottom);
}

void AddTuning(pugi::xml_node details, int line, int openString) {
    const Pitch pitch = SpellPitch(openString / 2, GetDiatonicStep(openString));
    pugi::xml_node tuning = details.append_child("staff-tuning");
    tuning.append_attribute("line") = line;
    AddPitch(tuning, pitch, {"tuning-step", "tuning-alter", "tuning-octave"});
}

void AddLabel(pugi::xml_node measure, std::string_view label) {
    pugi::xml_node direction = measure.append_child("direction");
    direction.append_attribute("placement") = "above";
    AddElement(direction.append_child("direction-type"), "rehearsal", label);
}

// Moves on without a sound, or back when events overlap.
void MoveTo(pugi::xml_node measure, int from, int to) {
    if (from != to) {
        AddElement(measure.append_child(from < to ? "forward" : "backup"), "duration",
                   from < to ? to - from : from - to);
    }
}

}  // namespace

void MeasureWriter::Write(const MeasureReading& measure) {
    pugi::xml_node node = m_Part.append_child("measure");
    node.append_attribute("number") = ++m_Number;
    m_Time = measure.m_NewTime.value_or(m_Time);
    if (GetWrittenLength(measure) != m_Time.GetLength()) {
        node.append_attribute("implicit") = "yes";
    }
    if (m_Number == 1 || measure.m_NewTime) {
        WriteAttributes(node, measure);
    }
    for (const std::string_view label : measure.m_Labels) {
        AddLabel(node, label);
    }
    WriteEvents(node, measure);
}

int MeasureWriter::GetWrittenLength(const MeasureReading& measure) const noexcept {
    return measure.m_Length > 0 ? measure.m_Length : m_Time.GetLength();
}

void MeasureWriter::WriteAttributes(pugi::xml_node node, const MeasureReading& measure) const {
    pugi::xml_node attributes = node.append_child("attributes");
    if (m_Number == 1) {
        AddElement(attributes, "divisions", kQuarterNoteTicks);
        AddElement(attributes.append_child("key"), "fifths", m_Score.m_Sharps);
    }
    AddTime(attributes, m_Time, measure.m_NewTime.has_value());
    if (m_Number == 1) {
        WriteStaff(attributes);
    }
}

void MeasureWriter::WriteStaff(pugi::xml_node attributes) const {
    pugi::xml_node clef = attributes.append_child("clef");
    AddElement(clef, "sign", "TAB");
    AddElement(clef, "line", kTabClefLine);
    if (m_Score.m_Tuning.empty()) {
        return;
    }
    pugi::xml_node details = attributes.append_child("staff-details");
    AddElement(details, "staff-lines", static_cast<int>(m_Score.m_Tuning.size()));
    int line = 0;
    for (const int openString : m_Score.m_Tuning) {
        AddTuning(details, ++line, openString);
    }
}

void MeasureWriter::WriteEvents(pugi::xml_node node, const MeasureReading& measure) const {
    if (measure.m_Events.empty()) {
        AddMeasureRest(node, GetWrittenLength(measure));
        return;
    }
    NoteWriter writer(m_Score, node);
    int position = 0;
    for (const EventReading& event : measure.m_Events) {
        MoveTo(node, position, event.m_Start);
        if (!event.m_Chord.empty()) {
            AddHarmony(node, event.m_Chord);
        }
        writer.Write(event);
        position = event.GetEnd();
    }
    MoveTo(node, position, measure.m_Length);
}

}  // namespace tabulorix
