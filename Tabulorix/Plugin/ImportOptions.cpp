#include "ImportOptions.h"

namespace tabulorix {

namespace {

constexpr const char* kRhythmLevel = "RhythmLevel";
constexpr int kDefaultLevel = static_cast<int>(RhythmLevel::WhenIndicated);

}  // namespace

FileName GetOptionFile(const STR& settingsFolder) {
    return FileName(settingsFolder, "TabulorixOptions", "txt");
}

ImportOptions::ImportOptions(const FileName& file)
    : m_File(file),
      m_Root(file.Exists() ? TreeNode::ReadFromFile(file.GetPath()) : std::make_unique<TreeNode>()),
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
