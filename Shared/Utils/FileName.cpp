#include "FileName.h"

#include <algorithm>

#include "Exceptions.h"
#include "FileSystem.h"

namespace tabulorix {

std::string_view GetLastPart(std::string_view path) noexcept {
    const auto separator = std::find_if(path.rbegin(), path.rend(), IsPathSeparator);
    return path.substr(static_cast<std::size_t>(path.rend() - separator));
}

std::string_view GetFolderPart(std::string_view path) noexcept {
    return path.substr(0, path.size() - GetLastPart(path).size());
}

STR JoinPath(const STR& folder, const STR& name) {
    STR path = folder;
    if (!folder.IsEmpty() && !IsPathSeparator(folder.View().back())) {
        const char separator = GetPathSeparator();
        path += std::string_view(&separator, 1);
    }
    return path += name;
}

STR ReplaceExtension(const STR& path, const STR& extension) {
    const std::string_view name = GetLastPart(path);
    const std::size_t dot = name.rfind('.');
    const bool hasExtension = dot != std::string_view::npos && dot != 0;
    const std::size_t dropped = hasExtension ? name.size() - dot : 0;
    STR replaced = path.View().substr(0, path.View().size() - dropped);
    return (replaced += ".") += extension;
}

FileName::FileName(const STR& path) : m_Path(GetFullPath(path)) {}

FileName::FileName(const STR& folder, const STR& name, const STR& extension)
    : m_Path(JoinPath(folder, name)) {
    if (!extension.IsEmpty() && extension.View().front() != '.') {
        m_Path += ".";
    }
    m_Path += extension;
}

FileName FileName::WithExtension(const STR& extension) const {
    FileName replaced;
    replaced.m_Path = ReplaceExtension(m_Path, extension);
    return replaced;
}

bool FileName::Exists() const {
    const PathKind kind = GetPathKind(m_Path);
    return kind == PathKind::File || kind == PathKind::Device;
}

void FileName::Delete() const {
    if (!m_Path.IsEmpty()) {
        RemoveFile(m_Path);
    }
}

FileName FileName::CreateTemporary() {
    const STR folder = GetFullPath(GetTemporaryFolder());
    const FileCreation created = CreateUniqueFile(folder, {});
    if (!created.m_Result.Succeeded()) {
        RecordThrowLocation("FileName", __LINE__);
        throw FileOpenWriteFailedException(STR("Could not make a file in ") + folder + ": " +
                                           created.m_Result.m_Error);
    }
    FileName file;
    file.m_Path = created.m_Path;
    return file;
}

void FileName::SetTypeAndCreator(const char* /*type*/, const char* /*creator*/) const noexcept {}

}  // namespace tabulorix
