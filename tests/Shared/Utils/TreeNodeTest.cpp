#include <doctest/doctest.h>

#include <climits>
#include <string>
#include <vector>

#include "NodeAllocator.h"
#include "TreeNode.h"
#include "TreeNodeReader.h"

namespace tabulorix {

namespace {

TreeNode* Append(TreeNode& parent, std::string_view label, std::string_view text) {
    return parent.AppendChild(std::make_unique<TreeNode>(label, text));
}

std::string Write(const TreeNode& node) {
    STR output;
    node.WriteText(output, 0);
    return std::string(output.View());
}

// A chain of nodes, each the only child of the one before.
std::string MakeDeepText(int depth) {
    std::string text;
    for (int i = 0; i < depth; ++i) {
        text += "A{";
    }
    return text.append(static_cast<std::size_t>(depth), '}');
}

}  // namespace

TEST_CASE("Texts are read as numbers and flags") {
    struct Case {
        const char* m_Text;
        int m_Int;
        bool m_Bool;
    };
    const Case cases[] = {
        {"", 0, false},      {"12abc", 12, false},
        {"abc", 0, false},   {" \t-7 8", -7, false},
        {"+5", 5, false},    {"+-5", 0, false},
        {"-", 0, false},     {"2147483647", INT_MAX, false},
        {"1", 1, true},      {"99999999999999999999", INT_MAX, false},
        {"01", 1, false},    {"-2147483648", INT_MIN, false},
        {"tRUE", 0, true},   {"-99999999999999999999", INT_MIN, false},
        {"True ", 0, false}, {"yes", 0, false},
    };
    for (const Case& c : cases) {
        CAPTURE(c.m_Text);
        const TreeNode node("Label", c.m_Text);
        CHECK(node.GetInt() == c.m_Int);
        CHECK(node.GetBool() == c.m_Bool);
    }
    CHECK(TreeNode("B", true).GetText() == "True");
    CHECK(TreeNode("B", false).GetText() == "False");
    CHECK(TreeNode("I", INT_MIN).GetText() == "-2147483648");
}

TEST_CASE("Children keep their order, and the first of a label is found") {
    TreeNode root("Root");
    CHECK(root.GetChild(0) == nullptr);
    CHECK(root.GetChildren().GetCount() == 0);
    for (int i = 0; i < 10; ++i) {
        root.AppendChild(std::make_unique<TreeNode>(i % 2 == 0 ? "Even" : "Odd", i));
    }
    CHECK(root.FindChild("Odd") == root.GetChild(1));
    CHECK(root.FindChild("odd") == nullptr);
    CHECK(root.GetChildIntAt(9) == 9);
    CHECK(root.GetChildIntAt(10) == 0);
    CHECK(root.GetChildIntAt(-1) == 0);
    CHECK(root.GetChildInt("Odd", 5) == 1);
    CHECK(root.GetChildInt("None", 5) == 5);
    CHECK(root.GetChildBool("None", true));
    CHECK(root.GetChildText("None", "default") == "default");

    auto replacement = std::make_unique<TreeNode>("Odd", "new");
    Append(*replacement, "X", "1");
    root.ReplaceOrAppendChild(std::move(replacement));
    root.ReplaceOrAppendChild(std::make_unique<TreeNode>("Third", "3"));
    CHECK(root.GetChildCount() == 11);
    CHECK(root.GetChildText("Odd", "") == "new");
    CHECK(root.FindChild("Odd")->GetChildCount() == 1);

    auto self = std::make_unique<TreeNode>("Self");
    TreeNode* node = self.get();
    CHECK(node->AppendChild(std::move(self)) == node);
    node->ReplaceOrAppendChild(std::unique_ptr<TreeNode>(node));
    CHECK(node->GetChildCount() == 0);
    delete node;

    const auto corners = MakeRectangleNode("Frame", {{1, -2}, {3, INT_MAX}});
    CHECK(ReadRectangle(*corners).m_TopLeft.m_Y == -2);
    CHECK(ReadRectangle(*corners).m_BottomRight.m_Y == INT_MAX);
    CHECK(ReadRectangle(TreeNode()).m_BottomRight.m_X == 0);
}

TEST_CASE("Equal texts are one entry of the pool, which goes with its last handle") {
    const std::size_t before = GetPooledTextCount();
    {
        // One hash for all: the texts alone must keep them apart.
        std::vector<PooledString> strings;
        strings.reserve(2000);
        for (int i = 0; i < 2000; ++i) {
            strings.emplace_back("pool test " + std::to_string(i % 1000), 4711u);
        }
        CHECK(GetPooledTextCount() == before + 1000);
        CHECK(strings[7] == strings[1007]);
        CHECK(strings[999].View() == "pool test 999");
        strings.erase(strings.begin() + 500, strings.end());
        CHECK(GetPooledTextCount() == before + 500);
        CHECK(PooledString("pool test 3", 4711u) == strings[3]);
    }
    {
        std::vector<PooledString> strings;
        strings.reserve(20000);
        for (int i = 0; i < 20000; ++i) {
            strings.emplace_back("pool test " + std::to_string(i));
        }
        CHECK(GetPooledTextCount() == before + 20000);
        CHECK(PooledString("pool test 12345") == strings[12345]);
        CHECK(PooledString(std::string_view("a\0b", 3)).View().size() == 3);
    }
    CHECK(PooledString("") == PooledString());
    CHECK(GetPooledTextCount() == before);
}

TEST_CASE("A reset of the allocator frees the blocks without living nodes only") {
    NodeAllocator::Reset();
    const std::size_t nodes = NodeAllocator::GetNodeCount();
    const std::size_t blocks = NodeAllocator::GetBlockCount();
    std::vector<std::unique_ptr<TreeNode>> made;
    made.reserve(10000);
    for (int i = 0; i < 10000; ++i) {
        made.push_back(std::make_unique<TreeNode>("Node", i));
    }
    CHECK(NodeAllocator::GetNodeCount() == nodes + 10000);
    const std::unique_ptr<TreeNode> kept = std::move(made[5000]);
    made.clear();
    NodeAllocator::Reset();
    CHECK(NodeAllocator::GetBlockCount() <= blocks + 1);
    CHECK(kept->GetInt() == 5000);
    for (int i = 0; i < 10000; ++i) {
        made.push_back(std::make_unique<TreeNode>("Node", i));
    }
    CHECK(kept->GetInt() == 5000);
    CHECK(made.back()->GetInt() == 9999);
}

TEST_CASE("A tree may be deeper than the call stack") {
    const std::size_t nodes = NodeAllocator::GetNodeCount();
    const std::size_t texts = GetPooledTextCount();
    constexpr int kDepth = 200000;
    auto tree = TreeNodeReader(MakeDeepText(kDepth)).Read();
    CHECK(NodeAllocator::GetNodeCount() == nodes + kDepth);
    auto copy = std::make_unique<TreeNode>(*tree);
    tree.reset();
    int depth = 0;
    for (const TreeNode* node = copy.get(); node != nullptr; node = node->GetChild(0)) {
        ++depth;
    }
    CHECK(depth == kDepth);
    copy.reset();
    CHECK(NodeAllocator::GetNodeCount() == nodes);
    CHECK(GetPooledTextCount() == texts);

    // Every line is indented by its depth, so a deep text is long.
    tree = TreeNodeReader(MakeDeepText(5000)).Read();
    CHECK(Write(*TreeNodeReader(Write(*tree)).Read()) == Write(*tree));
}

TEST_CASE("A copy shares nothing with its source") {
    TreeNode source("Root", "text");
    Append(*Append(source, "List", ""), "A", "1");
    Append(source, "", "last");
    TreeNode copy(source);
    CHECK(Write(copy) == Write(source));
    copy.GetChild(0)->GetChild(0)->SetInt(2);
    copy.SetLabel(copy.GetLabel().substr(1));
    CHECK(Write(source) ==
          "Root \"text\"\r\n{\r\n\tList\r\n\t{\r\n\t\tA \"1\"\r\n\t}\r\n"
          "\t \"last\"\r\n}\r\n");
    CHECK(copy.GetLabel() == "oot");
}

}  // namespace tabulorix
