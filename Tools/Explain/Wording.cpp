#include "Wording.h"

namespace tabulorix {

std::string Count(int count, std::string_view noun, std::string_view pluralEnding) {
    std::string text = std::to_string(count) + " ";
    text += noun;
    text += count == 1 ? "" : pluralEnding;
    return text;
}

const char* DescribeRhythms(bool hasIndicated, bool hasSpaced) noexcept {
    if (hasIndicated) {
        return hasSpaced ? "rhythms from a rhythm line and from spacing"
                         : "rhythms from a rhythm line";
    }
    return hasSpaced ? "rhythms from spacing" : "rhythms not shown";
}

}  // namespace tabulorix
