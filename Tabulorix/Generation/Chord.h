// A chord name as it is read from a line above a stave, and as it is written into the score.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Ascii.h"

namespace tabulorix {

enum class ChordTokenKind {
    Major,
    Minor,
    Suspended,
    Added,
    Number,  // written as it stands: 7, 9, 13, 7b5
    Diminished,
    Augmented,
    OpenParenthesis,
    CloseParenthesis,
    SixNine
};

struct ChordToken {
    ChordTokenKind m_Kind;
    std::string m_Text;  // as read
};

struct Chord {
    int m_StartColumn = 0;  // from the bar's first column
    int m_EndColumn = 0;    // one past the last character
    std::string m_Root;     // a letter, with # or b
    std::vector<ChordToken> m_Tokens;
    std::string m_Bass;  // as the root; empty without a bass note

    int GetCentreColumn() const noexcept {
        return m_StartColumn + (m_EndColumn - m_StartColumn) / 2;
    }
};

// The name in the spelling of the score: "Am7", "Cmaj7", "D/F#".
std::string GetChordText(const Chord& chord);

// The characters of a chord's numbers. "b" is always one of them, never a letter.
constexpr bool IsChordNumberCharacter(char c) noexcept {
    return IsDigit(c) || c == '#' || c == 'b' || c == '/';
}

// Cuts one part of a chord's suffix, all letters, all of digits and # b /, or all of other
// characters, into tokens and appends them. What no chord name knows is left out.
void AppendChordTokens(std::string_view part, std::vector<ChordToken>& tokens);

}  // namespace tabulorix
