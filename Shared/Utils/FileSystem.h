// What the program asks of the system's files. One implementation per system behind this header.
//
// Paths are the system's own 8-bit paths, and an empty folder is the current one. Failures come
// back as values with the system's words for a person to read; only lack of memory throws.

#pragma once

#include <climits>
#include <compare>
#include <cstdint>
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

// Replaces or makes the file; checked through to the close. After a failure the file is incomplete.
FileResult WriteWholeFile(const STR& path, std::string_view bytes);
// All the bytes to standard output, past the buffers of the C library.
FileResult WriteStandardOutput(std::string_view bytes);

struct FileCreation {
    STR m_Path;  // empty when it failed
    FileResult m_Result;
};

// A new empty file of a unique name with the extension "tmp" in `folder`, made by nobody else
// before: never an existing file or a link. Systems with user rights make it private to its owner.
// The system may shorten the prefix.
FileCreation CreateUniqueFile(const STR& folder, const STR& prefix);

// Puts the private file `from` in the place of `to`, wholly or not at all. It takes over the
// permissions of the file that it replaces, else it gets those of any new file. A file that the
// user may not write to is not replaced. Both are in one folder.
FileResult MoveFileOver(const STR& from, const STR& to);
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
