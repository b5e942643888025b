#include <doctest/doctest.h>

#include "Converter.h"
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

struct Conversion {
    Conversion(std::string_view bytes, RhythmLevel level,
               std::unique_ptr<TreeNode> document = MakeSmallScore())
        : m_Converter(m_Output, level),
          m_Document(std::move(document)),
          m_HasBars(m_Converter.FillScore(bytes, *m_Document)) {}

    RecordingOutput m_Output;
    Converter m_Converter;
    std::unique_ptr<TreeNode> m_Document;
    bool m_HasBars;
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

TEST_CASE("Frets become notes, and lengths become slices with a sign in notation") {
    // The level in front of the tab; then the bars of the score in the form of RenderedTab.
    const Cases cases = {
        {"0no tab", ""},
        {"0" + MakeStave("-23-x-007-"),
         "7/512: 0/7[5/132/38] 128/7[5/134/39] 256/7[] 384/7[5/142/41]"},
        {"0-22-10-\n" + MakeStave("-----9-", 5), "7/256: 0/7[5/172/50] 128/7[4/136/39 5/148/43]"},
        {"0-12-\n" + MakeStave("-35-", 5),
         "7/256: 0/7[4/124/36 5/130/38] 128/7[4/128/37 5/132/38]"},
        {"0-35-\n" + MakeStave("-12-", 5),
         "7/256: 0/7[4/120/35 5/134/39] 128/7[4/122/35 5/138/40]"},
        {"0-12--\n" + MakeStave("---5-", 5), "7/256: 0/7[5/152/44] 128/7[4/128/37]"},
        {"0x12--\n" + MakeStave("7-5--", 5), "7/128: 0/7[5/152/44 4/268/78]"},
        // The lowest note first, the lower string first of two on one step.
        {"0---\n---\n-0-\n-12--\n", "7/128: 0/7[1/66/19 0/80/23]"},
        {"0---\n---\n-1-\n-7-\n", "7/128: 0/7[0/70/20 1/68/20]"},
        {"0" + MakeStave("|---|1-6-8-|", 4), "7/384: 0/7[3/88/25] 128/7[3/98/28] 256/7[3/102/30]"},
        {"2C\nQ. Q H\n" + MakeStave("0--x--"),
         "7/1152 gap 256: 0/8[5/128/37]~ (C) 256/7[5/128/37] 384/8[] 640/9[]"},
        {"2\n      Solo\n" + MakeStave("|-----|0---|"),
         "6/1024: 0/10[] 7/1024 gap 400 \"Solo\" at 32: 0/10[5/128/37]"},
        {"2Riff\n1/4\n" + MakeStave("|0-x-x-x-x-|"),
         "7/256 gap 400 \"Riff\" at 32 1/4: 0/7[5/128/37] 128/7[] 7/256: 0/7[] 128/7[] 7/256: "
         "0/8[]"},
        // Two events at one position sound together, as long as the last one, under the first
        // chord.
        {"21/4\n    C D\n" + MakeStave("0-x-2-3-x-|---"),
         "7/256 gap 256 1/4: 0/6[5/128/37] 64/6[] 128/6[5/132/38 5/134/39] (C) 192/6[] 7/256: "
         "0/8[]"}};
    CheckEach(cases, [](const std::string& text) {
        const Conversion conversion(text.substr(1), static_cast<RhythmLevel>(text[0] - '0'));
        std::vector<std::string> score = ReadScore(*conversion.m_Document);
        score.erase(score.begin());
        return Join(score);
    });
}

TEST_CASE("A score has one instrument on one stave, and the marks of the tab above it") {
    const std::string tab = "3/4\nSolo\n Am\n" + MakeStave("-7------", 4);
    const Conversion conversion(tab, RhythmLevel::Never,
                                TreeNodeReader(R"(Score { Music {
        SystemStave BarSpacings { { BarNum "0" } }
        StaveTypes { { Name "with rhythms" Category "2" Pitches { "86" "76" "66" "56" } } } } })")
                                    .Read());
    CHECK(GetTreeText(*conversion.m_Document) == GetTreeText(R"tree(Score { Music {
SystemStave { Bars { { Type "Bar" MakesStaveVisible "0" HasStaveTypeChanges "0" Items {
    { Type "SystemTextItem" Sr "-1" Voices "15" Dx "0" Dy "0"
      StyledString { Type "StyledString" Text "Solo" TextStyle "Tempo" }
      YPositions { { Type "YPosition" Visible "True" Y "128" } } }
    { Type "TimeSignature" Sr "0" Voices "15" Dx "0" Dy "0" Top "3" LogUnitLength "8"
      BeatGroups SymbolNum "0" TimeSignatureString "3\n\4" Flags "1" } } GapBelowStave "400" } } }
BarSpacings { { BarNum "0" BarLength "0" } { Type "BarSpacing" BarNum "1" BarLength "128" Flags "7" } }
StaveTypes { { Name "with rhythms" Category "2" Pitches { "86" "76" "66" "56" } }
    { Type "StaveType" Name "Standard guitar (no rhythms)" StaveType "tab"
      StaveLineSeparation "48" BarlineDy "120" Pitches { "86" "76" "66" "56" } StaveLines "4"
      Category "2" AsNumbers "True" ShowRhythms "False" } }
ReBeamAll "True"
Instruments { { Type "Instrument"
    FullName { Type "StyledString" Text "Bass Guitar" TextStyle "Instrument names" }
    ShortName { Type "StyledString" Text "Bass" TextStyle "Instrument names" }
    Group "GuitarBracket" PartClef "21" FullNameOffsetX "0" FullNameOffsetY "0" ShortNameOffsetX "0"
    ShortNameOffsetY "0" StaveIndex "0" DefaultInstrumentName "Bass guitar" } }
Barlines { { Type "Barline" StaveIndex "0" } }
Staves { { Type "Stave" Small "False"
    StaveMIDIData { Type "MIDIData" Program "33" Channel "0" Bank "-1" MIDIflags "-1" }
    Bars { { Type "Bar" MakesStaveVisible "0" HasStaveTypeChanges "1" Items {
        { Type "KeySignature" Sr "0" Voices "15" Dx "0" Dy "0" Sharps "0" Flags "1" }
        { Type "Transposition" Sr "32512" Voices "15" Dx "0" Dy "0" PartDiat "0" PartChrom2 "0" }
        { Type "Clef" Sr "32512" Voices "15" Dx "0" Dy "0" Flags "0" ClefStyle "Tab" }
        { Type "StaveTypeChange" Sr "32512" Voices "15" Dx "0" Dy "0"
          StaveType "Standard guitar (no rhythms)" } } }
    { Type "Bar" MakesStaveVisible "0" HasStaveTypeChanges "0" Items {
        { Type "NoteRest" Sr "0" Voices "1" Dx "0" Dy "0" Durn "7" Trem "0" Artic "0" Flags "2"
          Notes { { Type "Note" Diat "29" Chrom2 "100" Acc "0" StringNum "3" Flags "0" } } }
        { Type "Text" Sr "0" Voices "15" Dx "0" Dy "0"
          StyledString { Type "StyledString" Text "Am" TextStyle "Chord symbol" }
          DrawAtStartOfSystem "False" } } } } } } } })tree"));
}

TEST_CASE("The shipped examples keep their staves, bars and notes") {
    // The level and the example; staves, bars and notes, and where the rhythms come from.
    const Cases examples = {
        {"1amazing_grace.tab", "5 17 58 line"},      {"1drunken_sailor.tab", "5 20 149 line"},
        {"1frere_jacques.tab", "4 11 87"},           {"2frere_jacques.tab", "4 14 87 spacing"},
        {"1greensleeves.tab", "5 18 109 line"},      {"1ode_to_joy.tab", "4 16 85 line"},
        {"1scarborough_fair.tab", "4 17 52 line"},   {"1two_fife_tunes.tab", "4 17 97 line"},
        {"1walking_blues.btab", "4 13 56 line bass"}};
    CheckEach(examples, [](const std::string& example) {
        const FileContents file =
            ReadWholeFile(STR(TABULORIX_EXAMPLES_DIR "/") + example.substr(1));
        REQUIRE(file.m_Result.Succeeded());
        const Conversion conversion(file.m_Bytes, static_cast<RhythmLevel>(example[0] - '0'),
                                    CreateBlankScore());
        const ConversionSummary& summary = conversion.m_Converter.GetSummary();
        return Cat(summary.m_StaveCount, ' ', summary.m_BarCount, ' ', summary.m_NoteCount,
                   summary.m_HasIndicatedRhythms ? " line" : "",
                   summary.m_HasSpacedRhythms ? " spacing" : "", summary.m_IsBass ? " bass" : "");
    });
}

TEST_CASE("A score that has no place for music is not written") {
    RecordingOutput output;
    TreeNode noMusic;
    Converter converter(output, RhythmLevel::Always);
    CHECK(converter.ConvertText("", noMusic, "no such folder/score"));
}

}  // namespace tabulorix
