#include <climits>

#include "NodeAllocator.h"
#include "TestSupport.h"

namespace tabulorix {

TEST_CASE("Texts are read as numbers and flags") {
    // The number, "!" when the text is a set flag.
    const Cases cases = {{"", "0"},
                         {"12abc", "12"},
                         {" \t-7 8", "-7"},
                         {"+5", "5"},
                         {"+-5", "0"},
                         {"-", "0"},
                         {"2147483648", "2147483647"},
                         {"99999999999999999999", "2147483647"},
                         {"-2147483648", "-2147483648"},
                         {"-99999999999999999999", "-2147483648"},
                         {"1", "1!"},
                         {"01", "1"},
                         {"tRUE", "0!"},
                         {"True ", "0"}};
    CheckEach(cases, [](const std::string& text) {
        const TreeNode node("Label", text);
        return Cat(node.GetInt(), node.GetBool() ? "!" : "");
    });
    CHECK(TreeNode("B", true).GetText() == "True");
    CHECK(TreeNode("B", false).GetText() == "False");
    CHECK(TreeNode("I", INT_MIN).GetText() == "-2147483648");
}

TEST_CASE("Children keep their order, and the first of a label is found") {
    const auto root = TreeNodeReader("Root { Even \"0\" Odd \"1\" Even \"2\" Odd \"3\" }").Read();
    CHECK(root->FindChild("Odd") == root->GetChild(1));
    CHECK(root->FindChild("odd") == nullptr);
    CHECK(root->GetChild(4) == nullptr);
    CHECK(Cat(root->GetChildIntAt(3), root->GetChildIntAt(4), root->GetChildIntAt(-1)) == "300");
    CHECK(Cat(root->GetChildInt("Odd", 5), root->GetChildInt("None", 5)) == "15");
    CHECK(root->GetChildBool("None", true));
    CHECK(root->GetChildText("None", "default") == "default");

    root->ReplaceOrAppendChild(TreeNodeReader("Odd \"new\" { X }").Read());
    root->ReplaceOrAppendChild(std::make_unique<TreeNode>("Third", "3"));
    CHECK(GetTreeText(*root) ==
          GetTreeText("Root { Even \"0\" Odd \"new\" { X } Even \"2\" Odd \"3\" Third \"3\" }"));

    root->SetLabel(root->GetLabel().substr(1));
    CHECK(root->GetLabel() == "oot");

    TreeNode* self = std::make_unique<TreeNode>("Self").release();
    CHECK(self->AppendChild(std::unique_ptr<TreeNode>(self)) == self);
    self->ReplaceOrAppendChild(std::unique_ptr<TreeNode>(self));
    CHECK(self->GetChildCount() == 0);
    delete self;

    const auto corners = MakeRectangleNode("Frame", {{1, -2}, {3, INT_MAX}});
    CHECK(ReadRectangle(*corners).m_TopLeft.m_Y == -2);
    CHECK(ReadRectangle(*corners).m_BottomRight.m_Y == INT_MAX);
    CHECK(ReadRectangle(TreeNode()).m_BottomRight.m_X == 0);
}

TEST_CASE("Equal texts are one entry of the pool, which goes with its last handle") {
    const std::size_t before = GetPooledTextCount();
    {
        // One hash for all: the texts alone must keep them apart, wherever they differ.
        std::vector<PooledString> strings;
        for (std::size_t length = 1; length < 30; ++length) {
            for (std::size_t i = 0; i < length; ++i) {
                std::string text(length, 'a');
                text[i] = 'b';
                strings.emplace_back(text, 4711u);
                CHECK(strings.back().View() == text);
            }
        }
        CHECK(GetPooledTextCount() == before + strings.size());
        strings.erase(strings.begin() + 200, strings.end());
        CHECK(GetPooledTextCount() == before + 200);
        CHECK(PooledString("ab", 4711u) == strings[2]);
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

TEST_CASE("A tree may be deeper than the call stack, and its memory goes with it") {
    NodeAllocator::Reset();
    const std::size_t nodes = NodeAllocator::GetNodeCount();
    const std::size_t blocks = NodeAllocator::GetBlockCount();
    const std::size_t texts = GetPooledTextCount();
    constexpr int kDepth = 200000;
    auto tree = TreeNodeReader(Repeat("A{", kDepth) + Repeat("}", kDepth)).Read();
    auto copy = std::make_unique<TreeNode>(*tree);
    // The last node of the tree shares its block with the first one of the copy.
    tree.reset();
    NodeAllocator::Reset();
    CHECK(NodeAllocator::GetNodeCount() == nodes + kDepth);
    copy.reset();
    NodeAllocator::Reset();
    CHECK(NodeAllocator::GetNodeCount() == nodes);
    CHECK(NodeAllocator::GetBlockCount() == blocks);
    CHECK(GetPooledTextCount() == texts);

    // Every line is indented by its depth, so a deep text is long.
    tree = TreeNodeReader(Repeat("A{", 5000) + Repeat("}", 5000)).Read();
    CHECK(GetTreeText(GetTreeText(*tree)) == GetTreeText(*tree));
}

}  // namespace tabulorix
