// Tells tablature from other files by its bytes alone: tablature is text, and at least one of its
// lines holds more dashes than prose has.

#pragma once

#include <cstdint>
#include <string_view>

namespace tabulorix {

// Printable ASCII, TAB and the characters of line ends.
bool IsTextByte(char c) noexcept;

struct TabRecognition {
    // A line with more dashes than this looks like a string; other characters may stand between.
    static constexpr int kMostDashesInProse = 10;
    static constexpr int kLeastTextPercent = 95;

    std::int64_t m_ByteCount = 0;
    std::int64_t m_TextByteCount = 0;
    // The most dashes between two line ends.
    std::int64_t m_MostDashesOnLine = 0;

    // Rounded down; 0 when there are no bytes.
    int GetTextPercent() const noexcept;
    bool HasStringLine() const noexcept { return m_MostDashesOnLine > kMostDashesInProse; }
    bool IsText() const noexcept { return GetTextPercent() >= kLeastTextPercent; }
    bool IsTab() const noexcept { return HasStringLine() && IsText(); }
};

// `bytes` are those of the file, before any conversion of line ends.
TabRecognition RecognizeTab(std::string_view bytes) noexcept;

}  // namespace tabulorix
