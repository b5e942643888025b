// Tree text: whatever can be read is read alike in every encoding, and reads back when written.

#include <algorithm>
#include <string>

#include "Exceptions.h"
#include "FuzzTarget.h"
#include "TreeComparison.h"
#include "TreeNodeReader.h"

namespace tabulorix {

namespace {

using Source = TreeNodeReader::Source;

// Null when the bytes are no tree.
std::unique_ptr<TreeNode> ReadTree(std::string_view bytes, Source source = Source::Memory) {
    try {
        return TreeNodeReader(bytes, source).Read();
    } catch (const OutOfMemoryException&) {
        throw;
    } catch (const Exception&) {
        return nullptr;
    }
}

bool AreSameOutcome(const TreeNode* left, const TreeNode* right) {
    return left == nullptr || right == nullptr ? left == right : AreEqual(*left, *right);
}

bool IsAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

std::string Widen(std::string_view ascii, bool isBigEndian) {
    std::string wide = isBigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char c : ascii) {
        wide += isBigEndian ? '\0' : c;
        wide += isBigEndian ? c : '\0';
    }
    return wide;
}

void CheckEncodings(std::string_view bytes, const TreeNode* tree) {
    if (!bytes.starts_with('\0')) {
        Require(AreSameOutcome(tree, ReadTree(bytes, Source::File).get()),
                "files are read like memory");
    }
    if (std::all_of(bytes.begin(), bytes.end(), IsAscii)) {
        for (const bool isBigEndian : {false, true}) {
            Require(AreSameOutcome(tree, ReadTree(Widen(bytes, isBigEndian)).get()),
                    "wide characters are read like narrow ones");
        }
    }
}

void CheckWrittenForm(const TreeNode& tree) {
    STR text;
    tree.WriteText(text, 0);
    const auto reread = ReadTree(text);
    Require(reread != nullptr, "what is written can be read");
    Require(!IsWrittenAsItIs(tree) || AreEqual(tree, *reread), "what is written reads back");
    Require(AreEqual(tree, TreeNode(tree)), "a copy is equal");
}

// Reading ends at the sought label or as it does when nothing is sought.
void CheckSearch(std::string_view bytes, const TreeNode* tree) {
    try {
        const auto found = TreeNodeReader(bytes, Source::Memory, {}, "Type").Read();
        Require(AreSameOutcome(tree, found.get()), "a label that is not there changes nothing");
    } catch (const TreeNodeLabelFoundException& e) {
        Require(bytes.size() > static_cast<std::size_t>(e.GetText().GetLength()),
                "a text is shorter than the file");
    } catch (const OutOfMemoryException&) {
        throw;
    } catch (const Exception&) {
        Require(tree == nullptr, "a tree stays a tree while a label is sought");
    }
}

}  // namespace

}  // namespace tabulorix

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tabulorix;
    const std::string_view bytes = GetInput(data, size);
    const std::unique_ptr<TreeNode> tree = ReadTree(bytes);
    CheckEncodings(bytes, tree.get());
    CheckSearch(bytes, tree.get());
    if (tree != nullptr) {
        CheckWrittenForm(*tree);
    }
    return 0;
}
