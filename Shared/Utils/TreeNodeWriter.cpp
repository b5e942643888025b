// Writes the text form of a tree.
//
//     VifFileVersion "10100004"       a label, a blank and the text in double quotes
//     {                               the children follow, one tab deeper
//     <tab>Type "Score"
//     <tab>Bars                       an empty text is not written
//     <tab>{
//     <tab><tab> "first"              a list element has no label
//     <tab><tab>                      nor has an object in a list: a line of its tabs only
//     <tab><tab>{
//     <tab><tab><tab>Name"an ""A"""   quotes are doubled, and the blank is left out
//     <tab><tab>}
//     <tab>}
//     }
//
// Every line ends in CR LF, the last one too.

#include <algorithm>
#include <string>

#include "FileName.h"
#include "Log.h"
#include "TVAList.h"
#include "TreeNode.h"

namespace tabulorix {

namespace {

void WriteQuotedText(std::string& output, std::string_view text) {
    std::size_t quote = text.find('"');
    output += quote == std::string_view::npos ? " \"" : "\"";
    while (quote != std::string_view::npos) {
        output.append(text, 0, quote + 1);
        output += '"';
        text.remove_prefix(quote + 1);
        quote = text.find('"');
    }
    output += text;
    output += '"';
}

// The node up to its children.
void WriteHead(std::string& output, const TreeNode& node, std::size_t depth) {
    output.append(depth, '\t');
    output += node.GetLabel();
    if (!node.GetText().empty()) {
        WriteQuotedText(output, node.GetText());
    }
    output += "\r\n";
    if (node.GetChildCount() > 0) {
        output.append(depth, '\t');
        output += "{\r\n";
    }
}

// A node whose children are being written.
struct Level {
    const TreeNode* m_Node;
    int m_NextChild;
};

// What is handed on at once: little enough to stay in the processor's caches, so that a score takes
// no memory of its own size beside the tree.
constexpr std::size_t kPieceSize = 65536;

// Hands the text on in pieces, until one is not taken.
template <typename Take>
FileResult WritePieces(const TreeNode& root, std::size_t depth, Take take) {
    std::string output;
    TVAList<Level> levels;
    WriteHead(output, root, depth);
    levels.Append({&root, 0});
    while (levels.GetCount() > 0) {
        Level& level = levels[levels.GetCount() - 1];
        const std::size_t levelDepth = depth + static_cast<std::size_t>(levels.GetCount()) - 1;
        if (level.m_NextChild < level.m_Node->GetChildCount()) {
            const TreeNode* child = level.m_Node->GetChild(level.m_NextChild++);
            WriteHead(output, *child, levelDepth + 1);
            if (child->GetChildCount() > 0) {
                levels.Append({child, 0});
            }
        } else {
            if (level.m_Node->GetChildCount() > 0) {
                output.append(levelDepth, '\t');
                output += "}\r\n";
            }
            levels.RemoveLast();
        }
        if (output.size() >= kPieceSize) {
            if (FileResult taken = take(output); !taken) {
                return taken;
            }
            output.clear();
        }
    }
    return take(output);
}

void LogFailure(const FileResult& written, const STR& path) {
    if (!written) {
        WriteErrorLog(STR("Could not write configuration file ") + path + "\n");
    }
}

}  // namespace

void TreeNode::WriteText(STR& output, int depth) const {
    WritePieces(*this, static_cast<std::size_t>(std::max(depth, 0)), [&](std::string_view piece) {
        output += piece;
        return FileResult();
    });
}

FileResult TreeNode::WriteInto(NewFile& file) const {
    if (!file.GetCreation()) {
        return file.GetCreation();
    }
    return WritePieces(*this, 0, [&file](std::string_view piece) { return file.Write(piece); });
}

FileResult TreeNode::WriteToFile(const STR& path) const {
    const STR target = ResolveLinks(path);
    NewFile file = NewFile::In(GetFolderPart(target));
    FileResult written = WriteInto(file);
    const bool hasRoom = written || !file.GetCreation();
    if (written) {
        written = file.MoveOver(target);
    }
    // A file that another program holds, or whose folder takes no new ones, may still be written
    // to.
    if (!written && hasRoom) {
        STR text;
        WriteText(text, 0);
        written = WriteWholeFile(target, text);
    }
    LogFailure(written, path);
    return written;
}

FileResult TreeNode::WriteToNewFile(const STR& path) const {
    NewFile file = NewFile::At(path);
    FileResult written = WriteInto(file);
    if (written) {
        written = file.Keep();
    }
    LogFailure(written, path);
    return written;
}

}  // namespace tabulorix
