// Writes the frame of a MusicXML file:
//
//     <?xml version="1.0" encoding="UTF-8"?>
//     <!DOCTYPE score-partwise ...>
//     <score-partwise version="3.0">
//         <identification>      the program that wrote it
//         <part-list>           the instrument: names, MIDI channel and program
//         <part id="P1">        its measures; see MeasureWriter.h
//     </score-partwise>

#include "MusicXml.h"

#include <algorithm>
#include <new>
#include <pugixml.hpp>

#include "MeasureWriter.h"
#include "ScoreReading.h"
#include "Version.h"
#include "XmlText.h"

namespace tabulorix {

namespace {

constexpr const char* kDocumentType =
    "score-partwise PUBLIC \"-//Recordare//DTD MusicXML 3.0 Partwise//EN\" "
    "\"http://www.musicxml.org/dtds/partwise.dtd\"";
constexpr const char* kPartId = "P1";
constexpr const char* kInstrumentId = "P1-I1";
constexpr const char* kPartEnd = "</part>";
constexpr const char* kIndentation = " ";
constexpr unsigned kMeasureDepth = 2;

class StringWriter : public pugi::xml_writer {
public:
    explicit StringWriter(std::string& text) : m_Text(text) {}
    void write(const void* data, std::size_t size) override {
        m_Text.append(static_cast<const char*>(data), size);
    }

private:
    std::string& m_Text;
};

void AddHead(pugi::xml_document& xml) {
    pugi::xml_node declaration = xml.append_child(pugi::node_declaration);
    declaration.append_attribute("version") = "1.0";
    declaration.append_attribute("encoding") = "UTF-8";
    xml.append_child(pugi::node_doctype).set_value(kDocumentType);
}

void AddPartList(pugi::xml_node root, const ScoreReading& score) {
    pugi::xml_node part = root.append_child("part-list").append_child("score-part");
    part.append_attribute("id") = kPartId;
    AddElement(part, "part-name", score.m_FullName);
    AddElement(part, "part-abbreviation", score.m_ShortName);
    pugi::xml_node instrument = part.append_child("score-instrument");
    instrument.append_attribute("id") = kInstrumentId;
    AddElement(instrument, "instrument-name", score.m_FullName);
    pugi::xml_node midi = part.append_child("midi-instrument");
    midi.append_attribute("id") = kInstrumentId;
    AddElement(midi, "midi-channel", score.m_MidiChannel + 1);
    AddElement(midi, "midi-program", score.m_MidiProgram + 1);
}

// The file with nothing in its part.
std::string ComposeFrame(const ScoreReading& score) {
    pugi::xml_document xml;
    AddHead(xml);
    pugi::xml_node root = xml.append_child("score-partwise");
    root.append_attribute("version") = "3.0";
    AddElement(root.append_child("identification").append_child("encoding"), "software",
               "Tabulorix " TABULORIX_VERSION_STRING);
    AddPartList(root, score);
    pugi::xml_node part = root.append_child("part");
    part.append_attribute("id") = kPartId;
    part.append_child(pugi::node_pcdata);
    std::string text;
    StringWriter writer(text);
    xml.save(writer, kIndentation, pugi::format_default, pugi::encoding_utf8);
    return text;
}

// One after the other: as a tree, all of them would take many times the memory of their text.
void AppendMeasures(std::string& text, const ScoreReading& score) {
    StringWriter output(text);
    pugi::xml_document xml;
    MeasureWriter writer(score, xml);
    const auto append = [&](const MeasureReading& measure) {
        writer.Write(measure);
        xml.first_child().print(output, kIndentation,
                                pugi::format_default | pugi::format_no_declaration,
                                pugi::encoding_utf8, kMeasureDepth);
        xml.remove_children();
    };
    std::for_each(score.m_Measures.begin(), score.m_Measures.end(), append);
    if (score.m_Measures.empty()) {
        append({});
    }
}

}  // namespace

bool CanComposeMusicXml() noexcept {
    return true;
}

std::string ComposeMusicXml(const TreeNode& document) {
    // Without memory pugixml would leave elements out. Told to use `new`, it lets the exception by.
    pugi::set_memory_management_functions([](std::size_t size) { return ::operator new(size); },
                                          [](void* memory) { ::operator delete(memory); });
    const ScoreReading score = ReadScore(document);
    std::string text = ComposeFrame(score);
    const std::size_t end = text.rfind(kPartEnd);
    const std::string behind = text.substr(end);
    text.resize(end);
    text += '\n';
    AppendMeasures(text, score);
    return text + kIndentation + behind;
}

}  // namespace tabulorix
