#include "TreeNodeReader.h"

#include <cstdint>
#include <utility>

#include "Exceptions.h"
#include "LittleEndian.h"
#include "Log.h"
#include "TVAList.h"
#include "TreeScanner.h"
#include "Utf16Text.h"

namespace tabulorix {

namespace {

// By whether the node has a label, and whether it has a text.
constexpr const char* kRightBraceErrors[2][2] = {
    {"Unexpected right brace parsing sublist with no label or text - no parent node",
     "Unexpected right brace parsing text with no label - no parent node"},
    {"Unexpected right brace parsing after label - no parent node",
     "Unexpected right brace parsing text after label - no parent node"}};

[[noreturn]] void ThrowUnreadable(const char* message, int line) {
    RecordThrowLocation("TreeNodeReader", line);
    throw Exception(message);
}

STR ComposeError(std::string_view message, const STR& fileName, int lineNumber,
                 std::string_view token) {
    STR line(message);
    if (!fileName.IsEmpty()) {
        line += " in file ";
        line += fileName;
        line += " line ";
    } else {
        line += " at line ";
    }
    line += STR::FromInt(lineNumber);
    line += " - current text ";
    line += token;
    line += "\n";
    return line;
}

// The nodes that are in no list yet: the open nodes, from the root down, and behind each of them
// its finished children. Owns them all.
class PendingNodes {
public:
    PendingNodes() = default;
    PendingNodes(const PendingNodes&) = delete;
    PendingNodes& operator=(const PendingNodes&) = delete;
    ~PendingNodes() {
        for (TreeNode* node : m_Nodes) {
            delete node;
        }
    }

    void Add(std::unique_ptr<TreeNode> node) {
        m_Nodes.Append(node.get());
        static_cast<void>(node.release());
    }

    // Opens the list of the last node.
    void Open() { m_OpenNodes.Append(m_Nodes.GetCount() - 1); }
    bool HasOpen() const noexcept { return m_OpenNodes.GetCount() > 0; }

    // Gives the node that was opened last all that came after it. A list is made at its full length
    // in this way, instead of growing node by node.
    void Close() {
        const int node = m_OpenNodes.RemoveLast();
        const int first = node + 1;
        if (first < m_Nodes.GetCount()) {
            m_Nodes[node]->AppendChildren({m_Nodes.begin() + first, m_Nodes.end()});
            m_Nodes.Truncate(first);
        }
    }

    // The only node left.
    std::unique_ptr<TreeNode> TakeRoot() noexcept {
        return std::unique_ptr<TreeNode>(m_Nodes.RemoveLast());
    }

private:
    TVAList<TreeNode*> m_Nodes;
    TVAList<int> m_OpenNodes;
};

// Keeps one token ahead, except behind the root's right brace.
class Parser {
public:
    Parser(std::string_view text, STR fileName, STR soughtLabel)
        : m_Scanner(text), m_FileName(std::move(fileName)), m_SoughtLabel(std::move(soughtLabel)) {}

    void Parse() {
        Advance();
        ReadNode();
        if (m_Nodes.HasOpen()) {
            ReadDescendants();
        } else if (GetKind() == TreeToken::Kind::RightBrace) {
            Fail(m_RightBraceError);
        }
    }

    // How many bytes the outcome rests on.
    std::size_t GetReadCount() const noexcept { return m_Scanner.GetReadCount(); }

    // What Parse found, or the exception for it. Call once.
    std::unique_ptr<TreeNode> TakeTree() {
        if (m_Outcome == Outcome::SyntaxError) {
            ThrowUnreadable("Could not read treenode", __LINE__);
        }
        if (m_Outcome == Outcome::LabelFound) {
            RecordThrowLocation("TreeNodeReader", __LINE__);
            throw TreeNodeLabelFoundException(m_FoundText);
        }
        return m_Nodes.TakeRoot();
    }

private:
    enum class Outcome { Tree, SyntaxError, LabelFound };

    // What came last time where the parser is now.
    struct Guess {
        PooledString m_Text;
        PooledString m_NextLabel;
    };

    TreeToken::Kind GetKind() const noexcept { return m_Scanner.GetToken().m_Kind; }

    void Fail(const char* message) {
        m_Outcome = Outcome::SyntaxError;
        WriteErrorLog(ComposeError(message, m_FileName, m_Scanner.CountLineEnds(),
                                   m_Scanner.GetToken().m_Text));
    }

    void Advance() {
        m_Scanner.Advance(m_Guess->m_NextLabel.View());
        if (GetKind() == TreeToken::Kind::UnfinishedText) {
            Fail("Unexpected EOF in text string");
        } else if (GetKind() == TreeToken::Kind::Stranger) {
            Fail("Expected ~ _ or alpha numeric character");
        }
    }

    // From behind the left brace of the root's list to its right brace.
    void ReadDescendants() {
        while (m_Outcome == Outcome::Tree) {
            if (GetKind() == TreeToken::Kind::End) {
                Fail("Expected right brace parsing sub-list");
            } else if (GetKind() != TreeToken::Kind::RightBrace) {
                ReadNode();
            } else {
                m_Nodes.Close();
                if (!m_Nodes.HasOpen()) {
                    return;
                }
                Advance();
            }
        }
    }

    // A node up to and with its left brace. `m_RightBraceError` becomes what a right brace means
    // that follows a node without parent.
    void ReadNode() {
        const bool hasLabel = GetKind() == TreeToken::Kind::Word;
        PooledString label = hasLabel ? ReadLabel() : PooledString();
        const bool hasText = GetKind() == TreeToken::Kind::Text;
        PooledString text = hasText ? ReadText(label) : PooledString();
        m_RightBraceError = kRightBraceErrors[hasLabel][hasText];
        m_Nodes.Add(std::make_unique<TreeNode>(std::move(label), std::move(text)));
        if (GetKind() == TreeToken::Kind::LeftBrace) {
            m_Nodes.Open();
            Advance();
        }
    }

    PooledString ReadLabel() {
        if (!m_Scanner.GetToken().m_IsLikelyWord) {
            m_Guess->m_NextLabel = PooledString(m_Scanner.GetToken().m_Text);
        }
        PooledString label = m_Guess->m_NextLabel;
        m_Guess = &m_Guesses[label.GetHash() % kGuessCount];
        Advance();
        return label;
    }

    PooledString ReadText(const PooledString& label) {
        const std::string_view text = m_Scanner.GetToken().m_Text;
        if (!m_SoughtLabel.IsEmpty() && label.View() == m_SoughtLabel.View()) {
            m_Outcome = Outcome::LabelFound;
            m_FoundText = STR(text);
            return {};
        }
        const std::string_view guess = m_Guess->m_Text.View();
        if (guess.size() != text.size() ||
            !EqualShortBytes(guess.data(), text.data(), text.size())) {
            m_Guess->m_Text = PooledString(text);
        }
        PooledString result = m_Guess->m_Text;
        Advance();
        return result;
    }

    // A document repeats itself: a label has the text that it had last time, and the label behind
    // it that it had last time. Trying these first spares most of the look-ups in the pool, and an
    // eighth of the time. The place goes by the last label's hash; a wrong guess costs no more than
    // a look-up.
    static constexpr std::uint32_t kGuessCount = 256;

    TreeScanner m_Scanner;
    STR m_FileName;
    STR m_SoughtLabel;
    PendingNodes m_Nodes;
    Guess m_Guesses[kGuessCount];
    Guess* m_Guess = &m_Guesses[0];
    const char* m_RightBraceError = nullptr;
    Outcome m_Outcome = Outcome::Tree;
    STR m_FoundText;
};

}  // namespace

TreeNodeReader::TreeNodeReader(std::string_view bytes, Source source, STR fileName, STR soughtLabel)
    : m_Bytes(bytes),
      m_Source(source),
      m_FileName(std::move(fileName)),
      m_SoughtLabel(std::move(soughtLabel)) {}

std::unique_ptr<TreeNode> TreeNodeReader::Read() {
    const bool isLittleEndian = m_Bytes.starts_with("\xFF\xFE");
    if (isLittleEndian || m_Bytes.starts_with("\xFE\xFF")) {
        return ReadUtf16(!isLittleEndian);
    }
    if (m_Source == Source::File && m_Bytes.starts_with('\0')) {
        RejectBinary();
    }
    Parser parser(m_Bytes, m_FileName, m_SoughtLabel);
    parser.Parse();
    return parser.TakeTree();
}

std::unique_ptr<TreeNode> TreeNodeReader::ReadUtf16(bool isBigEndian) const {
    Utf16Text text(m_Bytes.substr(2), isBigEndian);
    const std::unique_ptr<char[]> narrow = text.Narrow();
    Parser parser({narrow.get(), text.GetUnitCount()}, m_FileName, m_SoughtLabel);
    parser.Parse();
    text.WarnOfLostBytes(parser.GetReadCount());
    return parser.TakeTree();
}

// The binary form is known by its head only, and to this reader nothing follows the head: no file
// that the program reads has that form.
void TreeNodeReader::RejectBinary() const {
    const char version = m_Bytes.size() > 1 ? m_Bytes[1] : '\0';
    if (version != 1 && version != 2) {
        ThrowUnreadable("Could not read treenode - version is not recognized", __LINE__);
    }
    WriteErrorLog(ComposeError("Unexpected end of file", m_FileName, 0, {}));
    ThrowUnreadable("Could not read treenode", __LINE__);
}

}  // namespace tabulorix
