// A file in the folder of temporary files, for as long as the object lives.

#pragma once

#include "FileSystem.h"

namespace tabulorix {

class ScratchFile {
public:
    ScratchFile() : m_Path(CreateUniqueFile(GetTemporaryFolder(), "bench").m_Path) {}
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    ~ScratchFile() { RemoveFile(m_Path); }

    const STR& GetPath() const noexcept { return m_Path; }

private:
    STR m_Path;
};

}  // namespace tabulorix
