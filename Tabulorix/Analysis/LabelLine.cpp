#include "LabelLine.h"

#include <algorithm>

#include "Ascii.h"

namespace tabulorix {

namespace {

constexpr std::ptrdiff_t kSpacesThatEnd = 3;

}  // namespace

LabelLine::LabelLine(std::string_view characters) {
    const int length = static_cast<int>(characters.size());
    for (int column = 0; column < length; ++column) {
        const char c = characters[static_cast<std::size_t>(column)];
        if (c == ' ') {
            m_Spaces.push_back(column);
        }
        if (c == '\0') {
            m_Ends.push_back(column);
        }
        if (!IsWhiteSpace(c)) {
            m_NotWhite.push_back(column);
        }
        if (!IsBlank(c)) {
            m_Printing.push_back(column);
        }
    }
    m_Ends.push_back(length);
}

ColumnSpan LabelLine::FindSpanAround(const ColumnSpan& word) const {
    return {FindStart(word.m_Start), FindEnd(word.m_End - 1)};
}

int LabelLine::FindStart(int column) const {
    const auto spacesLeft =
        std::upper_bound(m_Spaces.begin(), m_Spaces.end(), column) - m_Spaces.begin();
    const int stop =
        spacesLeft >= kSpacesThatEnd ? *(m_Spaces.begin() + spacesLeft - kSpacesThatEnd) : 0;
    return *std::lower_bound(m_NotWhite.begin(), m_NotWhite.end(), stop);
}

int LabelLine::FindEnd(int column) const {
    int stop = *std::lower_bound(m_Ends.begin(), m_Ends.end(), column);
    const auto nextSpace = std::lower_bound(m_Spaces.begin(), m_Spaces.end(), column);
    if (m_Spaces.end() - nextSpace >= kSpacesThatEnd) {
        stop = std::min(stop, *(nextSpace + kSpacesThatEnd - 1));
    }
    return *std::prev(std::upper_bound(m_Printing.begin(), m_Printing.end(), stop)) + 1;
}

}  // namespace tabulorix
