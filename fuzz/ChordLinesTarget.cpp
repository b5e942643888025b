// Chord names: any line gives chords that lie on it from left to right and have a spelling.

#include "ChordReader.h"
#include "FuzzTarget.h"

namespace tabulorix {

namespace {

// "M" is spelled "maj".
constexpr std::size_t kLongestSpelling = 3;

void CheckChord(const Chord& chord, std::string_view line) {
    const auto start = static_cast<std::size_t>(chord.m_StartColumn);
    const std::string text = GetChordText(chord);
    Require(chord.m_StartColumn < chord.m_EndColumn, "a chord has a name");
    const auto length = static_cast<std::size_t>(chord.m_EndColumn - chord.m_StartColumn);
    Require(line.substr(start).starts_with(chord.m_Root), "a chord starts with its root");
    Require(text.starts_with(chord.m_Root), "a spelling starts with the root");
    Require(text.size() <= kLongestSpelling * length, "a spelling grows with the name only");
    Require(chord.m_StartColumn <= chord.GetCentreColumn() &&
                chord.GetCentreColumn() < chord.m_EndColumn,
            "a chord's centre lies on it");
}

}  // namespace

}  // namespace tabulorix

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tabulorix;
    const std::string_view line = GetInput(data, size);
    int column = 0;
    for (const Chord& chord : ReadChords(line)) {
        Require(column <= chord.m_StartColumn, "chords do not overlap");
        Require(static_cast<std::size_t>(chord.m_EndColumn) <= line.size(),
                "a chord ends on its line");
        CheckChord(chord, line);
        column = chord.m_EndColumn;
    }
    return 0;
}
