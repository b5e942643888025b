#include "EventNotes.h"

#include <array>
#include <cstdint>
#include <optional>

#include "Arithmetic.h"
#include "Ascii.h"
#include "BarColumns.h"

namespace tabulorix {

namespace {

constexpr int kSemitonesPerOctave = 12;
constexpr int kStepsPerOctave = 7;

// The number that all digits among the event's columns make; nothing without a digit.
std::optional<int> ReadFret(std::string_view barColumns, const NoteEvent& event) {
    std::optional<int> fret;
    for (int column = event.GetFirstColumnRead(); column < event.GetEndColumn(); ++column) {
        const auto index = static_cast<std::size_t>(column);
        if (index < barColumns.size() && IsDigit(barColumns[index])) {
            fret = AppendDigit(fret.value_or(0), barColumns[index] - '0');
        }
    }
    return fret;
}

}  // namespace

int GetDiatonicStep(int chrom2) noexcept {
    constexpr std::array<int, kSemitonesPerOctave> kSteps = {0, 0, 1, 2, 2, 3, 3, 4, 4, 5, 6, 6};
    const int pitch = chrom2 / 2;
    return kStepsPerOctave * (pitch / kSemitonesPerOctave) +
           kSteps[static_cast<std::size_t>(pitch % kSemitonesPerOctave)];
}

void AppendNotes(const TabText& text, const TabBar& bar, const NoteEvent& event,
                 std::vector<ChordNote>& notes) {
    const std::vector<int>& tuning = bar.m_Stave->m_Tuning;
    for (int string = 0; string < bar.m_LineCount; ++string) {
        const int line = bar.m_FirstLine + bar.m_LineCount - 1 - string;
        if (const std::optional<int> fret = ReadFret(GetBarColumns(text, bar, line), event)) {
            const int openString = tuning[static_cast<std::size_t>(string)];
            const int chrom2 = ClampToInt(openString + std::int64_t{2} * *fret);
            notes.push_back({string, chrom2, GetDiatonicStep(chrom2)});
        }
    }
}

}  // namespace tabulorix
