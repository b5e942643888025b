#include "Riffs.h"

#include <algorithm>
#include <array>
#include <compare>
#include <optional>
#include <set>

#include "Ascii.h"
#include "LabelLine.h"
#include "Log.h"

namespace tabulorix {

namespace {

constexpr std::array<std::string_view, 11> kSectionWords = {"intro", "riff",      "verse", "chorus",
                                                            "fig",   "prechorus", "coda",  "bridge",
                                                            "solo",  "pattern",   "outro"};

// The hit is a word of its own: digits and punctuation may touch it, letters may not.
bool StandsAlone(const TabText& text, int line, ColumnSpan word) {
    return !IsLetter(text.GetChar(line, word.m_Start - 1)) &&
           !IsLetter(text.GetChar(line, word.m_End));
}

void AppendRiffsOfLine(const TabText& text, int line, Riffs& riffs) {
    std::optional<LabelLine> labelLine;  // made for the few lines that have a label
    for (const std::string_view word : kSectionWords) {
        const int length = static_cast<int>(word.size());
        for (int column = text.FindWord(line, 0, word); column >= 0;
             column = text.FindWord(line, column + length, word)) {
            const ColumnSpan hit{column, column + length};
            if (!StandsAlone(text, line, hit)) {
                continue;
            }
            if (!labelLine) {
                labelLine.emplace(text.GetLine(line));
            }
            const ColumnSpan span = labelLine->FindSpanAround(hit);
            riffs.push_back(std::make_unique<Riff>(Riff{line, span.m_Start, span.m_End, word}));
        }
    }
}

void RemoveDuplicates(Riffs& riffs) {
    std::set<ColumnSpan> spans;  // of the line at hand
    int line = -1;
    std::erase_if(riffs, [&](const auto& riff) {
        if (riff->m_Line != line) {
            line = riff->m_Line;
            spans.clear();
        }
        return !spans.insert({riff->m_StartColumn, riff->m_EndColumn}).second;
    });
}

void DumpRiffs(const Riffs& riffs) {
    if (!HasLogSink()) {
        return;
    }
    WriteDebugLog("Riff labels\n");
    for (const auto& riff : riffs) {
        WriteDebugLog(STR("Riff ") + riff->m_Name + "\tm_Line == " + STR::FromInt(riff->m_Line) +
                      "\tm_StartColumn == " + STR::FromInt(riff->m_StartColumn) +
                      "\tm_EndColumn == " + STR::FromInt(riff->m_EndColumn) + "\n");
    }
}

// The bar whose columns hold `column`, or null.
TabBar* FindBarAt(const TabStave& stave, int column) {
    const auto behind =
        std::upper_bound(stave.m_Bars.begin(), stave.m_Bars.end(), column,
                         [](int c, const auto& bar) { return c < bar->m_StartColumn; });
    if (behind == stave.m_Bars.begin()) {
        return nullptr;
    }
    TabBar* bar = std::prev(behind)->get();
    return column < bar->GetEndColumn() ? bar : nullptr;
}

}  // namespace

Riffs FindRiffs(const TabText& text) {
    Riffs riffs;
    for (int line = 0; line < text.GetLineCount(); ++line) {
        AppendRiffsOfLine(text, line, riffs);
    }
    DumpRiffs(riffs);
    RemoveDuplicates(riffs);
    DumpRiffs(riffs);
    return riffs;
}

void AttachRiffs(const Riffs& riffs, const TabStaves& staves) {
    const auto isAbove = [](const auto& riff, int line) { return riff->m_Line < line; };
    for (std::size_t i = 0; i < staves.size(); ++i) {
        const TabStave& stave = *staves[i];
        const auto end = std::lower_bound(riffs.begin(), riffs.end(), stave.m_FirstLine, isAbove);
        if (end == riffs.begin()) {
            continue;
        }
        const int nearest = (*std::prev(end))->m_Line;
        if (nearest < GetFirstLineAbove(staves, i)) {
            continue;
        }
        for (auto it = std::lower_bound(riffs.begin(), end, nearest, isAbove); it != end; ++it) {
            const int midpoint = ((*it)->m_StartColumn + (*it)->m_EndColumn) / 2;
            if (TabBar* bar = FindBarAt(stave, midpoint)) {
                bar->m_Riff = it->get();
            }
        }
    }
}

}  // namespace tabulorix
