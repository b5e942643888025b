#include <doctest/doctest.h>

#include <chrono>
#include <random>

#include "Converter.h"
#include "Exceptions.h"
#include "FileSystem.h"
#include "RenderedTab.h"
#include "ScoreTemplate.h"
#include "TestSupport.h"
#include "TreeNodeReader.h"

namespace tabulorix {

namespace {

// A blank score with what a conversion needs of one; the real one takes its time.
std::unique_ptr<TreeNode> MakeSmallScore() {
    return ReadBlankScore(R"(Score { Music { StaveTypes BarSpacings { { BarNum "0" } }
        SystemStave { Bars { { Type "Bar" } } } } })");
}

// A path at which there is no file, and none is left behind.
struct ScorePath {
    ScorePath() : m_Path(CreateUniqueFile(GetTemporaryFolder(), "tab").m_Path) {
        RemoveFile(m_Path);
    }
    ~ScorePath() { RemoveFile(m_Path); }
    ScorePath(const ScorePath&) = delete;
    ScorePath& operator=(const ScorePath&) = delete;

    const STR m_Path;
};

// A user who watches the progress, and may cancel after some steps.
struct ProgressOutput : RecordingOutput {
    void SetProgress(int percent, const STR& caption) override {
        if (m_StepsLeft-- == 0) {
            throw ConverterCancelled("cancelled");
        }
        m_Progress += Cat(percent, caption.View(), ' ');
    }
    int m_StepsLeft = -1;
    std::string m_Progress = "";
};

struct Conversion {
    Conversion(std::string_view bytes, RhythmLevel level,
               std::unique_ptr<TreeNode> document = MakeSmallScore())
        : m_Converter(m_Output, level), m_Document(std::move(document)) {
        const ScorePath score;
        m_HasBars = m_Converter.ConvertText(bytes, *m_Document, score.m_Path);
        m_Written = ReadWholeFile(score.m_Path).m_Bytes;
    }

    ProgressOutput m_Output;
    Converter m_Converter;
    std::unique_ptr<TreeNode> m_Document;
    bool m_HasBars;
    STR m_Written;
};

// The texts of the children with these labels, with slashes between them.
std::string Get(const TreeNode& node, std::initializer_list<const char*> labels) {
    std::string texts;
    for (const char* label : labels) {
        texts += Cat(texts.empty() ? "" : "/", node.GetChildText(label, "?"));
    }
    return texts;
}

const TVAList<TreeNode*>& GetList(const TreeNode& node, const char* label) {
    static const TreeNode none;
    const TreeNode* list = node.FindChild(label);
    return (list == nullptr ? none : *list).GetChildren();
}

std::string ReadItem(const TreeNode* item) {
    const TreeNode* styled = item->FindChild("StyledString");
    if (Get(*item, {"Type"}) == "Text") {
        return Cat('(', Get(*styled, {"Text"}), ')');
    }
    if (Get(*item, {"Type"}) == "SystemTextItem") {
        return Cat('"', Get(*styled, {"Text"}), "\" at ",
                   Get(*GetList(*item, "YPositions")[0], {"Y"}));
    }
    if (Get(*item, {"Type"}) == "TimeSignature") {
        return Cat(Get(*item, {"Top"}), '/', 1024 >> item->GetChildInt("LogUnitLength", 0));
    }
    bool isTied = false;
    const std::string notes = Join(GetList(*item, "Notes"), [&](const TreeNode* note) {
        isTied = note->GetChildInt("Flags", 0) == 1;
        return Get(*note, {"StringNum", "Chrom2", "Diat"});
    });
    return Cat(Get(*item, {"Sr", "Durn"}), '[', notes, isTied ? "]~" : "]");
}

std::string ReadHead(const TreeNode& music, const TreeNode& stave) {
    const TreeNode& instrument = *GetList(music, "Instruments")[0];
    const auto& firstItems = GetList(*GetList(stave, "Bars")[0], "Items");
    const std::string typeName = Get(*firstItems[firstItems.GetCount() - 1], {"StaveType"});
    std::string head = Cat(Get(*instrument.FindChild("FullName"), {"Text"}), ", ",
                           Get(*stave.FindChild("StaveMIDIData"), {"Program"}));
    for (const TreeNode* type : GetList(music, "StaveTypes")) {
        if (Get(*type, {"Name"}) == typeName) {
            head += Cat(", tuned ", Join(GetList(*type, "Pitches"),
                                         [](const TreeNode* pitch) { return pitch->GetText(); }));
            head += type->GetChildBool("ShowRhythms", true) ? ", rhythms shown" : "";
        }
    }
    return head;
}

// The score in the form of RenderedTab.
std::vector<std::string> ReadScore(const TreeNode& document) {
    const TreeNode& music = *document.FindChild("Music");
    const TreeNode& stave = *GetList(music, "Staves")[0];
    const auto& bars = GetList(stave, "Bars");
    const auto& systemBars = GetList(*music.FindChild("SystemStave"), "Bars");
    const auto& spacings = GetList(music, "BarSpacings");
    REQUIRE(systemBars.GetCount() == bars.GetCount());
    REQUIRE(spacings.GetCount() == bars.GetCount());
    std::vector<std::string> score = {ReadHead(music, stave)};
    for (int i = 1; i < bars.GetCount(); ++i) {
        const int gap = systemBars[i]->GetChildInt("GapBelowStave", 0);
        const std::string above = Join(GetList(*systemBars[i], "Items"), ReadItem);
        score.push_back(Cat(Get(*spacings[i], {"Flags", "BarLength"}),
                            gap > 0 ? Cat(" gap ", gap) : "", above.empty() ? "" : " ", above, ": ",
                            Join(GetList(*bars[i], "Items"), ReadItem)));
    }
    return score;
}

std::string Repeat(std::string_view text, int count) {
    std::string repeated;
    while (count-- > 0) {
        repeated += text;
    }
    return repeated;
}

}  // namespace

TEST_CASE("A tab becomes the score that it was rendered from") {
    for (unsigned seed = 0; seed < 300; ++seed) {
        const RenderedTab tab = RenderTab(seed);
        CAPTURE(seed);
        CAPTURE(tab.m_Bytes);
        const Conversion conversion(tab.m_Bytes, tab.m_Level);
        const std::vector<std::string> score = ReadScore(*conversion.m_Document);
        REQUIRE(score.size() == tab.m_Score.size());
        for (std::size_t i = 0; i < score.size(); ++i) {
            REQUIRE(score[i] == tab.m_Score[i]);
        }
        CHECK(conversion.m_HasBars == (score.size() > 1));
    }
}

TEST_CASE("The shipped examples keep their staves, bars and notes") {
    struct Example {
        const char* m_Name;
        RhythmLevel m_Level;
        const char* m_Figures;  // staves, bars and notes
        RhythmSource m_Source;
    };
    constexpr auto kIndicated = RhythmLevel::WhenIndicated;
    for (const Example& example : {
             Example{"amazing_grace.tab", kIndicated, "5 17 58", RhythmSource::RhythmLine},
             Example{"drunken_sailor.tab", kIndicated, "5 20 149", RhythmSource::RhythmLine},
             Example{"frere_jacques.tab", kIndicated, "4 11 87", RhythmSource::NotShown},
             Example{"frere_jacques.tab", RhythmLevel::Always, "4 14 87", RhythmSource::Spacing},
             Example{"greensleeves.tab", kIndicated, "5 18 109", RhythmSource::RhythmLine},
             Example{"ode_to_joy.tab", kIndicated, "4 16 85", RhythmSource::RhythmLine},
             Example{"scarborough_fair.tab", kIndicated, "4 17 52", RhythmSource::RhythmLine},
             Example{"two_fife_tunes.tab", kIndicated, "4 17 97", RhythmSource::RhythmLine},
             Example{"walking_blues.btab", kIndicated, "4 13 56", RhythmSource::RhythmLine},
         }) {
        CAPTURE(example.m_Name);
        const FileContents file = ReadWholeFile(STR(TABULORIX_EXAMPLES_DIR "/") + example.m_Name);
        REQUIRE(file.m_Result.Succeeded());
        const Conversion conversion(file.m_Bytes, example.m_Level, CreateBlankScore());
        const ConversionSummary& summary = conversion.m_Converter.GetSummary();
        CHECK(Cat(summary.m_StaveCount, ' ', summary.m_BarCount, ' ', summary.m_NoteCount) ==
              example.m_Figures);
        CHECK(summary.m_IsBass == std::string_view(example.m_Name).ends_with(".btab"));
        CHECK(summary.m_RhythmSource == example.m_Source);

        const auto readBack = TreeNodeReader(conversion.m_Written).Read();
        CHECK(ReadScore(*readBack) == ReadScore(*conversion.m_Document));
        STR writtenAgain;
        readBack->WriteText(writtenAgain, 0);
        CHECK(writtenAgain == conversion.m_Written);
    }
}

TEST_CASE("A conversion can be cancelled at every step of its progress") {
    const std::string tab = MakeStave("e|--0-|-2--|-3--|-5--|-7--|-8--|-10-|");
    const Conversion complete(tab, RhythmLevel::Always);
    CHECK(complete.m_Output.m_Progress == "0 10 20 20 28 37 45 54 62 71 80 ");
    for (int steps = 0; steps < 11; ++steps) {
        ProgressOutput output;
        output.m_StepsLeft = steps;
        const ScorePath score;
        Converter converter(output, RhythmLevel::Always);
        CHECK_THROWS_AS(converter.ConvertText(tab, *MakeSmallScore(), score.m_Path),
                        ConverterCancelled);
        CHECK(GetPathKind(score.m_Path) == PathKind::Nothing);
        CHECK(Conversion(tab, RhythmLevel::Always).m_Written == complete.m_Written);
    }
}

TEST_CASE("A score that cannot be written is reported with its path and leaves nothing") {
    const ScorePath score;
    for (const STR& path : {score.m_Path + "/score", GetTemporaryFolder()}) {
        const PathKind before = GetPathKind(path);
        ProgressOutput output;
        STR message;
        try {
            Converter(output, RhythmLevel::Always).ConvertText("", *MakeSmallScore(), path);
        } catch (const FileSaveFailedException& e) {
            message = e.GetText();
        }
        CHECK(message.View().find(path.View()) != std::string_view::npos);
        CHECK(GetPathKind(path) == before);
    }
}

TEST_CASE("A text without staves becomes a score without bars") {
    for (const char* text : {"", "Words only", "e|---\nB|---\nG|---\n"}) {
        const Conversion conversion(text, RhythmLevel::Always);
        CHECK_FALSE(conversion.m_HasBars);
        CHECK(conversion.m_Output.m_Progress == "0 10 20 80 ");
        CHECK(ReadScore(*TreeNodeReader(conversion.m_Written).Read()).size() == 1);
    }
    ProgressOutput output;
    const ScorePath score;
    Converter converter(output, RhythmLevel::Always);
    CHECK_FALSE(converter.Convert(score.m_Path + "/tab", *MakeSmallScore(), score.m_Path));
    TreeNode noMusic;
    RemoveFile(score.m_Path);
    CHECK(converter.ConvertText("", noMusic, score.m_Path));
    CHECK(GetPathKind(score.m_Path) == PathKind::Nothing);
}

TEST_CASE("The cost of a tab grows with its size only") {
    const std::string stave = MakeStave("e|-1-|") + '\n';
    const std::string longStave = MakeStave('|' + Repeat("-1-|", 2000));
    const std::string denseStave = MakeStave('-' + Repeat("1-", 4000));
    const std::string hostileTabs[] = {
        std::string(30000, 'a') + "\n\n" + Repeat(stave, 800),
        std::string(30000, '-') + "\n\n" + Repeat(stave, 800),
        Repeat("Riff ", 12000) + '\n' + stave,
        Repeat("Riff    ", 8000) + '\n' + stave,
        Repeat("rrif", 16000) + '\n' + stave,
        Repeat("3/4 ", 4000) + '\n' + longStave,
        Repeat("3/4", 5000) + "\n" + longStave,
        Repeat("Am  ", 4000) + '\n' + longStave,
        Repeat("Am  ", 4000) + '\n' + denseStave,
        Repeat("E...", 2000) + '\n' + denseStave,
        Repeat("1 + ", 2000) + '\n' + denseStave,
        Repeat('-' + std::string(5000, '1') + "-\n", 6),
        Repeat('-' + std::string(5000, '0') + "-\n", 6),
        Repeat('-' + Repeat("12", 2500) + "-\n--" + Repeat("12", 2500) + '\n', 3),
    };
    for (const std::string& tab : hostileTabs) {
        CAPTURE(tab.substr(0, 20));
        const auto start = std::chrono::steady_clock::now();
        const Conversion conversion(tab, RhythmLevel::Always);
        const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
        CHECK(seconds.count() < 5.0);
    }
}

TEST_CASE("Any bytes become a score whose lists fit together") {
    std::mt19937 engine(1);
    const auto below = [&](std::size_t end) { return static_cast<std::size_t>(engine() % end); };
    constexpr std::string_view kLikely = "---------0123456789x|||   \n\n\r\tQEHS/4+&eBGDAEm#.";
    for (unsigned seed = 0; seed < 600; ++seed) {
        const RenderedTab tab = RenderTab(seed);
        std::string bytes = tab.m_Bytes;
        const std::size_t changes = 1 + below(seed % 3 == 0 ? bytes.size() : 20);
        for (std::size_t i = 0; i < changes; ++i) {
            const char any = static_cast<char>(engine() % 256);
            bytes[below(bytes.size())] = seed % 2 == 0 ? kLikely[below(kLikely.size())] : any;
        }
        CAPTURE(bytes);
        const Conversion conversion(bytes, tab.m_Level);
        CHECK(conversion.m_HasBars == (ReadScore(*conversion.m_Document).size() > 1));
    }
}

}  // namespace tabulorix
