#include "ChordReader.h"

#include <optional>
#include <string>
#include <utility>

#include "Ascii.h"

namespace tabulorix {

namespace {

// A chord may be written in parts ("A  7"), but not with more blanks between them.
constexpr int kMostBlanksInside = 3;

enum class CharacterClass { Other, Number, Letter, Blank };

CharacterClass GetClass(char c) {
    if (IsBlank(c)) {
        return CharacterClass::Blank;
    }
    if (IsChordNumberCharacter(c)) {
        return CharacterClass::Number;
    }
    return IsLetter(c) ? CharacterClass::Letter : CharacterClass::Other;
}

class Reader {
public:
    explicit Reader(std::string_view columns) : m_Columns(columns) {}

    // Nothing when no root letter is left.
    std::optional<Chord> ReadNext() {
        while (!AtEnd() && !IsChordRoot(Current())) {
            ++m_Cursor;
        }
        if (AtEnd()) {
            return std::nullopt;
        }
        Chord chord;
        chord.m_StartColumn = static_cast<int>(m_Cursor);
        chord.m_Root = ReadPitchName();
        m_End = m_Cursor;
        ReadSuffix(chord);
        m_Cursor = m_End;
        chord.m_EndColumn = static_cast<int>(m_End);
        return chord;
    }

private:
    bool AtEnd() const { return m_Cursor >= m_Columns.size(); }
    char Current() const { return At(m_Cursor); }
    char At(std::size_t column) const {
        return column < m_Columns.size() ? m_Columns[column] : '\0';
    }

    // The root letter at the cursor and the accidental directly behind it.
    std::string ReadPitchName() {
        std::string name(1, Current());
        ++m_Cursor;
        if (Current() == '#' || Current() == 'b') {
            name += Current();
            ++m_Cursor;
        }
        return name;
    }

    // The slash of "6/9", which is no bass slash.
    bool IsSlashInSuffix() const { return At(m_Cursor - 1) == '6' && At(m_Cursor + 1) == '9'; }

    void ReadSuffix(Chord& chord) {
        std::string part;
        for (int blanks = 0; !AtEnd() && blanks <= kMostBlanksInside; ++m_Cursor) {
            const char c = Current();
            if (IsBlank(c)) {
                ClosePart(part, chord);
                ++blanks;
                continue;
            }
            blanks = 0;
            if (c == '/' && !IsSlashInSuffix()) {
                ClosePart(part, chord);
                ReadBass(chord);
                return;
            }
            if (GetClass(c) != GetClass(At(m_Cursor - 1))) {
                ClosePart(part, chord);
                if (IsChordRoot(c)) {
                    return;
                }
            }
            part += c;
            m_End = m_Cursor + 1;
        }
        ClosePart(part, chord);
    }

    static void ClosePart(std::string& part, Chord& chord) {
        AppendChordTokens(part, chord.m_Tokens);
        part.clear();
    }

    // From the slash at the cursor; without a root letter behind it there is no bass.
    void ReadBass(Chord& chord) {
        ++m_Cursor;
        if (IsChordRoot(Current())) {
            chord.m_Bass = ReadPitchName();
        }
        m_End = m_Cursor;
    }

    std::string_view m_Columns;
    std::size_t m_Cursor = 0;
    std::size_t m_End = 0;  // one past the last character of the chord at hand
};

}  // namespace

std::vector<Chord> ReadChords(std::string_view columns) {
    std::vector<Chord> chords;
    Reader reader(columns);
    while (std::optional<Chord> chord = reader.ReadNext()) {
        chords.push_back(std::move(*chord));
    }
    return chords;
}

}  // namespace tabulorix
