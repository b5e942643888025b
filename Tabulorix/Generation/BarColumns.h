// The columns of one bar on one line of the text.

#pragma once

#include <string_view>

#include "TabStave.h"
#include "TabText.h"

namespace tabulorix {

// The characters of the line within the bar's columns: fewer than the bar's width when the line
// ends before it does. Column 0 is the bar's first column.
inline std::string_view GetBarColumns(const TabText& text, const TabBar& bar, int line) {
    const std::string_view characters = text.GetLine(line);
    const auto start = static_cast<std::size_t>(bar.m_StartColumn);
    if (start >= characters.size()) {
        return {};
    }
    return characters.substr(start, static_cast<std::size_t>(bar.m_Width));
}

}  // namespace tabulorix
