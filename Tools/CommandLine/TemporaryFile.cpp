#include "TemporaryFile.h"

#include "Exceptions.h"

namespace tabulorix {

TemporaryFile::TemporaryFile(const STR& folder) {
    FileCreation created = CreateUniqueFile(folder, ".tabulorix-");
    if (!created.m_Result.Succeeded()) {
        RecordThrowLocation("TemporaryFile", __LINE__);
        throw FileOpenWriteFailedException(STR("cannot make a file in ") +
                                           (folder.IsEmpty() ? STR("the current folder") : folder) +
                                           ": " + created.m_Result.m_Error);
    }
    m_Path = created.m_Path;
}

TemporaryFile::~TemporaryFile() {
    if (!m_Path.IsEmpty()) {
        RemoveFile(m_Path);
    }
}

FileResult TemporaryFile::MoveTo(const STR& path) {
    FileResult moved = MoveFileOver(m_Path, path);
    if (moved.Succeeded()) {
        m_Path = {};
    }
    return moved;
}

}  // namespace tabulorix
