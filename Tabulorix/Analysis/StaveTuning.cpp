#include "StaveTuning.h"

#include <algorithm>
#include <array>
#include <optional>

#include "Ascii.h"

namespace tabulorix {

namespace {

// E2 A2 D3 G3 B3 E4 of a guitar, then E1 A1 D2 G2 B2 E3 of a bass. One array, because a stave with
// more than six lines takes its further strings from the bass and then from the start again.
constexpr std::array<int, 12> kDefaultTuning = {80, 90, 100, 110, 118, 128,
                                                56, 66, 76,  86,  94,  104};
constexpr std::size_t kBassTuningStart = 6;
constexpr int kBassLineCount = 4;

constexpr std::string_view kDefaultNames = "EADGBE";

// From this many semitones above its default, a string is taken to be tuned down to the name. A
// name below the default is never turned round: strings are slackened far more readily than
// tightened.
constexpr int kFirstDownwardOffset = 5;
constexpr int kOctave = 12;

int GetDefaultPitch(const TabStave& stave, int string) {
    const std::size_t start = stave.m_LineCount == kBassLineCount ? kBassTuningStart : 0;
    return kDefaultTuning[(start + static_cast<std::size_t>(string)) % kDefaultTuning.size()];
}

// Semitones above C. `name` is a string name in upper case; H is the German B.
int GetSemitone(char name) {
    constexpr std::array<int, 8> kSemitones = {9, 11, 0, 2, 4, 5, 7, 11};  // A to H
    return kSemitones[static_cast<std::size_t>(name - 'A')];
}

int GetDefaultSemitone(int string) {
    const auto index = static_cast<std::size_t>(string);
    return index < kDefaultNames.size() ? GetSemitone(kDefaultNames[index]) : 0;
}

int GetNamedPitch(const TabStave& stave, int string, char name) {
    int offset = GetSemitone(ToUpper(name)) - GetDefaultSemitone(string);
    if (offset >= kFirstDownwardOffset) {
        offset -= kOctave;
    }
    return GetDefaultPitch(stave, string) + 2 * offset;
}

// The line of string 0, 1, ... is counted from the bottom.
char GetStringChar(const TabText& text, const TabStave& stave, int string, int column) {
    return text.GetChar(stave.GetEndLine() - 1 - string, column);
}

// The rightmost of the columns in which the lines have their first dash.
int FindLastFirstDash(const TabText& text, const TabStave& stave) {
    int last = 0;
    for (int line = stave.m_FirstLine; line < stave.GetEndLine(); ++line) {
        last = std::max(last, text.FindChar(line, 0, '-'));
    }
    return last;
}

bool IsNameColumn(const TabText& text, const TabStave& stave, int column) {
    for (int string = 0; string < stave.m_LineCount; ++string) {
        if (!IsStringName(GetStringChar(text, stave, string, column))) {
            return false;
        }
    }
    return true;
}

std::optional<int> FindNameColumn(const TabText& text, const TabStave& stave) {
    const int end = FindLastFirstDash(text, stave);
    for (int column = 0; column < end; ++column) {
        if (IsNameColumn(text, stave, column)) {
            return column;
        }
    }
    return std::nullopt;
}

}  // namespace

bool IsStringName(char c) noexcept {
    return ToUpper(c) >= 'A' && ToUpper(c) <= 'H';
}

std::vector<int> FindTuning(const TabText& text, const TabStave& stave) {
    const std::optional<int> column = FindNameColumn(text, stave);
    std::vector<int> tuning;
    tuning.reserve(static_cast<std::size_t>(stave.m_LineCount));
    for (int string = 0; string < stave.m_LineCount; ++string) {
        tuning.push_back(
            column ? GetNamedPitch(stave, string, GetStringChar(text, stave, string, *column))
                   : GetDefaultPitch(stave, string));
    }
    return tuning;
}

}  // namespace tabulorix
