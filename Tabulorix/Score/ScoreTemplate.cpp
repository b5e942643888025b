#include "ScoreTemplate.h"

#include "ResId.h"
#include "TreeNodeReader.h"

namespace tabulorix {

namespace {

constexpr int kTemplateId = 100;
constexpr const char* kTemplateType = "TREENODE";

}  // namespace

std::unique_ptr<TreeNode> CreateBlankScore() {
    const std::string_view bytes = ResId(kTemplateId).GetResource(kTemplateType);
    return bytes.empty() ? nullptr : ReadBlankScore(bytes);
}

std::unique_ptr<TreeNode> ReadBlankScore(std::string_view bytes) {
    return TreeNodeReader(bytes).Read();
}

TreeNode* GetMusic(TreeNode& document) noexcept {
    return document.FindChild("Music");
}

}  // namespace tabulorix
