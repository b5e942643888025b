#include "ScoreGeneration.h"
#include "TestSupport.h"

namespace tabulorix {

namespace {

// "position/exponent", a text without one, and each note as "string:pitch:step", "~" when tied.
std::string DescribeItem(const TreeNode* item) {
    std::string text = Cat(item->GetChildInt("Sr", -1), '/', item->GetChildText("Durn", ""));
    const TreeNode* notes = item->FindChild("Notes");
    for (int i = 0; notes != nullptr && i < notes->GetChildCount(); ++i) {
        const auto get = [&](auto* label) { return notes->GetChild(i)->GetChildInt(label, -1); };
        text += Cat(',', get("StringNum"), ':', get("Chrom2"), ':', get("Diat"));
        text += get("Flags") == 1 ? "~" : "";
    }
    return text;
}

std::unique_ptr<TreeNode> GenerateScore(std::string_view text, RhythmLevel level) {
    const AnalysedTab tab(text);
    RecordingOutput output;
    auto score = TreeNodeReader(R"(Score { Music { SystemStave BarSpacings { { BarNum "0" } }
        StaveTypes { { Name "with rhythms" Category "2" Pitches { "86" "76" "66" "56" } } } } })")
                     .Read();
    ScoreGeneration generation(tab.m_Analysis, level, output);
    CHECK(generation.GenerateScore(*score) == !tab.m_Analysis.GetTabBars().empty());
    return score;
}

}  // namespace

TEST_CASE("Frets become notes, and lengths become slices with a sign in notation") {
    // The level in front of the tab; then, of the bars behind bar 0, the gap below and the items.
    const Cases cases = {
        {"0no tab", ""},
        {"0" + MakeStave("-23-x-007-"), "0: 0/7,5:132:38 128/7,5:134:39 256/7 384/7,5:142:41 "},
        {"0-22-10-\n" + MakeStave("-----9-", 5), "0: 0/7,5:172:50 128/7,4:136:39,5:148:43 "},
        {"0-12-\n" + MakeStave("-35-", 5), "0: 0/7,4:124:36,5:130:38 128/7,4:128:37,5:132:38 "},
        {"0-35-\n" + MakeStave("-12-", 5), "0: 0/7,4:120:35,5:134:39 128/7,4:122:35,5:138:40 "},
        {"0x12--\n" + MakeStave("7-5--", 5), "0: 0/7,5:152:44,4:268:78 "},
        // The lowest note first, the lower string first of two on one step.
        {"0---\n---\n-0-\n-12--\n", "0: 0/7,1:66:19,0:80:23 "},
        {"0---\n---\n-1-\n-7-\n", "0: 0/7,0:70:20,1:68:20 "},
        {"0" + MakeStave("|---|1-6-8-|", 4), "0: 0/7,3:88:25 128/7,3:98:28 256/7,3:102:30 "},
        {"2C\nQ. Q H\n" + MakeStave("0--x--"), "256: 0/8,5:128:37~ 0/ 256/7,5:128:37 384/8 640/9 "},
        {"2\n      Solo\n" + MakeStave("|-----|0---|"), "0: 0/10 400: 0/10,5:128:37 "},
        {"2Riff\n1/4\n" + MakeStave("|0-x-x-x-x-|"),
         "400: 0/7,5:128:37 128/7 0: 0/7 128/7 0: 0/8 "},
        // Two events at one position sound together, as long as the last one.
        {"21/4\n" + MakeStave("0-x-2-3-x-|---"),
         "0: 0/6,5:128:37 64/6 128/6,5:132:38,5:134:39 192/6 0: 0/8 "}};
    CheckEach(cases, [](const std::string& text) {
        const auto score = GenerateScore(text.substr(1), static_cast<RhythmLevel>(text[0] - '0'));
        const TreeNode* stave = score->GetChild(0)->FindChild("Staves")->GetChild(0);
        const TreeNode& system = *score->GetChild(0)->GetChild(0)->FindChild("Bars");
        std::string bars;
        for (int i = 0; i < system.GetChildCount(); ++i) {
            const TreeNode* items = stave->FindChild("Bars")->GetChild(i + 1)->FindChild("Items");
            bars += Cat(system.GetChild(i)->GetChildInt("GapBelowStave", 0), ": ",
                        Join(items->GetChildren(), DescribeItem), ' ');
        }
        return bars;
    });
}

TEST_CASE("A score has one instrument on one stave, and the marks of the tab above it") {
    const std::string tab = "3/4\nSolo\n Am\n" + MakeStave("-7------", 4);
    CHECK(GetTreeText(*GenerateScore(tab, RhythmLevel::Never)) == GetTreeText(R"tree(Score { Music {
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

}  // namespace tabulorix
