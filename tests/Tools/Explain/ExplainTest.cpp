// Explanations beside the scores that they explain, and what a hostile tab may put into them.

#include <map>
#include <random>

#include "Converter.h"
#include "Explain.h"
#include "ExplanationPage.h"
#include "FileSystem.h"
#include "LabelRows.h"
#include "NoteValue.h"
#include "ScoreTemplate.h"
#include "ShownText.h"
#include "TestSupport.h"

namespace tabulorix {

namespace {

using Rows = std::vector<ExplainedRow>;

constexpr RhythmLevel kLevels[] = {RhythmLevel::Never, RhythmLevel::WhenIndicated,
                                   RhythmLevel::Always};

STR ReadExample(const std::string& name) {
    const FileContents file = ReadWholeFile(STR(TABULORIX_EXAMPLES_DIR "/") + name);
    REQUIRE(file.m_Result.Succeeded());
    return file.m_Bytes;
}

const TVAList<TreeNode*>& GetList(const TreeNode& node, const char* label) {
    static const TreeNode none;
    const TreeNode* list = node.FindChild(label);
    return (list == nullptr ? none : *list).GetChildren();
}

// The lengths that a score bar holds, tied parts together, rests in parentheses: "(256) 256 512".
std::string ReadScoreBar(const TreeNode& bar) {
    std::vector<std::pair<int, bool>> lengths;
    bool isTied = false;
    int lastPart = 0;
    for (const TreeNode* item : GetList(bar, "Items")) {
        if (item->GetChildText("Type", "") != "NoteRest") {
            continue;
        }
        const auto& notes = GetList(*item, "Notes");
        const bool isRest = notes.GetCount() == 0;
        const int part = 1 << item->GetChildInt("Durn", 0);
        if (isTied || (isRest && !lengths.empty() && lengths.back().second && part < lastPart)) {
            lengths.back().first += part;
        } else {
            lengths.emplace_back(part, isRest);
        }
        isTied = !isRest && notes[0]->GetChildInt("Flags", 0) == 1;
        lastPart = part;
    }
    return Join(lengths, [](const auto& length) {
        return length.second ? Cat('(', length.first, ')') : Cat(length.first);
    });
}

// By number.
std::map<int, std::string> ReadScoreBars(std::string_view bytes, RhythmLevel level) {
    RecordingOutput output;
    const auto document = CreateBlankScore();
    Converter(output, level).FillScore(bytes, *document);
    const auto& bars = GetList(*GetList(*GetMusic(*document), "Staves")[0], "Bars");
    std::map<int, std::string> read;
    for (int number = 1; number < bars.GetCount(); ++number) {
        read[number] = ReadScoreBar(*bars[number]);
    }
    return read;
}

std::string JoinBars(const std::map<int, std::string>& bars) {
    return Join(bars, [](const auto& bar) { return Cat(bar.first, ": ", bar.second, '\n'); });
}

// "q." is 384 ticks.
int ReadValue(std::string_view value) {
    constexpr std::string_view kLetters = "whqestx";
    int ticks = 0;
    int part = 0;
    for (const char c : value) {
        const auto letter = kLetters.find(c);
        part = c == '.'                           ? part / 2
               : letter == std::string_view::npos ? 0
                                                  : kWholeNoteTicks >> letter;
        ticks += part;
    }
    return ticks;
}

// "q(e)" as "256 (128)".
std::string ReadLabel(const std::string& label) {
    const std::size_t rest = std::min(label.find('('), label.size());
    std::string read = rest > 0 ? Cat(ReadValue(label.substr(0, rest))) : "";
    if (rest < label.size()) {
        read += Cat(rest > 0 ? " (" : "(", ReadValue(label.substr(rest + 1)), ')');
    }
    return read;
}

// The texts between blanks, by their columns.
void AddTokens(const std::string& text, std::map<std::size_t, std::string>& tokens) {
    for (std::size_t start = text.find_first_not_of(' '); start != std::string::npos;
         start = text.find_first_not_of(' ', start)) {
        const std::size_t end = std::min(text.find(' ', start), text.size());
        tokens[start] += text.substr(start, end - start);
        start = end;
    }
}

// The bars of the rows with the values that stand below each number and right of it.
std::map<int, std::string> ReadExplainedBars(const Explanation& explanation) {
    std::map<int, std::string> bars;
    std::map<std::size_t, std::string> numbers;
    for (const ExplainedRow& row : explanation.m_Rows) {
        if (row.m_Rest == Mark::Number) {
            AddTokens(row.m_Text, numbers);
        } else if (row.m_Rest == Mark::Value) {
            std::map<std::size_t, std::string> values;
            AddTokens(row.m_Text, values);
            for (const auto& [column, value] : values) {
                std::string& bar = bars[std::stoi(std::prev(numbers.upper_bound(column))->second)];
                bar += Cat(bar.empty() ? "" : " ", ReadLabel(value));
            }
        } else if (row.m_Margin.starts_with("string 1 ")) {
            continue;
        } else if (!row.m_Margin.starts_with("string ")) {
            numbers.clear();
        }
    }
    return bars;
}

std::string GetMargins(const std::string& bytes, RhythmLevel level = RhythmLevel::WhenIndicated) {
    std::string margins;
    for (const ExplainedRow& row : Explain(bytes, level).m_Rows) {
        margins += row.m_Margin.empty() || row.m_Margin.starts_with("string ")
                       ? ""
                       : Cat('[', row.m_Margin, ']');
    }
    return margins;
}

// The rows of bar numbers and notes.
std::string GetAddedRows(const std::string& bytes, RhythmLevel level) {
    std::string rows;
    for (const ExplainedRow& row : Explain(bytes, level).m_Rows) {
        if (row.m_Rest == Mark::Number || row.m_Rest == Mark::Value) {
            rows += Cat('[', row.m_Text, ']');
        }
    }
    return rows;
}

std::string JoinLines(const Rows& rows) {
    std::string text;
    for (const ExplainedRow& row : rows) {
        text += row.m_LineNumber > 0 ? row.m_Text + '\n' : "";
    }
    return text;
}

}  // namespace

TEST_CASE("bars and note values are those of the score") {
    for (const char* name :
         {"amazing_grace.tab", "drunken_sailor.tab", "frere_jacques.tab", "greensleeves.tab",
          "ode_to_joy.tab", "scarborough_fair.tab", "two_fife_tunes.tab", "walking_blues.btab"}) {
        for (const RhythmLevel level : kLevels) {
            CAPTURE(std::string(name));
            const STR bytes = ReadExample(name);
            const Explanation explanation = Explain(bytes, level);
            CHECK(JoinBars(ReadExplainedBars(explanation)) ==
                  JoinBars(ReadScoreBars(bytes, level)));
            CHECK(JoinLines(explanation.m_Rows) == bytes.View());
        }
    }
}

TEST_CASE("margins say what a line was taken for, and which bars take it") {
    const std::string bars = MakeStave("-0---1---2---3---|-0-------1-------|");
    CheckEach(
        {{"Words\n\n" + bars, "[text][stave 1, bars][notes]"},
         {"Verse 2    3/4\n Am      G\n" + bars,
          "[label, bar 1][time 3/4, bar 1][chords 1][stave 1, bars][notes]"},
         {" Q   Q   Q   Q     H       H\n" + bars + " 1   2   3   4     1   2   3   4\n\n" + bars,
          "[note values 1-2][stave 1, bars][notes][counts 3-4][stave 2, bars][notes]"},
         {"7/8 -- no run --\n" + bars + "Solo 4/4\n",
          "[left out (1)][time 7/8, bar 1][stave 1, bars][notes][label, no bar]"},
         {"--Chorus--\n\n--Verse 2/4 3/4 4/4 6/8 2/2\n\n" + bars,
          "[left out (1)][label, no bar][left out (2)][label, bar 1][time 2/4, bar 1]"
          "[time 3/4, no bar][and more][stave 1, bars][notes]"}},
        [](const std::string& bytes) { return GetMargins(bytes); });
    CHECK(GetMargins(" Q   Q   Q   Q     H       H\n" + bars, RhythmLevel::Never) ==
          "[rhythm, unused][stave 1, bars][notes]");
}

TEST_CASE("what is not in the score is shown where it stands") {
    // A bar without notes, digits without a gap between them, which need two rows, and two events
    // that the spacing puts at one time.
    CheckEach(
        {{MakeStave("-0---|-----|-1---|"), "[1     -     2][ e           e]"},
         {MakeStave("-45678-----------|"), "[1][ e e e][  e e]"}},
        [](const std::string& bytes) { return GetAddedRows(bytes, RhythmLevel::WhenIndicated); });
    CHECK(GetAddedRows(MakeStave("-678--------------------------------------|"),
                       RhythmLevel::Always) == "[1][ s h...][  +]");
    // A grace note before the first beat, a bar that is not as long as its time signature says, and
    // a muted string.
    const std::string tab = "  Q   Q   H       Q   H\n" + MakeStave("0-1---2---3-----|-0---x---|");
    CHECK(GetAddedRows(tab, RhythmLevel::WhenIndicated) ==
          "[1                2:h.][* q   q   h       q   (h)]");
    const Explanation explanation = Explain(tab, RhythmLevel::WhenIndicated);
    const ExplainedRow& string = explanation.m_Rows.at(2);
    CHECK(Join(std::vector<std::size_t>{0, 2, 16, 18, 22},
               [&](std::size_t column) { return static_cast<int>(string.GetMark(column)); }) ==
          Join(std::vector<Mark>{Mark::Lost, Mark::Fret, Mark::BarLine, Mark::Fret, Mark::Lost},
               [](Mark mark) { return static_cast<int>(mark); }));
}

TEST_CASE("nothing of a tab gets lost, and none of its bytes acts on the page") {
    std::mt19937 random(1);
    for (int i = 0; i < 60; ++i) {
        std::string bytes = "e|---\x1b[31m--\xc2\x9b--\xe2\x80\xae--<i>&-\n";
        for (int c = 0; c < 400; ++c) {
            constexpr std::string_view kFrequent = "---------01x|QHE4/ \n\n";
            const auto value = random();
            bytes += value % 40 == 0 ? static_cast<char>(value >> 8)
                                     : kFrequent[value % kFrequent.size()];
        }
        const Explanation explanation = Explain(bytes, kLevels[i % 3]);
        RecordingOutput output;
        const TabText text(bytes, output);
        for (const ExplainedRow& row : explanation.m_Rows) {
            if (row.m_LineNumber > 0 && explanation.m_Summary.front() != "not a tab") {
                CHECK(row.m_Text == text.GetLine(row.m_LineNumber - 1));
            }
        }
        const std::string page = MakeTextPage(false)->Show(explanation);
        CHECK(std::none_of(page.begin(), page.end(),
                           [](char c) { return (c >= 0 && c < ' ' && c != '\n') || c == '\x7f'; }));
        CHECK(page.find("\xc2\x9b") == std::string::npos);
        CHECK(page.find("\xe2\x80\xae") == std::string::npos);
        CHECK(MakeHtmlPage()->Show(explanation).find("<i>&") == std::string::npos);
    }
}

TEST_CASE("characters are as wide on the page as in the tab") {
    CheckEach(
        {{"caf\xc3\xa9 -", "caf\xc3\xa9\xc2\xb7 -"},
         {"caf\xe9 \x93-", "caf\xc3\xa9 \xe2\x80\x9c-"},
         {"\xe3\x81\x82\xef\xbb\xbf-", "\xe3\x81\x82\xc2\xb7\xef\xbf\xbd\xc2\xb7\xc2\xb7-"},
         {std::string("\0\x1b\x7f\r-", 5), "\xe2\x90\x80\xe2\x90\x9b\xe2\x90\xa1\xe2\x90\x8d-"},
         {"\xc0\x9b\xed\xa0\x80-", "\xc3\x80\xe2\x80\xba\xc3\xad\xc2\xa0\xe2\x82\xac-"}},
        [](const std::string& text) {
            ExplainedRow row;
            row.m_Text = text;
            return Join(GetShownPieces(row), [](const auto& piece) { return piece.m_Text; });
        });
    CHECK(GetShownText("caf\xc3\xa9") == "caf\xc3\xa9");
}

TEST_CASE("a file without a stave tells what is missing") {
    const auto explain = [](const std::string& bytes) {
        const Explanation explanation = Explain(bytes, RhythmLevel::WhenIndicated);
        return Join(explanation.m_Summary, [](const auto& line) { return '[' + line + ']'; }) +
               Join(explanation.m_Rows, [](const auto& row) { return '{' + row.m_Margin + '}'; });
    };
    CheckEach(
        {{"", "[not a tab] [it is empty]"},
         {"a-b\n\n---\n",
          "[not a tab] [no line has more than 10 dashes; the most is 3]"
          " [these lines come nearest:]{1 dash} {3 dashes}"},
         {std::string("-\0-\0-\0", 6),
          "[not a tab] [no line has more than 10 dashes; the most is 3] [only 50 % of its bytes are"
          " text (3 of 6); 95 % must be. The commonest other byte is 0x00, 3 times] [text with such"
          " bytes is UTF-16 as a rule: save it as UTF-8 or ANSI] [these lines come nearest:]"
          "{3 dashes}"},
         {"-----------\n\n--\r-\n--",
          "[there is no tab stave in it, so it has no score]"
          " [a stave takes 4 lines below each other with two dashes or more: 3 have; at most 2 of"
          " them stand below each other, in line 3 first] [carriage returns without a line feed"
          " behind them, which end no line: 1]{left out (1)} {} {left out (2)} {left out (2)}"}},
        explain);
    CHECK(Explain(Repeat("--------------\n", 3), RhythmLevel::Never).m_LeftOut.at(0) ==
          "Lines 1 to 3 inclusive don't seem to be part of a real stave so they have been ignored "
          "(3 below each other, where a stave has 4 at least)");
}

TEST_CASE("a tall run of lines is shown in proportion to its size") {
    const Explanation explanation =
        Explain(MakeStave("--0-------1-----|", 600), RhythmLevel::Always);
    CHECK(explanation.m_Rows.size() < 700);
    CHECK(explanation.m_Rows.back().m_Margin == "and 96 staves");
    CHECK(explanation.m_Summary.size() == 1);
    // Lines that every stave of the run would have to read again.
    const Explanation wide =
        Explain(Repeat("--\n", 3000) + Repeat("0-", 9000), RhythmLevel::Always);
    CHECK(wide.m_Summary.at(1).ends_with(" are told up to stave 1 only"));
}

TEST_CASE("note values have signs for every length") {
    CheckEach({{"1024", "w"},
               {"384", "q."},
               {"448", "q.."},
               {"320", "q~s"},
               {"1", "1024"},
               {"27", "x.~512."},
               {"6144", "4w."},
               {"0", ""},
               {"-5", ""}},
              [](const std::string& ticks) { return GetNoteValue(std::stoi(ticks)); });
    const auto rows = PlaceLabels({{0, "q"}, {1, "e."}, {2, "s"}, {4, "x"}, {5, "w"}});
    CHECK(Join(rows, [](const auto& row) { return '[' + row + ']'; }) == "[q s x] [ e.  w]");
}

}  // namespace tabulorix
