// The labelled tree of text values in which every structured document is held: the score, the
// template that it starts from, and the option file.
//
// A node has a label, a text and an ordered list of children, each of which may be missing. Numbers
// and flags are kept as text: ints in decimal, bools as "True" and "False". A node owns its
// children and has no pointer to its parent; trees are walked downwards only. Look-ups never throw.
// Only allocation fails, with OutOfMemoryException.
//
// Labels and texts are held once in a process-wide pool, nodes in blocks of a process-wide
// allocator; neither is safe to use from several threads.

#pragma once

#include <concepts>
#include <cstddef>
#include <memory>
#include <span>
#include <string_view>
#include <utility>

#include "FileSystem.h"
#include "STR.h"
#include "StringPool.h"
#include "TVAList.h"

namespace tabulorix {

class TreeNode final {
public:
    TreeNode() noexcept = default;
    explicit TreeNode(std::string_view label);
    TreeNode(std::string_view label, std::string_view text);
    // Constrained, so that a literal text is never taken for a bool.
    template <std::same_as<bool> Bool>
    TreeNode(std::string_view label, Bool value) : TreeNode(label, GetBoolText(value)) {}
    TreeNode(std::string_view label, int value);
    // Takes over strings that the pool holds already.
    TreeNode(PooledString label, PooledString text) noexcept
        : m_Label(std::move(label)), m_Text(std::move(text)) {}

    // A deep copy. Works on an explicit stack, as deletion does: a tree may be of any depth.
    TreeNode(const TreeNode& other);
    TreeNode& operator=(const TreeNode&) = delete;
    ~TreeNode();

    // Nodes live in blocks; see NodeAllocator.h.
    static void* operator new(std::size_t size);
    static void operator delete(void* memory) noexcept;

    std::string_view GetLabel() const noexcept { return m_Label.View(); }
    void SetLabel(std::string_view label);
    std::string_view GetText() const noexcept { return m_Text.View(); }
    void SetText(std::string_view text);
    void SetInt(int value);
    // The leading decimal number of the text, with an optional sign; 0 when there is none. Numbers
    // beyond an int's range give its nearest end.
    int GetInt() const noexcept;
    // True for "True" in any case and for "1".
    bool GetBool() const noexcept;

    int GetChildCount() const noexcept { return m_Children.GetCount(); }
    // Null when `index` is not in 0 ... count - 1.
    TreeNode* GetChild(int index) noexcept;
    const TreeNode* GetChild(int index) const noexcept;
    // The children in order, as plain pointers. Appending ends the validity of the range.
    const TVAList<TreeNode*>& GetChildren() const noexcept { return m_Children; }

    // The first child with exactly this label, or null.
    TreeNode* FindChild(std::string_view label) noexcept;
    const TreeNode* FindChild(std::string_view label) const noexcept;

    // Adds the child at the end and returns it. A node given to itself is let go of, unchanged.
    TreeNode* AppendChild(std::unique_ptr<TreeNode> child);
    // Adds all the nodes at the end and owns them from then on; none when it throws.
    void AppendChildren(std::span<TreeNode* const> children);
    // `child` is not null. A child with the same label takes over the new node's text and children;
    // without one the new node is appended.
    void ReplaceOrAppendChild(std::unique_ptr<TreeNode> child);

    // The values of the first child with this label, or the default when there is none. The text is
    // valid as long as the child, or the default, is.
    std::string_view GetChildText(std::string_view label,
                                  std::string_view defaultText) const noexcept;
    int GetChildInt(std::string_view label, int defaultValue) const noexcept;
    bool GetChildBool(std::string_view label, bool defaultValue) const noexcept;
    // The int of the child at this index, or 0.
    int GetChildIntAt(int index) const noexcept;

    // Reads a whole file. Throws Exception "Could not open configuration file " and the path when
    // it cannot be opened, and what TreeNodeReader throws when it is not a tree.
    static std::unique_ptr<TreeNode> ReadFromFile(const STR& path);
    // Replaces the file, links followed, by this tree as text, wholly or not at all; a file that
    // cannot be replaced is written in place. When that fails too, the result is false and says
    // why, and the error log has a line.
    FileResult WriteToFile(const STR& path) const;
    // The same where nothing may be at the path yet.
    FileResult WriteToNewFile(const STR& path) const;
    // Into a file that the caller keeps or moves when all is written; the log has no line.
    FileResult WriteInto(NewFile& file) const;
    // Appends the text of this node and its descendants, indented by `depth` tabs. The format
    // stands at the head of TreeNodeWriter.cpp.
    void WriteText(STR& output, int depth) const;

private:
    void CopyChildren(const TreeNode& source);
    static std::string_view GetBoolText(bool value) noexcept { return value ? "True" : "False"; }

    PooledString m_Label;
    PooledString m_Text;
    TVAList<TreeNode*> m_Children;
};

// Points and rectangles as documents hold them: a point has the ints "X" and "Y", a rectangle the
// points "TopLeft" and "BottomRight".
struct TreePoint {
    int m_X = 0;
    int m_Y = 0;
};

struct TreeRectangle {
    TreePoint m_TopLeft;
    TreePoint m_BottomRight;
};

std::unique_ptr<TreeNode> MakePointNode(std::string_view label, TreePoint point);
std::unique_ptr<TreeNode> MakeRectangleNode(std::string_view label, const TreeRectangle& rectangle);
TreePoint ReadPoint(const TreeNode& node) noexcept;
TreeRectangle ReadRectangle(const TreeNode& node) noexcept;

}  // namespace tabulorix
