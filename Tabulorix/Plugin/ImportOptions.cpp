#include "ImportOptions.h"

#include <cstdint>
#include <utility>
#include <vector>

#include "Exceptions.h"

namespace tabulorix {

namespace {

constexpr const char* kRhythmLevel = "RhythmLevel";
// The lines of a tree begin with a tab for each level, so that a file of nothing but braces would
// grow with the square of its size when it is saved. What needs more tabs than this was made to do
// harm.
constexpr std::int64_t kMostTabsSaved = 4 << 20;
constexpr int kDefaultLevel = static_cast<int>(RhythmLevel::WhenIndicated);

// Whether there is a file is asked only when it cannot be read: a system that fails for a moment
// must not pass for one without the file, whose options would be lost with the next saving.
std::unique_ptr<TreeNode> ReadOptions(const FileName& file) {
    try {
        return TreeNode::ReadFromFile(file.GetPath());
    } catch (const Exception&) {
        if (file.Exists()) {
            throw;
        }
        return std::make_unique<TreeNode>();
    }
}

// In the first line of each node; its braces have as many again.
bool HasMoreTabsThan(std::int64_t most, const TreeNode& root) {
    std::vector<const TreeNode*> level = {&root};
    for (std::int64_t depth = 0; !level.empty() && most >= 0; ++depth) {
        most -= depth * static_cast<std::int64_t>(level.size());
        std::vector<const TreeNode*> next;
        for (const TreeNode* node : level) {
            next.insert(next.end(), node->GetChildren().begin(), node->GetChildren().end());
        }
        level = std::move(next);
    }
    return most < 0;
}

}  // namespace

FileName GetOptionFile(const STR& settingsFolder) {
    return FileName(settingsFolder, "TabulorixOptions", "txt");
}

ImportOptions::ImportOptions(const FileName& file)
    : m_File(file),
      m_Root(ReadOptions(file)),
      m_Level(m_Root->GetChildInt(kRhythmLevel, kDefaultLevel)) {}

RhythmLevel ImportOptions::GetRhythmLevel() const noexcept {
    switch (const auto level = static_cast<RhythmLevel>(m_Level)) {
        case RhythmLevel::Never:
        case RhythmLevel::WhenIndicated:
        case RhythmLevel::Always:
            return level;
    }
    return RhythmLevel::WhenIndicated;
}

bool ImportOptions::Save() {
    m_Root->ReplaceOrAppendChild(std::make_unique<TreeNode>(kRhythmLevel, m_Level));
    return !HasMoreTabsThan(kMostTabsSaved, *m_Root) &&
           m_Root->WriteToFile(m_File.GetPath()).Succeeded();
}

}  // namespace tabulorix
