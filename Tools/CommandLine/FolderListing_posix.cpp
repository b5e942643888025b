#include <dirent.h>
#include <sys/stat.h>

#include <cerrno>
#include <memory>
#include <string_view>

#include "FileName.h"
#include "FolderListing.h"

namespace tabulorix {

namespace {

struct FolderCloser {
    void operator()(DIR* folder) const noexcept { ::closedir(folder); }
};

enum class EntryKind { File, Folder, Other };

EntryKind GetEntryKind(const STR& path) {
    struct stat status;
    const bool isKnown = ::lstat(path.GetText(), &status) == 0;
    if (isKnown && S_ISDIR(status.st_mode)) {
        return EntryKind::Folder;
    }
    // What cannot be looked at is left to fail when it is read, with the reason.
    if (!isKnown || S_ISREG(status.st_mode)) {
        return EntryKind::File;
    }
    const PathKind end = S_ISLNK(status.st_mode) ? GetPathKind(path) : PathKind::Device;
    return end == PathKind::File || end == PathKind::Nothing ? EntryKind::File : EntryKind::Other;
}

// The system tells the kind with the name where it can, which spares a look at each file.
EntryKind GetEntryKind(const STR& folder, const dirent& entry) {
    switch (entry.d_type) {
        case DT_REG:
            return EntryKind::File;
        case DT_DIR:
            return EntryKind::Folder;
        case DT_LNK:
        case DT_UNKNOWN:
            return GetEntryKind(JoinPath(folder, entry.d_name));
        default:
            return EntryKind::Other;
    }
}

void Append(FolderListing& listing, const STR& folder, const dirent& entry) {
    const std::string_view name = entry.d_name;
    if (name == "." || name == "..") {
        return;
    }
    switch (GetEntryKind(folder, entry)) {
        case EntryKind::File:
            listing.m_Files.emplace_back(name);
            break;
        case EntryKind::Folder:
            listing.m_Folders.emplace_back(name);
            break;
        case EntryKind::Other:
            break;
    }
}

}  // namespace

FolderListing ListFolder(const STR& folder) {
    FolderListing listing;
    const std::unique_ptr<DIR, FolderCloser> handle(::opendir(folder.GetText()));
    if (handle == nullptr) {
        listing.m_Result = GetLastFailure();
        return listing;
    }
    errno = 0;
    while (const dirent* entry = ::readdir(handle.get())) {
        Append(listing, folder, *entry);
        errno = 0;
    }
    if (errno != 0) {
        listing.m_Result = GetLastFailure();
    }
    return listing;
}

}  // namespace tabulorix
