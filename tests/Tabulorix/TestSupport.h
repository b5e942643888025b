// What the tests of the conversion share: tables of texts, tabs from literals, and short texts of
// what was made from them.

#pragma once

#include <doctest/doctest.h>

#include <algorithm>
#include <functional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "BarMusicReading.h"
#include "FretCharacters.h"
#include "Log.h"
#include "TreeNodeReader.h"

namespace tabulorix {

// Texts, each with what is said of it.
using Cases = std::vector<std::pair<std::string, std::string>>;

template <class Describe>
void CheckEach(const Cases& cases, Describe describe) {
    for (const auto& c : cases) {
        CAPTURE(c.first);
        CHECK(describe(c.first) == c.second);
    }
}

// The numbers and texts behind one another.
template <class... Parts>
std::string Cat(const Parts&... parts) {
    std::ostringstream text;
    (text << ... << parts);
    return text.str();
}

// The texts of the entries, with blanks between them.
template <class Range, class Describe = std::identity>
std::string Join(const Range& range, Describe describe = {}) {
    std::string joined;
    for (const auto& entry : range) {
        joined += Cat(joined.empty() ? "" : " ", describe(entry));
    }
    return joined;
}

inline std::string Repeat(std::string_view text, int count) {
    std::string repeated;
    while (count-- > 0) {
        repeated += text;
    }
    return repeated;
}

// What is logged while it lives, each entry behind "debug: " or "error: ".
class LogRecorder {
public:
    LogRecorder() : m_Previous(SetLogSink(Record)) { s_Log.clear(); }
    ~LogRecorder() { SetLogSink(m_Previous); }
    LogRecorder(const LogRecorder&) = delete;
    LogRecorder& operator=(const LogRecorder&) = delete;

    // What came since the last call.
    std::string Take() { return std::exchange(s_Log, {}); }

private:
    static void Record(LogKind kind, std::string_view text) {
        s_Log += Cat(kind == LogKind::Debug ? "debug: " : "error: ", text);
    }

    inline static std::string s_Log;
    LogSink m_Previous;
};

// Keeps what the user would see, of a message only the numbers: id, kind, repeat, line numbers.
struct RecordingOutput : PluginOutput {
    void SetProgress(int, const STR&) override {}
    void ReportResult(const ResId& message, int kind, const STR& text, int repeat) override {
        m_Messages += Cat(';', message.GetId(), ' ', kind, ' ', repeat);
        for (const char c : text.View()) {
            m_Messages += IsDigit(c) ? Cat(c) : m_Messages.back() == ' ' ? "" : " ";
        }
    }
    std::string m_Messages;
};

// The parse stage's view of a text.
struct AnalysedTab {
    explicit AnalysedTab(std::string_view bytes) : m_Text(bytes, m_Output), m_Analysis(m_Text) {}
    RecordingOutput m_Output;
    TabText m_Text;
    TabAnalysis m_Analysis;
};

// The line, and below it the same line without its frets until there are `lineCount` of them.
inline std::string MakeStave(const std::string& topLine, int lineCount = 6) {
    std::string stave = topLine + '\n';
    std::string emptyLine = stave;
    std::replace_if(emptyLine.begin(), emptyLine.end(), IsFretCharacter, '-');
    while (--lineCount > 0) {
        stave += emptyLine;
    }
    return stave;
}

// All that the generation works out for the last of the bars with tab.
inline BarMusic ReadMusic(const AnalysedTab& tab, RhythmLevel level) {
    BarMusic music = ReadBarMusic(tab.m_Analysis, *tab.m_Analysis.GetTabBars().back());
    PlaceInTime(music, level);
    return music;
}

inline std::string GetTreeText(const TreeNode& node) {
    STR text;
    node.WriteText(text, 0);
    return std::string(text.View());
}

// The text of a tree that is written in any layout.
inline std::string GetTreeText(std::string_view tree) {
    return GetTreeText(*TreeNodeReader(tree).Read());
}

}  // namespace tabulorix
