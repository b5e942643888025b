#include "TreeComparison.h"

#include <vector>

namespace tabulorix {

namespace {

bool IsEmpty(const TreeNode& node) {
    return node.GetLabel().empty() && node.GetText().empty() && node.GetChildCount() == 0;
}

bool CouldGoOnWith(const TreeNode& node, const TreeNode& next) {
    if (node.GetChildCount() > 0 || !next.GetLabel().empty()) {
        return false;
    }
    return next.GetText().empty() || node.GetText().empty();
}

}  // namespace

bool AreEqual(const TreeNode& left, const TreeNode& right) {
    struct Pair {
        const TreeNode* m_Left;
        const TreeNode* m_Right;
    };
    std::vector<Pair> open = {{&left, &right}};
    while (!open.empty()) {
        const Pair pair = open.back();
        open.pop_back();
        if (pair.m_Left->GetLabel() != pair.m_Right->GetLabel() ||
            pair.m_Left->GetText() != pair.m_Right->GetText() ||
            pair.m_Left->GetChildCount() != pair.m_Right->GetChildCount()) {
            return false;
        }
        for (int i = 0; i < pair.m_Left->GetChildCount(); ++i) {
            open.push_back({pair.m_Left->GetChild(i), pair.m_Right->GetChild(i)});
        }
    }
    return true;
}

bool IsWrittenAsItIs(const TreeNode& root) {
    std::vector<const TreeNode*> open = {&root};
    while (!open.empty()) {
        const TreeNode* node = open.back();
        open.pop_back();
        const TreeNode* previous = nullptr;
        for (const TreeNode* child : node->GetChildren()) {
            if (IsEmpty(*child) || (previous != nullptr && CouldGoOnWith(*previous, *child))) {
                return false;
            }
            open.push_back(child);
            previous = child;
        }
    }
    return true;
}

}  // namespace tabulorix
