#include "TabRecognition.h"

#include <algorithm>

namespace tabulorix {

bool IsTextByte(char c) noexcept {
    return (c >= ' ' && c <= '~') || c == '\t' || c == '\n' || c == '\r';
}

int TabRecognition::GetTextPercent() const noexcept {
    return static_cast<int>(m_TextByteCount * 100 / std::max<std::int64_t>(m_ByteCount, 1));
}

TabRecognition RecognizeTab(std::string_view bytes) noexcept {
    TabRecognition found;
    std::int64_t dashes = 0;
    for (const char c : bytes) {
        ++found.m_ByteCount;
        if (IsTextByte(c)) {
            ++found.m_TextByteCount;
        }
        if (c == '\n' || c == '\r') {
            dashes = 0;
        } else if (c == '-') {
            ++dashes;
            found.m_MostDashesOnLine = std::max(found.m_MostDashesOnLine, dashes);
        }
    }
    return found;
}

}  // namespace tabulorix
