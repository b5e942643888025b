#include "ImportOptions.h"

#include "Exceptions.h"

namespace tabulorix {

namespace {

constexpr const char* kRhythmLevel = "RhythmLevel";
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
    return m_Root->WriteToFile(m_File.GetPath()).Succeeded();
}

}  // namespace tabulorix
