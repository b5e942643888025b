#include "TreeNode.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cstdint>
#include <utility>

#include "Ascii.h"
#include "Exceptions.h"
#include "FileSystem.h"
#include "NodeAllocator.h"
#include "TreeNodeReader.h"
#include "UserLocale.h"

namespace tabulorix {

namespace {

PooledString PoolInt(int value) {
    char digits[sizeof "-2147483648"];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), value);
    return PooledString(std::string_view(digits, static_cast<std::size_t>(end.ptr - digits)));
}

int ParseInt(std::string_view text) noexcept {
    while (!text.empty() && IsWhiteSpace(text.front())) {
        text.remove_prefix(1);
    }
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    constexpr std::int64_t kLimit = std::int64_t{INT_MAX} + 1;
    std::int64_t value = 0;
    for (; !text.empty() && IsDigit(text.front()); text.remove_prefix(1)) {
        value = std::min(value * 10 + (text.front() - '0'), kLimit);
    }
    return static_cast<int>(isNegative ? -value : std::min(value, kLimit - 1));
}

}  // namespace

TreeNode::TreeNode(std::string_view label) : m_Label(label) {}

TreeNode::TreeNode(std::string_view label, std::string_view text) : m_Label(label), m_Text(text) {}

TreeNode::TreeNode(std::string_view label, int value) : m_Label(label), m_Text(PoolInt(value)) {}

// The delegation makes this a complete node, so that its destructor frees what a failed copy made.
TreeNode::TreeNode(const TreeNode& other) : TreeNode(other.m_Label, other.m_Text) {
    CopyChildren(other);
}

void TreeNode::CopyChildren(const TreeNode& source) {
    struct Level {
        const TreeNode* m_Source;
        TreeNode* m_Copy;
        int m_NextChild;
    };
    TVAList<Level> levels;
    levels.Append({&source, this, 0});
    while (levels.GetCount() > 0) {
        Level& level = levels[levels.GetCount() - 1];
        if (level.m_NextChild == level.m_Source->GetChildCount()) {
            levels.RemoveLast();
            continue;
        }
        const TreeNode* child = level.m_Source->m_Children[level.m_NextChild++];
        TreeNode* copy =
            level.m_Copy->AppendChild(std::make_unique<TreeNode>(child->m_Label, child->m_Text));
        if (child->GetChildCount() > 0) {
            levels.Append({child, copy, 0});
        }
    }
}

// Goes down along the last children. On the way, a node's last slot, whose child is the node below,
// holds the way back up: deletion needs no memory and no recursion.
TreeNode::~TreeNode() {
    TreeNode* node = this;
    TreeNode* parent = nullptr;
    for (;;) {
        if (node->GetChildCount() > 0) {
            TreeNode*& lastSlot = node->m_Children[node->GetChildCount() - 1];
            TreeNode* child = lastSlot;
            lastSlot = parent;
            parent = node;
            node = child;
        } else if (parent == nullptr) {
            return;
        } else {
            delete node;
            node = parent;
            parent = node->m_Children.RemoveLast();
        }
    }
}

void* TreeNode::operator new(std::size_t) {
    return NodeAllocator::Allocate();
}

void TreeNode::operator delete(void* memory) noexcept {
    NodeAllocator::Free(memory);
}

void TreeNode::SetLabel(std::string_view label) {
    m_Label = PooledString(label);
}

void TreeNode::SetText(std::string_view text) {
    m_Text = PooledString(text);
}

void TreeNode::SetInt(int value) {
    m_Text = PoolInt(value);
}

int TreeNode::GetInt() const noexcept {
    return ParseInt(GetText());
}

bool TreeNode::GetBool() const noexcept {
    return GetText() == "1" || EqualsIgnoringCaseInLocale(GetText(), GetBoolText(true));
}

const TreeNode* TreeNode::GetChild(int index) const noexcept {
    return index >= 0 && index < GetChildCount() ? m_Children[index] : nullptr;
}

TreeNode* TreeNode::GetChild(int index) noexcept {
    return const_cast<TreeNode*>(std::as_const(*this).GetChild(index));
}

const TreeNode* TreeNode::FindChild(std::string_view label) const noexcept {
    for (const TreeNode* child : GetChildren()) {
        if (child->GetLabel() == label) {
            return child;
        }
    }
    return nullptr;
}

TreeNode* TreeNode::FindChild(std::string_view label) noexcept {
    return const_cast<TreeNode*>(std::as_const(*this).FindChild(label));
}

TreeNode* TreeNode::AppendChild(std::unique_ptr<TreeNode> child) {
    if (child != nullptr && child.get() != this) {
        m_Children.Append(child.get());
    }
    return child.release();
}

void TreeNode::AppendChildren(std::span<TreeNode* const> children) {
    m_Children.Append(children.data(), static_cast<int>(children.size()));
}

void TreeNode::ReplaceOrAppendChild(std::unique_ptr<TreeNode> child) {
    TreeNode* existing = FindChild(child->GetLabel());
    if (existing == nullptr || child.get() == this) {
        AppendChild(std::move(child));
        return;
    }
    std::swap(existing->m_Text, child->m_Text);
    existing->m_Children.Swap(child->m_Children);
}

std::string_view TreeNode::GetChildText(std::string_view label,
                                        std::string_view defaultText) const noexcept {
    const TreeNode* child = FindChild(label);
    return child == nullptr ? defaultText : child->GetText();
}

int TreeNode::GetChildInt(std::string_view label, int defaultValue) const noexcept {
    const TreeNode* child = FindChild(label);
    return child == nullptr ? defaultValue : child->GetInt();
}

bool TreeNode::GetChildBool(std::string_view label, bool defaultValue) const noexcept {
    const TreeNode* child = FindChild(label);
    return child == nullptr ? defaultValue : child->GetBool();
}

int TreeNode::GetChildIntAt(int index) const noexcept {
    const TreeNode* child = GetChild(index);
    return child == nullptr ? 0 : child->GetInt();
}

std::unique_ptr<TreeNode> TreeNode::ReadFromFile(const STR& path) {
    const FileContents contents = ReadWholeFile(path);
    if (!contents.m_Result.Succeeded()) {
        RecordThrowLocation("TreeNode", __LINE__);
        throw Exception(STR("Could not open configuration file ") + path);
    }
    return TreeNodeReader(contents.m_Bytes, TreeNodeReader::Source::File, path).Read();
}

std::unique_ptr<TreeNode> MakePointNode(std::string_view label, TreePoint point) {
    auto node = std::make_unique<TreeNode>(label);
    node->AppendChild(std::make_unique<TreeNode>("X", point.m_X));
    node->AppendChild(std::make_unique<TreeNode>("Y", point.m_Y));
    return node;
}

std::unique_ptr<TreeNode> MakeRectangleNode(std::string_view label,
                                            const TreeRectangle& rectangle) {
    auto node = std::make_unique<TreeNode>(label);
    node->AppendChild(MakePointNode("TopLeft", rectangle.m_TopLeft));
    node->AppendChild(MakePointNode("BottomRight", rectangle.m_BottomRight));
    return node;
}

TreePoint ReadPoint(const TreeNode& node) noexcept {
    return {node.GetChildInt("X", 0), node.GetChildInt("Y", 0)};
}

TreeRectangle ReadRectangle(const TreeNode& node) noexcept {
    const auto readCorner = [&node](std::string_view label) {
        const TreeNode* corner = node.FindChild(label);
        return corner == nullptr ? TreePoint() : ReadPoint(*corner);
    };
    return {readCorner("TopLeft"), readCorner("BottomRight")};
}

}  // namespace tabulorix
