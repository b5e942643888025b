#include <doctest/doctest.h>

#include <random>
#include <string>

#include "Exceptions.h"
#include "FileSystem.h"
#include "Log.h"
#include "TreeNode.h"
#include "TreeNodeReader.h"
#include "UserLocale.h"

namespace tabulorix {

namespace {

using namespace std::string_literals;

// The log lines while it lives.
class LogRecorder {
public:
    LogRecorder() : m_Previous(SetLogSink(Record)) { s_Debug.clear(), s_Error.clear(); }
    ~LogRecorder() { SetLogSink(m_Previous); }

    inline static std::string s_Debug;
    inline static std::string s_Error;

private:
    static void Record(LogKind kind, std::string_view text) {
        (kind == LogKind::Debug ? s_Debug : s_Error) += text;
    }

    LogSink m_Previous;
};

std::string Write(const TreeNode& node) {
    STR output;
    node.WriteText(output, 0);
    return std::string(output.View());
}

std::string Rewrite(std::string_view text) {
    return Write(*TreeNodeReader(text).Read());
}

std::string ToUtf16(std::string_view text, bool isBigEndian) {
    std::string wide = isBigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char c : text) {
        wide += isBigEndian ? std::string{'\0', c} : std::string{c, '\0'};
    }
    return wide;
}

// The message of the exception that reading ends in, or "none".
std::string ReadFailure(std::string_view bytes, TreeNodeReader::Source source,
                        const STR& fileName = {}) {
    try {
        TreeNodeReader(bytes, source, fileName).Read();
    } catch (const Exception& e) {
        return std::string(e.GetText().View());
    }
    return "none";
}

std::unique_ptr<TreeNode> MakeRandomTree(std::mt19937& random, int depth) {
    const char* labels[] = {"", "Type", "Sr", "a.b/c\\d_e~f-1", "0"};
    const char* texts[] = {"", "0", "4\\n\\4", "\"", "a\"\"b\"", "{ two\r\n\tlines }", "\xE9 1"};
    auto node = std::make_unique<TreeNode>(labels[random() % 5], texts[random() % 7]);
    const unsigned childCount = depth == 0 ? 0 : static_cast<unsigned>(random() % 8);
    for (unsigned i = 0; i < childCount; ++i) {
        auto child = MakeRandomTree(random, depth - 1);
        // Behind a label, a node without one would be taken for the rest of the label's node.
        const TreeNode* last = node->GetChild(node->GetChildCount() - 1);
        if (last != nullptr && last->GetChildCount() == 0 && child->GetLabel().empty()) {
            child->SetLabel("Behind");
        } else if (child->GetLabel().empty() && child->GetText().empty()) {
            child->SetInt(static_cast<int>(i) - 3);
        }
        node->AppendChild(std::move(child));
    }
    return node;
}

}  // namespace

TEST_CASE("What is written reads as the same tree in every encoding") {
    std::mt19937 random(20);
    for (int i = 0; i < 60; ++i) {
        const std::string text = Write(*MakeRandomTree(random, 5));
        CHECK(Rewrite(text) == text);
        if (text.find('\xE9') == std::string::npos) {
            CHECK(Rewrite(ToUtf16(text, false)) == text);
            CHECK(Rewrite(ToUtf16(text, true)) == text);
        }
    }
}

TEST_CASE("Every layout of a tree is read") {
    struct Case {
        std::string m_Text;
        std::string m_Written;
    };
    const Case cases[] = {
        {"", "\r\n"},
        {" \t\r\n", "\r\n"},
        {"\xFF\xFE", "\r\n"},
        {"\xFE\xFF\0"s, "\r\n"},
        {"\xFF\xFE\x41\0\x42"s, "A\r\n"},
        {"A", "A\r\n"},
        {"A\"x\"\"y\"", "A\"x\"\"y\"\r\n"},
        {"A \"\"\"\"", "A\"\"\"\"\r\n"},
        {"A \"\"", "A\r\n"},
        {"\"x\"", " \"x\"\r\n"},
        {"{}", "\r\n"},
        {"{\"1\" \"2\"\"3\"}", "\r\n{\r\n\t \"1\"\r\n\t\"2\"\"3\"\r\n}\r\n"},
        {"A{B C\"1\"D{}\"e\"{F}}",
         "A\r\n{\r\n\tB\r\n\tC \"1\"\r\n\tD\r\n\t \"e\"\r\n\t{\r\n"
         "\t\tF\r\n\t}\r\n}\r\n"},
        {"A { { B \"1\" }\v\f{ B \"2\" } }",
         "A\r\n{\r\n\t\r\n\t{\r\n\t\tB \"1\"\r\n\t}\r\n\t\r\n"
         "\t{\r\n\t\tB \"2\"\r\n\t}\r\n}\r\n"},
        // Labels that differ from, or begin like, those that followed the same label before.
        {"{A B A BC A B A \"B C\" A B C}",
         "\r\n{\r\n\tA\r\n\tB\r\n\tA\r\n\tBC\r\n\tA\r\n\tB\r\n\tA \"B C\"\r\n\tA\r\n\tB\r\n"
         "\tC\r\n}\r\n"},
        {"A \"1\" {} # never read \"", "A \"1\"\r\n"},
        {"A \"1\" B }", "A \"1\"\r\n"},
    };
    for (const Case& c : cases) {
        CAPTURE(c.m_Text);
        CHECK(Rewrite(c.m_Text) == c.m_Written);
    }
}

TEST_CASE("Syntax errors end in one line of the error log and one exception") {
    struct Case {
        std::string m_Text;
        const char* m_Line;
    };
    const Case cases[] = {
        {"A \"x\"}",
         "Unexpected right brace parsing text after label - no parent node at line 0 "
         "- current text }\n"},
        {"\nA\r\n}",
         "Unexpected right brace parsing after label - no parent node at line 2 "
         "- current text }\n"},
        {"\"x\"\r\r}",
         "Unexpected right brace parsing text with no label - no parent node at "
         "line 2 - current text }\n"},
        {"}",
         "Unexpected right brace parsing sublist with no label or text - no parent node at "
         "line 0 - current text }\n"},
        {"A { B { } \n\n", "Expected right brace parsing sub-list at line 2 - current text \n"},
        {"A { B \"1\n\"\"2", "Unexpected EOF in text string at line 1 - current text 1\n\"2\n"},
        {"A \"", "Unexpected EOF in text string at line 0 - current text \n"},
        {"A { B = \"1\" # }",
         "Expected ~ _ or alpha numeric character at line 0 - current text "
         "=\n"},
        {std::string(65537, '\n') + "#",
         "Expected ~ _ or alpha numeric character at line 1 - "
         "current text #\n"},
    };
    const LogRecorder log;
    for (const Case& c : cases) {
        CAPTURE(c.m_Line);
        for (const std::string& text : {c.m_Text, ToUtf16(c.m_Text, false)}) {
            LogRecorder::s_Error.clear();
            CHECK(ReadFailure(text, TreeNodeReader::Source::Memory) == "Could not read treenode");
            CHECK(LogRecorder::s_Error == c.m_Line);
        }
    }
    LogRecorder::s_Error.clear();
    ReadFailure("\xFF", TreeNodeReader::Source::File, "a.txt");
    CHECK(LogRecorder::s_Error ==
          "Expected ~ _ or alpha numeric character in file a.txt line 0 - current text \xFF\n");
}

TEST_CASE("The binary form is known in files only, and not read") {
    const LogRecorder log;
    using Source = TreeNodeReader::Source;
    const std::string unknown = "Could not read treenode - version is not recognized";
    CHECK(ReadFailure("\0"s, Source::File) == unknown);
    CHECK(ReadFailure("\0\3"s, Source::File) == unknown);
    CHECK(LogRecorder::s_Error.empty());
    CHECK(ReadFailure("\0\1"s, Source::File) == "Could not read treenode");
    CHECK(LogRecorder::s_Error == "Unexpected end of file at line 0 - current text \n");
    LogRecorder::s_Error.clear();
    CHECK(ReadFailure("\0\1"s, Source::Memory) == "Could not read treenode");
    CHECK(LogRecorder::s_Error ==
          "Expected ~ _ or alpha numeric character at line 0 - current text \0\n"s);
}

TEST_CASE("A sought label ends the reading at its first text") {
    const auto seek = [](std::string_view text) {
        try {
            TreeNodeReader(text, TreeNodeReader::Source::Memory, {}, "Key").Read();
        } catch (const TreeNodeLabelFoundException& e) {
            return std::string(e.GetText().View());
        }
        return "none"s;
    };
    CHECK(seek("Key \"root\" #") == "root");
    CHECK(seek("A { Key { B { Key \"in\"\"ner\" = } } }") == "in\"ner");
    CHECK(seek("A { Keys \"1\" Key \"\" }") == "");
    CHECK(seek("A { Key } Key \"outside\"") == "none");
}

TEST_CASE("A wide character that is read loses all but its first byte, with a warning") {
    const LogRecorder log;
    std::string wide = ToUtf16("A \"12345?\" { } ?", false);
    wide[wide.find('?') + 1] = '\x26';  // U+263F
    wide[wide.size() - 2] = '\xE9';     // behind the root, where nobody reads
    const NarrowCharacter narrow = NarrowUtf16Unit(0x263F);
    CHECK(Rewrite(wide) == "A \"12345"s + narrow.m_FirstByte + "\"\r\n");
    CHECK(LogRecorder::s_Debug ==
          (narrow.m_ByteCount > 1 ? "Trying to read a Unicode text TreeNode that has characters "
                                    "that translate to multibyte chars and we can't copy with "
                                    "this\n"
                                  : ""));
}

TEST_CASE("Trees are read from files and written to them") {
    const LogRecorder log;
    const STR missing("no such folder/a.txt");
    CHECK_FALSE(TreeNode("A").WriteToFile(missing));
    CHECK(LogRecorder::s_Error == "Could not write configuration file no such folder/a.txt\n");
    try {
        TreeNode::ReadFromFile(missing);
        FAIL("a file that is not there was read");
    } catch (const Exception& e) {
        CHECK(e.GetText() == "Could not open configuration file no such folder/a.txt");
    }
    const STR path = CreateUniqueFile(GetTemporaryFolder(), "txt").m_Path;
    CHECK(Write(*TreeNode::ReadFromFile(path)) == "\r\n");
    CHECK(TreeNode("A", 12).WriteToFile(path));
    CHECK(Write(*TreeNode::ReadFromFile(path)) == "A \"12\"\r\n");
    RemoveFile(path);
}

}  // namespace tabulorix
