#include "Chord.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "Ascii.h"

namespace tabulorix {

namespace {

constexpr std::string_view kSixNine = "6/9";

struct Spelling {
    std::string_view m_Text;
    ChordTokenKind m_Kind;
};

// Longer ones before those that they start with.
constexpr std::array<Spelling, 8> kSpellings = {{{"maj", ChordTokenKind::Major},
                                                 {"min", ChordTokenKind::Minor},
                                                 {"mi", ChordTokenKind::Minor},
                                                 {"sus", ChordTokenKind::Suspended},
                                                 {"add", ChordTokenKind::Added},
                                                 {"dim", ChordTokenKind::Diminished},
                                                 {"aug", ChordTokenKind::Augmented},
                                                 {"m", ChordTokenKind::Minor}}};

bool StartsWithIgnoringCase(std::string_view text, std::string_view spelling) {
    return text.size() >= spelling.size() &&
           std::equal(spelling.begin(), spelling.end(), text.begin(),
                      [](char known, char read) { return known == ToLower(read); });
}

const Spelling* FindSpelling(std::string_view letters) {
    for (const Spelling& spelling : kSpellings) {
        if (StartsWithIgnoringCase(letters, spelling.m_Text)) {
            return &spelling;
        }
    }
    return nullptr;
}

void AppendLetterTokens(std::string_view letters, std::vector<ChordToken>& tokens) {
    while (const Spelling* spelling = FindSpelling(letters)) {
        const std::string_view read = letters.substr(0, spelling->m_Text.size());
        // Case counts for the single letter only: CM7 is a major seventh, Cm7 a minor chord.
        const ChordTokenKind kind = read == "M" ? ChordTokenKind::Major : spelling->m_Kind;
        tokens.push_back({kind, std::string(read)});
        letters.remove_prefix(read.size());
    }
}

void AppendNumberTokens(std::string_view part, std::vector<ChordToken>& tokens) {
    if (std::none_of(part.begin(), part.end(), IsDigit)) {
        return;
    }
    while (!part.empty()) {
        const std::string_view number = part.substr(0, part.find(kSixNine));
        if (!number.empty()) {
            tokens.push_back({ChordTokenKind::Number, std::string(number)});
            part.remove_prefix(number.size());
        } else {
            tokens.push_back({ChordTokenKind::SixNine, std::string(kSixNine)});
            part.remove_prefix(kSixNine.size());
        }
    }
}

void AppendParentheses(std::string_view part, std::vector<ChordToken>& tokens) {
    for (const char c : part) {
        if (c == '(') {
            tokens.push_back({ChordTokenKind::OpenParenthesis, "("});
        } else if (c == ')') {
            tokens.push_back({ChordTokenKind::CloseParenthesis, ")"});
        }
    }
}

std::string_view GetWrittenForm(const ChordToken& token) {
    switch (token.m_Kind) {
        case ChordTokenKind::Major:
            return "maj";
        case ChordTokenKind::Minor:
            return "m";
        case ChordTokenKind::Suspended:
            return "sus";
        case ChordTokenKind::Added:
            return "add";
        case ChordTokenKind::Number:
            return token.m_Text;
        case ChordTokenKind::Diminished:
            return "dim";
        case ChordTokenKind::Augmented:
            return "aug";
        case ChordTokenKind::OpenParenthesis:
            return "(";
        case ChordTokenKind::CloseParenthesis:
            return ")";
        case ChordTokenKind::SixNine:
            return kSixNine;
    }
    return {};
}

}  // namespace

void AppendChordTokens(std::string_view part, std::vector<ChordToken>& tokens) {
    if (part.empty()) {
        return;
    }
    if (IsChordNumberCharacter(part.front())) {
        AppendNumberTokens(part, tokens);
    } else if (IsLetter(part.front())) {
        AppendLetterTokens(part, tokens);
    } else {
        AppendParentheses(part, tokens);
    }
}

std::string GetChordText(const Chord& chord) {
    std::string text = chord.m_Root;
    for (const ChordToken& token : chord.m_Tokens) {
        text += GetWrittenForm(token);
    }
    if (!chord.m_Bass.empty()) {
        text += '/';
        text += chord.m_Bass;
    }
    return text;
}

}  // namespace tabulorix
