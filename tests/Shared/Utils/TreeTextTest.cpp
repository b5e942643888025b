#include <fstream>

#include "Exceptions.h"
#include "FileName.h"
#include "TestSupport.h"
#include "UserLocale.h"

namespace tabulorix {

namespace {

using namespace std::string_literals;

std::string ToUtf16(std::string_view text, bool isBigEndian) {
    std::string wide = isBigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char c : text) {
        wide += isBigEndian ? std::string{'\0', c} : std::string{c, '\0'};
    }
    return wide;
}

// What reading ends in: the message of an exception, or "none".
template <class Read>
std::string GetFailure(Read read) {
    try {
        read();
    } catch (const Exception& e) {
        return std::string(e.GetText().View());
    }
    return "none";
}

std::string GetFailure(std::string_view bytes, TreeNodeReader::Source source,
                       const STR& fileName = {}) {
    return GetFailure([&] { TreeNodeReader(bytes, source, fileName).Read(); });
}

}  // namespace

TEST_CASE("Every layout of a tree is read, in every encoding") {
    const Cases cases = {
        {"", "\r\n"},
        {" \t\r\n", "\r\n"},
        {"A", "A\r\n"},
        {"A\"x\"\"y\"", "A\"x\"\"y\"\r\n"},
        {"A \"\"\"\"", "A\"\"\"\"\r\n"},
        {"A \"\"", "A\r\n"},
        {"\"x\"", " \"x\"\r\n"},
        {"{}", "\r\n"},
        {"{\"1\" \"2\"\"3\"}", "\r\n{\r\n\t \"1\"\r\n\t\"2\"\"3\"\r\n}\r\n"},
        {"A{B C\"1\"D{}\"e\"{F}}",
         "A\r\n{\r\n\tB\r\n\tC \"1\"\r\n\tD\r\n\t \"e\"\r\n\t{\r\n\t\tF\r\n\t}\r\n}\r\n"},
        {"a.b/c\\d_e~f-1 { { B \"4\\n\\4\" }\v\f{ 0 \"{ two\r\n\tlines }\" } }",
         "a.b/c\\d_e~f-1\r\n{\r\n\t\r\n\t{\r\n\t\tB \"4\\n\\4\"\r\n\t}\r\n\t\r\n"
         "\t{\r\n\t\t0 \"{ two\r\n\tlines }\"\r\n\t}\r\n}\r\n"},
        // Labels that differ from, or begin like, those that followed the same label before.
        {"{A B A BC A B A \"B C\" A B C}",
         "\r\n{\r\n\tA\r\n\tB\r\n\tA\r\n\tBC\r\n\tA\r\n\tB\r\n\tA \"B C\"\r\n\tA\r\n\tB\r\n"
         "\tC\r\n}\r\n"},
        {"A \"1\" {} # never read \"", "A \"1\"\r\n"},
        {"A \"1\" B }", "A \"1\"\r\n"}};
    const auto rewrite = [](std::string_view text) { return GetTreeText(text); };
    CheckEach(cases, rewrite);
    CheckEach(cases, [](std::string_view text) { return GetTreeText(ToUtf16(text, false)); });
    CheckEach(cases, [](std::string_view text) { return GetTreeText(ToUtf16(text, true)); });
    CheckEach({{"\xFF\xFE", "\r\n"}, {"\xFE\xFF\0"s, "\r\n"}, {"\xFF\xFE\x41\0\x42"s, "A\r\n"}},
              rewrite);

    STR indented;
    TreeNodeReader("A { B }").Read()->WriteText(indented, 2);
    CHECK(indented == "\t\tA\r\n\t\t{\r\n\t\t\tB\r\n\t\t}\r\n");
}

TEST_CASE("A wide character that is read loses all but its first byte, with a warning") {
    const NarrowCharacter narrow = NarrowUtf16Unit(0x263F);
    const std::string warning =
        "debug: Trying to read a Unicode text TreeNode that has characters that translate to "
        "multibyte chars and we can't copy with this\n";
    LogRecorder log;
    for (std::size_t length = 1; length < 100; ++length) {
        CAPTURE(length);
        const std::string text = "A \"" + std::string(length, 'x');
        CHECK(GetTreeText(ToUtf16(text + '"', true)) == text + "\"\r\n");
        CHECK(log.Take().empty());
        std::string wide = ToUtf16(text + "?\"{}?", false);
        wide[wide.find('?') + 1] = '\x26';  // U+263F
        wide.back() = '\x26';               // right behind the root, where nobody reads
        CHECK(GetTreeText(wide) == text + narrow.m_FirstByte + "\"\r\n");
        CHECK(log.Take() == (narrow.m_ByteCount > 1 ? warning : ""));
    }
}

TEST_CASE("Syntax errors end in one line of the error log and one exception") {
    const Cases cases = {
        {"\nA\r\n}",
         "Unexpected right brace parsing after label - no parent node at line 2 - current text }"},
        {"\"x\"\r\r}",
         "Unexpected right brace parsing text with no label - no parent node at line 2 "
         "- current text }"},
        {"A { B { } \n\n", "Expected right brace parsing sub-list at line 2 - current text "},
        {"A { B \"1\n\"\"2", "Unexpected EOF in text string at line 1 - current text 1\n\"2"},
        {"A \"", "Unexpected EOF in text string at line 0 - current text "},
        {"A { B = \"1\" # }", "Expected ~ _ or alpha numeric character at line 0 - current text ="},
        {std::string(65537, '\n') + "#",
         "Expected ~ _ or alpha numeric character at line 1 - current text #"}};
    using Source = TreeNodeReader::Source;
    LogRecorder log;
    for (const auto& [text, expected] : cases) {
        const std::string& line = expected;  // a captured name cannot be a part of a binding
        CAPTURE(line);
        for (const std::string& bytes : {text, ToUtf16(text, false)}) {
            CHECK(GetFailure(bytes, Source::Memory) == "Could not read treenode");
            CHECK(log.Take() == "error: " + line + '\n');
        }
    }
    GetFailure("\xFF", Source::File, "a.txt");
    CHECK(log.Take() ==
          "error: Expected ~ _ or alpha numeric character in file a.txt line 0 "
          "- current text \xFF\n");

    // The binary form is known in files only, and not read.
    const std::string unknown = "Could not read treenode - version is not recognized";
    CHECK(GetFailure("\0"s, Source::File) == unknown);
    CHECK(GetFailure("\0\3"s, Source::File) == unknown);
    CHECK(log.Take().empty());
    CHECK(GetFailure("\0\1"s, Source::File) == "Could not read treenode");
    CHECK(log.Take() == "error: Unexpected end of file at line 0 - current text \n");
    CHECK(GetFailure("\0\1"s, Source::Memory) == "Could not read treenode");
    CHECK(log.Take().ends_with("alpha numeric character at line 0 - current text \0\n"s));
}

TEST_CASE("A sought label ends the reading at its first text") {
    const Cases cases = {{"Key \"root\" #", "root"},
                         {"A { Key { B { Key \"in\"\"ner\" = } } }", "in\"ner"},
                         {"A { Keys \"1\" Key \"\" }", ""},
                         {"A { Key } Key \"outside\"", "none"}};
    CheckEach(cases, [](const std::string& text) {
        return GetFailure(
            [&] { TreeNodeReader(text, TreeNodeReader::Source::Memory, {}, "Key").Read(); });
    });
}

TEST_CASE("A file that another program reads is written nevertheless") {
    const FileName file = FileName::CreateTemporary();
    {
        const std::ifstream reader(file.GetPath().GetText(), std::ios::binary);
        REQUIRE(reader.is_open());
        CHECK(TreeNode("A").WriteToFile(file.GetPath()));
    }
    CHECK(TreeNode::ReadFromFile(file.GetPath())->GetLabel() == "A");
    file.Delete();
}

TEST_CASE("A file that cannot be opened is named") {
    LogRecorder log;
    const STR missing("no such folder/a.txt");
    CHECK_FALSE(TreeNode("A").WriteToFile(missing));
    CHECK(log.Take() == "error: Could not write configuration file no such folder/a.txt\n");
    CHECK(GetFailure([&] { TreeNode::ReadFromFile(missing); }) ==
          "Could not open configuration file no such folder/a.txt");
}

}  // namespace tabulorix
