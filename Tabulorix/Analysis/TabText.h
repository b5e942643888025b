// The whole input file as a grid of lines and columns.
//
// TABs are expanded to multiples of 8 and a CR LF pair is one line end, so that a column means what
// the writer of the tab saw. Every other byte stands for itself. Lines and columns are 0-based;
// messages to the user add 1 to line numbers. Read-only once built.

#pragma once

#include <string_view>
#include <vector>

#include "PluginOutput.h"
#include "STR.h"

namespace tabulorix {

class TabText {
public:
    // `bytes` is the file as it stands on disk; it is copied. The output receives the messages of
    // the analysis and must outlive the text.
    TabText(std::string_view bytes, PluginOutput& output);

    // At least 1: a text that ends with a line feed has a last, empty line.
    int GetLineCount() const noexcept { return static_cast<int>(m_LineEnds.size()); }

    // In all of these, a line outside 0 ... GetLineCount() - 1 raises std::out_of_range.

    // The characters of the line, without its line feed.
    std::string_view GetLine(int line) const;
    int GetLineLength(int line) const { return static_cast<int>(GetLine(line).size()); }
    // The character, or NUL at and beyond the line's end and before column 0: scans may treat short
    // lines as padded with NUL.
    char GetChar(int line, int column) const;
    // The column of the first `c` at or after `fromColumn`, which is not below 0; -1 when there is
    // none.
    int FindChar(int line, int fromColumn, char c) const;
    // The column at which `word` (in lower case, not empty) starts, in whatever case, or -1. Only
    // the columns fromColumn ... length - fromColumn - 1 are examined, so a search that starts
    // further right sees less of the line's end. After a partial match the search goes on behind
    // the character that failed: "rriff" holds no "riff".
    int FindWord(int line, int fromColumn, std::string_view word) const;
    int GetMaxLineLength() const noexcept { return m_MaxLineLength; }

    PluginOutput& GetOutput() const noexcept { return m_Output; }

private:
    void AppendExpanded(std::string_view bytes);
    void IndexLines();

    STR m_Text;
    // The offset of each line feed, then that of the text's end.
    std::vector<int> m_LineEnds;
    int m_MaxLineLength = 0;
    PluginOutput& m_Output;
};

}  // namespace tabulorix
