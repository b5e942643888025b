// What the user chose for imports, kept in the option file of the settings folder.
//
//     { RhythmLevel "1" ... }
//
// The file is a tree (see TreeNodeReader.h). Children that this version does not know are kept and
// written back.

#pragma once

#include <memory>

#include "FileName.h"
#include "RhythmLevel.h"
#include "TreeNode.h"

namespace tabulorix {

// The option file of a settings folder.
FileName GetOptionFile(const STR& settingsFolder);

class ImportOptions {
public:
    // Reads the file; the defaults when there is none. Throws what TreeNode::ReadFromFile throws
    // when it cannot be read. The file name must outlive this object.
    explicit ImportOptions(const FileName& file);

    // As stored: files may hold numbers that are no RhythmLevel.
    int GetStoredLevel() const noexcept { return m_Level; }
    // WhenIndicated when the stored number is no level.
    RhythmLevel GetRhythmLevel() const noexcept;
    void SetRhythmLevel(RhythmLevel level) noexcept { m_Level = static_cast<int>(level); }

    // False when the file could not be written; it is then as it was. Also when its tree has more
    // than a hundred levels.
    bool Save();

private:
    const FileName& m_File;
    std::unique_ptr<TreeNode> m_Root;
    int m_Level;
};

}  // namespace tabulorix
