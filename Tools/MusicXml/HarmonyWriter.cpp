#include "HarmonyWriter.h"

#include <array>

#include "Ascii.h"
#include "XmlText.h"

namespace tabulorix {

namespace {

struct ChordKind {
    std::string_view m_Suffix;
    const char* m_Name;
};

constexpr std::array<ChordKind, 31> kKinds = {{{"", "major"},
                                               {"maj", "major"},
                                               {"m", "minor"},
                                               {"aug", "augmented"},
                                               {"dim", "diminished"},
                                               {"5", "power"},
                                               {"6", "major-sixth"},
                                               {"m6", "minor-sixth"},
                                               {"7", "dominant"},
                                               {"maj7", "major-seventh"},
                                               {"m7", "minor-seventh"},
                                               {"mmaj7", "major-minor"},
                                               {"m(maj7)", "major-minor"},
                                               {"aug7", "augmented-seventh"},
                                               {"7aug", "augmented-seventh"},
                                               {"7#5", "augmented-seventh"},
                                               {"dim7", "diminished-seventh"},
                                               {"m7b5", "half-diminished"},
                                               {"m7(b5)", "half-diminished"},
                                               {"9", "dominant-ninth"},
                                               {"maj9", "major-ninth"},
                                               {"m9", "minor-ninth"},
                                               {"11", "dominant-11th"},
                                               {"maj11", "major-11th"},
                                               {"m11", "minor-11th"},
                                               {"13", "dominant-13th"},
                                               {"maj13", "major-13th"},
                                               {"m13", "minor-13th"},
                                               {"sus", "suspended-fourth"},
                                               {"sus4", "suspended-fourth"},
                                               {"sus2", "suspended-second"}}};

const char* FindKind(std::string_view suffix) {
    for (const ChordKind& kind : kKinds) {
        if (kind.m_Suffix == suffix) {
            return kind.m_Name;
        }
    }
    return "other";
}

// The length of the root letter and the accidental behind it; 0 when none stands at `position`.
std::size_t GetRootLength(std::string_view chord, std::size_t position) {
    if (position >= chord.size() || !IsChordRoot(chord[position])) {
        return 0;
    }
    const std::size_t next = position + 1;
    return next < chord.size() && (chord[next] == '#' || chord[next] == 'b') ? 2 : 1;
}

void AddRoot(pugi::xml_node node, std::string_view root, const char* step, const char* alter) {
    AddElement(node, step, root.substr(0, 1));
    if (root.size() > 1) {
        AddElement(node, alter, root[1] == '#' ? 1 : -1);
    }
}

void AddWords(pugi::xml_node measure, std::string_view text) {
    pugi::xml_node direction = measure.append_child("direction");
    direction.append_attribute("placement") = "above";
    AddElement(direction.append_child("direction-type"), "words", text);
}

}  // namespace

void AddHarmony(pugi::xml_node measure, std::string_view chord) {
    const std::string_view root = chord.substr(0, GetRootLength(chord, 0));
    if (root.empty()) {
        AddWords(measure, chord);
        return;
    }
    std::string_view suffix = chord.substr(root.size());
    std::string_view bass;
    // The slash of "6/9" has no root behind it.
    const std::size_t slash = suffix.rfind('/');
    if (slash != std::string_view::npos && slash + 1 < suffix.size() &&
        GetRootLength(suffix, slash + 1) == suffix.size() - slash - 1) {
        bass = suffix.substr(slash + 1);
        suffix = suffix.substr(0, slash);
    }
    pugi::xml_node harmony = measure.append_child("harmony");
    AddRoot(harmony.append_child("root"), root, "root-step", "root-alter");
    pugi::xml_node kind = harmony.append_child("kind");
    kind.append_attribute("text") = ToXmlText(suffix).c_str();
    kind.text().set(FindKind(suffix));
    if (!bass.empty()) {
        AddRoot(harmony.append_child("bass"), bass, "bass-step", "bass-alter");
    }
}

}  // namespace tabulorix
