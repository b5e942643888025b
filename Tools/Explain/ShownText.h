// Bytes of a tab as UTF-8 that a terminal or a browser can be trusted with.
//
// A column of the tab is a byte, and one column wide as it is shown, so that what stands below each
// other for the program does so for the reader too: a character of several bytes is followed by a
// dot for each column that it takes too much. Control characters are shown as their pictures, and
// what would be invisible or change the order of others as a replacement character.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Explanation.h"

namespace tabulorix {

struct ShownPiece {
    Mark m_Mark;
    std::string m_Text;  // not empty
};

// The row's text from the left, cut where the mark changes. A line that is no UTF-8 is read as
// Windows' western code page.
std::vector<ShownPiece> GetShownPieces(const ExplainedRow& row);
// A text that stands alone, such as a name: without the dots.
std::string GetShownText(std::string_view bytes);

}  // namespace tabulorix
