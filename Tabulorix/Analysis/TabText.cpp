#include "TabText.h"

#include <algorithm>

#include "Ascii.h"

namespace tabulorix {

namespace {

constexpr int kTabWidth = 8;
constexpr std::string_view kTabSpaces = "        ";

}  // namespace

TabText::TabText(std::string_view bytes, PluginOutput& output) : m_Output(output) {
    AppendExpanded(bytes);
    IndexLines();
}

void TabText::AppendExpanded(std::string_view bytes) {
    // Where the current line starts in m_Text, and where the bytes not yet appended start.
    int lineStart = 0;
    std::size_t pending = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] == '\t') {
            m_Text += bytes.substr(pending, i - pending);
            const int column = m_Text.GetLength() - lineStart;
            m_Text += kTabSpaces.substr(static_cast<std::size_t>(column % kTabWidth));
            pending = i + 1;
        } else if (bytes[i] == '\r' && bytes.substr(i + 1).starts_with('\n')) {
            m_Text += bytes.substr(pending, i - pending);
            pending = i + 1;
        } else if (bytes[i] == '\n') {
            m_Text += bytes.substr(pending, i + 1 - pending);
            pending = i + 1;
            lineStart = m_Text.GetLength();
        }
    }
    m_Text += bytes.substr(pending);
}

void TabText::IndexLines() {
    const std::string_view text = m_Text;
    std::size_t lineStart = 0;
    while (true) {
        const std::size_t lineEnd = std::min(text.find('\n', lineStart), text.size());
        m_LineEnds.push_back(static_cast<int>(lineEnd));
        m_MaxLineLength = std::max(m_MaxLineLength, static_cast<int>(lineEnd - lineStart));
        if (lineEnd == text.size()) {
            return;
        }
        lineStart = lineEnd + 1;
    }
}

std::string_view TabText::GetLine(int line) const {
    const auto index = static_cast<std::size_t>(line);
    const int end = m_LineEnds.at(index);
    const int start = line == 0 ? 0 : m_LineEnds[index - 1] + 1;
    return m_Text.View().substr(static_cast<std::size_t>(start),
                                static_cast<std::size_t>(end - start));
}

char TabText::GetChar(int line, int column) const {
    const std::string_view characters = GetLine(line);
    const auto index = static_cast<std::size_t>(column);
    return index < characters.size() ? characters[index] : '\0';
}

int TabText::FindChar(int line, int fromColumn, char c) const {
    const std::size_t found = GetLine(line).find(c, static_cast<std::size_t>(fromColumn));
    return found == std::string_view::npos ? -1 : static_cast<int>(found);
}

int TabText::FindWord(int line, int fromColumn, std::string_view word) const {
    const std::string_view characters = GetLine(line);
    const int endColumn = static_cast<int>(characters.size()) - fromColumn;
    std::size_t matched = 0;
    for (int column = fromColumn; column < endColumn; ++column) {
        if (ToLower(characters[static_cast<std::size_t>(column)]) != word[matched]) {
            matched = 0;
        } else if (++matched == word.size()) {
            return column + 1 - static_cast<int>(matched);
        }
    }
    return -1;
}

}  // namespace tabulorix
