#include <windows.h>

#include <string_view>

#include "FileName.h"
#include "FolderListing.h"

namespace tabulorix {

namespace {

class Search {
public:
    Search(const STR& pattern, WIN32_FIND_DATAA& found)
        : m_Handle(FindFirstFileA(pattern.GetText(), &found)) {}
    ~Search() {
        if (IsOpen()) {
            FindClose(m_Handle);
        }
    }
    Search(const Search&) = delete;
    Search& operator=(const Search&) = delete;

    bool IsOpen() const noexcept { return m_Handle != INVALID_HANDLE_VALUE; }
    bool Advance(WIN32_FIND_DATAA& found) { return FindNextFileA(m_Handle, &found) != 0; }

private:
    HANDLE m_Handle;
};

// Folders that are kept elsewhere until somebody looks at them are no links, though they are marked
// in the same way.
bool IsLink(const WIN32_FIND_DATAA& found) {
    return (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           (found.dwReserved0 == IO_REPARSE_TAG_SYMLINK ||
            found.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT);
}

void Append(FolderListing& listing, const WIN32_FIND_DATAA& found) {
    const std::string_view name = found.cFileName;
    if (name == "." || name == "..") {
        return;
    }
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
        listing.m_Files.emplace_back(name);
    } else if (!IsLink(found)) {
        listing.m_Folders.emplace_back(name);
    }
}

}  // namespace

FolderListing ListFolder(const STR& folder) {
    FolderListing listing;
    WIN32_FIND_DATAA found;
    Search search(JoinPath(folder, "*"), found);
    if (!search.IsOpen()) {
        // The root of an empty drive has not even the two entries of every other folder.
        if (GetLastError() != ERROR_FILE_NOT_FOUND) {
            listing.m_Result = GetLastFailure();
        }
        return listing;
    }
    do {
        Append(listing, found);
    } while (search.Advance(found));
    if (GetLastError() != ERROR_NO_MORE_FILES) {
        listing.m_Result = GetLastFailure();
    }
    return listing;
}

}  // namespace tabulorix
