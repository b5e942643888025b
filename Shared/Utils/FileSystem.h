// What the program asks of the system's files. One implementation per system behind this header.
//
// Paths are the system's own 8-bit paths, and an empty folder is the current one. Failures come
// back as values with the system's words for a person to read; only lack of memory throws.

#pragma once

#include <climits>
#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

#include "STR.h"

namespace tabulorix {

// The outcome of a file operation; empty text means that it succeeded, otherwise the system's words
// ("No space left on device").
struct FileResult {
    STR m_Error;
    bool Succeeded() const noexcept { return m_Error.IsEmpty(); }
    explicit operator bool() const noexcept { return Succeeded(); }
};

// The system's words for the failure of the call that was made last.
FileResult GetLastFailure();

struct FileContents {
    STR m_Bytes;
    FileResult m_Result;
};

// What is read at most when nobody asks for more: texts grow while they are worked on, and an STR
// counts in ints.
constexpr int kMostBytesRead = INT_MAX / 16;

// The whole file as bytes; also of a pipe or device, to its end. A folder, or more than
// `mostBytes`, is an error. "-" has no meaning here.
FileContents ReadWholeFile(const STR& path, int mostBytes = kMostBytesRead);
// Everything from standard input to its end, as bytes.
FileContents ReadStandardInput();

// Replaces or makes the file; checked through to the close. After a failure the file is incomplete,
// so this is for devices and pipes, which nothing can replace.
FileResult WriteWholeFile(const STR& path, std::string_view bytes);
// All the bytes to standard output, past the buffers of the C library.
FileResult WriteStandardOutput(std::string_view bytes);

// A file that was not there before, open for writing, and removed again with this object unless it
// has been kept or moved.
//
// It is written through the handle that made it: whoever takes its name away in the meantime, and
// puts another file or a link there, gets nothing written into it. One failure ends its use.
class NewFile {
public:
    // Fails when anything has this name, also a link that leads nowhere.
    static NewFile At(const STR& path);
    // Of a unique name with the extension "tmp", which is hidden with the usual prefix, and private
    // to its owner on systems with user rights.
    static NewFile In(const STR& folder, const STR& prefix = ".tabulorix-");
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    // Whether it could be made. When not, all other operations fail.
    const FileResult& GetCreation() const noexcept { return m_Creation; }
    std::string_view GetPath() const noexcept { return m_Path; }
    FileResult Write(std::string_view bytes);

    // Either of these ends the writing; checked through to the close.
    FileResult Keep();
    // Puts the file in the place of `to` in the same folder, wholly or not at all. It takes over
    // the permissions of the file that it replaces, else it gets those of any new file. A file that
    // the user may not write to is not replaced.
    FileResult MoveOver(const STR& to);

private:
    // `handle` is -1 when the system could not make the file.
    NewFile(std::string path, std::intptr_t handle);
    FileResult Close();

    std::string m_Path;      // empty when there is nothing to remove
    std::intptr_t m_Handle;  // -1 when it is not open
    FileResult m_Creation;
};

struct FileCreation {
    STR m_Path;
    FileResult m_Result;
};

// A new empty file as the system names such files: of a unique name with the extension "tmp" in
// `folder`, never an existing file or a link. The system may shorten the prefix.
FileCreation CreateUniqueFile(const STR& folder, const STR& prefix);

// Fails also when there is no such file.
FileResult RemoveFile(const STR& path);

// What a path leads to, links followed. A device is anything that is neither file nor folder: a
// terminal, a pipe.
enum class PathKind { Nothing, File, Folder, Device };
PathKind GetPathKind(const STR& path);

// Makes the folder; the folder that it is to stand in exists.
FileResult MakeFolder(const STR& path);

// Which file a path leads to, links followed, whatever way the path takes. All zero for nothing.
struct FileIdentity {
    std::uint64_t m_Volume = 0;
    std::uint64_t m_Index = 0;
    auto operator<=>(const FileIdentity&) const = default;
};
FileIdentity GetFileIdentity(const STR& path);

// The file itself behind a path of links, so that a new file can take its place and the links stay.
// A path that leads to nothing comes back as it is.
STR ResolveLinks(const STR& path);
// A relative path completed against the current folder; an absolute or empty one as it is.
STR GetFullPath(const STR& path);
STR GetTemporaryFolder();

// The separator that this program writes between the parts of a path, and whether `c` ends a part.
char GetPathSeparator() noexcept;
bool IsPathSeparator(char c) noexcept;

}  // namespace tabulorix
