// The parts of paths, and a full path of a file.

#pragma once

#include <string_view>

#include "STR.h"

namespace tabulorix {

// The last part of a path, with its extension.
std::string_view GetLastPart(std::string_view path) noexcept;
// The path before the last part, with the separator. Empty when the path has one part only.
std::string_view GetFolderPart(std::string_view path) noexcept;
// A separator is put after the folder where it is missing; an empty folder adds nothing.
STR JoinPath(const STR& folder, const STR& name);
// The extension (without its dot) replaces that of the last part, or is added to it. A part whose
// only dot is its first character (".tab") has no extension.
STR ReplaceExtension(const STR& path, const STR& extension);

class FileName {
public:
    FileName() noexcept = default;
    // A relative path is completed against the current folder; an empty one stays empty.
    explicit FileName(const STR& path);
    // A separator after the folder and a "." before the extension are inserted where missing.
    FileName(const STR& folder, const STR& name, const STR& extension);

    const STR& GetPath() const noexcept { return m_Path; }
    // The last part of the path, with its extension.
    STR GetNameWithExtension() const { return GetLastPart(m_Path); }
    FileName WithExtension(const STR& extension) const;

    // True for a file or a device, false for a folder or nothing.
    bool Exists() const;
    // Nothing happens for an empty path or a missing file.
    void Delete() const;
    // A new empty file of a unique name, chosen by the system, in the system's temporary folder.
    // Throws FileOpenWriteFailedException when none can be made.
    static FileName CreateTemporary();
    // Kept for systems whose files carry such codes; does nothing on others.
    void SetTypeAndCreator(const char* type, const char* creator) const noexcept;

private:
    STR m_Path;
};

}  // namespace tabulorix
