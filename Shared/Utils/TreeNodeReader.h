// Parses the text form of a tree.
//
//     document = node            whatever follows the first node is not read
//     node     = [ word ] [ "text" ] [ { node ... } ]      at least one of the three
//
// A word is made of letters, digits and - . / \ _ ~ and is the node's label. In a text every
// character stands for itself, line ends included, except that "" is one double quote. White space
// separates tokens; there are no comments. Input that starts with FF FE or FE FF is UTF-16,
// anything else 8-bit text.

#pragma once

#include <memory>
#include <string_view>

#include "STR.h"
#include "TreeNode.h"

namespace tabulorix {

class TreeNodeReader {
public:
    // Where the bytes come from: a file whose first byte is 0 would hold the binary form of a tree,
    // memory never does.
    enum class Source { Memory, File };

    // `bytes` must outlive the reader. `fileName` serves messages only. When `soughtLabel` is not
    // empty, reading stops at the first node with that label and a text.
    explicit TreeNodeReader(std::string_view bytes, Source source = Source::Memory,
                            STR fileName = {}, STR soughtLabel = {});

    // Call once. The root; an empty node for empty input. Syntax errors are written to the error
    // log, and then Exception "Could not read treenode" is thrown. Throws
    // TreeNodeLabelFoundException with the text of the sought node.
    std::unique_ptr<TreeNode> Read();

private:
    std::unique_ptr<TreeNode> ReadUtf16(bool isBigEndian) const;
    [[noreturn]] void RejectBinary() const;

    std::string_view m_Bytes;
    Source m_Source;
    STR m_FileName;
    STR m_SoughtLabel;
};

}  // namespace tabulorix
