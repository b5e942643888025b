#include "TimeSignatures.h"

#include <algorithm>

#include "Ascii.h"

namespace tabulorix {

namespace {

constexpr int kColumnTolerance = 2;

int DigitValue(char c) {
    return c - '0';
}

bool IsUsableDenominator(int denominator) {
    return denominator == 2 || denominator == 4 || denominator == 8 || denominator == 16;
}

// Null when the slash at column `slash` is not part of a usable fraction. `slash` is above 0.
std::unique_ptr<TimeSignatureMark> ReadMark(const TabText& text, int line, int slash) {
    const char before = text.GetChar(line, slash - 1);
    const char behind = text.GetChar(line, slash + 1);
    if (!IsDigit(before) || !IsDigit(behind)) {
        return nullptr;
    }
    TimeSignatureMark mark{.m_Line = line,
                           .m_SlashColumn = slash,
                           .m_StartColumn = slash - 1,
                           .m_EndColumn = slash + 1,
                           .m_Numerator = DigitValue(before),
                           .m_Denominator = DigitValue(behind)};
    if (const char tens = text.GetChar(line, slash - 2); IsDigit(tens)) {
        mark.m_Numerator += 10 * DigitValue(tens);
        mark.m_StartColumn = slash - 2;
    }
    // The second digit counts as the tens: 6/16 is 6 over 61, so dates and page numbers of two
    // digits are no time signatures.
    if (const char tens = text.GetChar(line, slash + 2); IsDigit(tens)) {
        mark.m_Denominator += 10 * DigitValue(tens);
        mark.m_EndColumn = slash + 2;
    }
    if (!IsUsableDenominator(mark.m_Denominator) || mark.m_Numerator == 0) {
        return nullptr;
    }
    return std::make_unique<TimeSignatureMark>(mark);
}

void AppendMarksOfLine(const TabText& text, int line, TimeSignatureMarks& marks) {
    for (int slash = text.FindChar(line, 0, '/'); slash >= 1;
         slash = text.FindChar(line, slash + 1, '/')) {
        if (slash >= text.GetMaxLineLength() - 1) {
            return;
        }
        if (auto mark = ReadMark(text, line, slash)) {
            marks.push_back(std::move(mark));
        }
    }
}

// The marks above one stave, ordered by column, to find the ones above a bar without walking all.
class MarksAboveStave {
public:
    // Takes the marks on lines firstLine ... endLine - 1; `marks` is ordered by line.
    MarksAboveStave(const TimeSignatureMarks& marks, int firstLine, int endLine) {
        const auto isAbove = [](const auto& mark, int line) { return mark->m_Line < line; };
        auto it = std::lower_bound(marks.begin(), marks.end(), firstLine, isAbove);
        for (; it != marks.end() && (*it)->m_Line < endLine; ++it) {
            m_Marks.push_back(it->get());
        }
        std::stable_sort(m_Marks.begin(), m_Marks.end(), [](const auto* left, const auto* right) {
            return left->m_SlashColumn < right->m_SlashColumn;
        });
    }

    // The topmost mark whose slash stands above the bar, the leftmost on one line; null without
    // one.
    const TimeSignatureMark* FindAbove(const TabBar& bar) const {
        const int first = std::max(bar.m_StartColumn - kColumnTolerance, 0);
        const int end = first + bar.m_Width;
        auto it = std::lower_bound(
            m_Marks.begin(), m_Marks.end(), first,
            [](const auto* mark, int column) { return mark->m_SlashColumn < column; });
        const TimeSignatureMark* found = nullptr;
        for (; it != m_Marks.end() && (*it)->m_SlashColumn < end; ++it) {
            if (found == nullptr || (*it)->m_Line < found->m_Line) {
                found = *it;
            }
        }
        return found;
    }

private:
    std::vector<const TimeSignatureMark*> m_Marks;
};

}  // namespace

TimeSignatureMarks FindTimeSignatures(const TabText& text, const TabStaves& staves) {
    TimeSignatureMarks marks;
    for (std::size_t i = 0; i < staves.size(); ++i) {
        for (int line = GetFirstLineAbove(staves, i); line < staves[i]->m_FirstLine; ++line) {
            AppendMarksOfLine(text, line, marks);
        }
    }
    return marks;
}

std::vector<TabBar*> AssignTimeSignatures(const TabStaves& staves,
                                          const TimeSignatureMarks& marks) {
    const TimeSignatureMark* current = marks.empty() ? nullptr : marks.front().get();
    const int barLength = current == nullptr ? kWholeNoteTicks : current->GetBarLength();
    std::vector<TabBar*> tabBars;
    for (std::size_t i = 0; i < staves.size(); ++i) {
        const MarksAboveStave above(marks, GetFirstLineAbove(staves, i), staves[i]->m_FirstLine);
        for (const auto& bar : staves[i]->m_Bars) {
            if (!bar->m_HasTab) {
                continue;
            }
            if (const TimeSignatureMark* mark = above.FindAbove(*bar)) {
                current = mark;
            }
            bar->m_TimeSignature = current;
            bar->m_BarLength = barLength;
            tabBars.push_back(bar.get());
        }
    }
    return tabBars;
}

}  // namespace tabulorix
