// MusicXML of score documents that tabs seldom lead to. What tabs lead to is held by the programs
// that read the format; see tests/Clients.

#include <pugixml.hpp>

#include "MusicXml.h"
#include "TestSupport.h"
#include "XmlText.h"

namespace tabulorix {

namespace {

// Empty for a document that is no XML.
std::string GetElement(const TreeNode& document, const char* path) {
    pugi::xml_document xml;
    if (!xml.load_string(ComposeMusicXml(document).c_str())) {
        return {};
    }
    std::ostringstream text;
    for (const pugi::xpath_node& found : xml.select_nodes(path)) {
        found.node().print(text, "", pugi::format_raw | pugi::format_no_declaration);
    }
    return text.str();
}

// A score of bar 0 and one more on a stave with the strings E and A.
std::unique_ptr<TreeNode> MakeScore(const std::string& items) {
    return TreeNodeReader(
               "R { Music { StaveTypes { { Name \"tab\" Pitches { \"90\" \"80\" } } }"
               "BarSpacings { {} { BarLength \"1024\" } }"
               "SystemStave { Bars { {} { Items } } } Staves { { Bars {"
               "{ Items { { Type \"StaveTypeChange\" StaveType \"tab\" } } } { Items { " +
               items + " } } } } } } }")
        .Read();
}

std::string MakeNotes(int start, int exponent, int chrom2, int diat, int string) {
    return Cat("{ Type \"NoteRest\" Sr \"", start, "\" Durn \"", exponent, "\" Notes { { Diat \"",
               diat, "\" Chrom2 \"", chrom2, "\" StringNum \"", string, "\" } } }");
}

}  // namespace

TEST_CASE("texts become UTF-8 that XML can hold") {
    CheckEach(
        {{"Verse <1> & \"2\"", "Verse <1> & \"2\""},
         {std::string("a\x01\x1b\0\x7f\tb", 7), "a     b"},
         {"caf\xc3\xa9 \xe2\x99\xaa \xf0\x9f\x8e\xb8", "caf\xc3\xa9 \xe2\x99\xaa \xf0\x9f\x8e\xb8"},
         {"caf\xe9 \x93x\x94", "caf\xc3\xa9 \xe2\x80\x9cx\xe2\x80\x9d"},
         {"\xc3", "\xc3\x83"},
         {"\xc0\x80", "\xc3\x80\xe2\x82\xac"},
         {"\xed\xa0\x80", "\xc3\xad\xc2\xa0\xe2\x82\xac"},
         {"\xef\xbf\xbf", "\xc3\xaf\xc2\xbf\xc2\xbf"},
         {"\x81", "\xef\xbf\xbd"}},
        [](const std::string& text) { return ToXmlText(text); });
}

TEST_CASE("a chord symbol has the kind and the bass that the format knows") {
    CheckEach({{"Am7", "minor-seventh A"},
               {"Cmaj7", "major-seventh C"},
               {"Bm7b5", "half-diminished B"},
               {"Gsus4", "suspended-fourth G"},
               {"C7sus4", "other C"},
               {"D/F#", "major DF1"},
               {"C6/9", "other C"},
               {"Ebdim", "diminished E-1"}},
              [](const std::string& chord) {
                  const auto score = MakeScore(MakeNotes(0, 8, 80, 23, 0) +
                                               "{ Type \"Text\" StyledString { Text \"" + chord +
                                               "\" TextStyle \"Chord symbol\" } }");
                  return GetElement(*score, "//kind/text()") + " " +
                         GetElement(*score, "//harmony/root//text() | //harmony/bass//text()");
              });
}

TEST_CASE("a chord symbol without a root is words") {
    const auto score = MakeScore(MakeNotes(0, 8, 80, 23, 0) +
                                 "{ Type \"Text\" StyledString { Text \"#9 <\x02\" "
                                 "TextStyle \"Chord symbol\" } }");
    CHECK(GetElement(*score, "//words") == "<words>#9 &lt; </words>");
}

TEST_CASE("a document without music or with bar 0 alone is one bar of rest") {
    const std::string rest =
        "<note><rest measure=\"yes\"/><duration>1024</duration><voice>1</voice></note>";
    const char* const barZero = "R { Music { Staves { { Bars { { Items } } } } } }";
    CHECK(GetElement(TreeNode(), "//measure/note") == rest);
    CHECK(GetElement(*TreeNodeReader(barZero).Read(), "//measure/note") == rest);
}

TEST_CASE("notes that have no place in the format or on the stave keep what they can") {
    const auto score = MakeScore(MakeNotes(512, 13, 82, 23, 0) + MakeNotes(8704, 0, 290, 84, 0) +
                                 MakeNotes(8705, 0, 80, 23, 2) + MakeNotes(8706, 0, 78, 22, 0));
    CHECK(GetElement(*score, "//measure/@implicit/..").starts_with("<measure number=\"1\" impl"));
    CHECK(GetElement(*score, "//time") ==
          "<time print-object=\"no\"><beats>4</beats><beat-type>4</beat-type></time>");
    CHECK(GetElement(*score, "//forward") == "<forward><duration>512</duration></forward>");
    CHECK(GetElement(*score, "//note[type='long']/tie") ==
          "<tie type=\"start\"/><tie type=\"stop\"/>");
    CHECK(GetElement(*score, "//note/pitch/octave") ==
          "<octave>2</octave><octave>2</octave><octave>8</octave><octave>2</octave>"
          "<octave>2</octave>");
    // Both halves of the long note; none for a pitch or a string out of reach.
    CHECK(GetElement(*score, "//fret") == "<fret>1</fret><fret>1</fret>");
    CHECK(GetElement(*score, "//string") == "<string>2</string><string>2</string>");
}

}  // namespace tabulorix
