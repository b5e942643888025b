// What is in a folder. One implementation per system behind this header.

#pragma once

#include <vector>

#include "FileSystem.h"
#include "STR.h"

namespace tabulorix {

// The names in one folder, without "." and "..", in the system's order.
struct FolderListing {
    // Also links that lead to a file or to nothing.
    std::vector<STR> m_Files;
    // Folders themselves: links to folders are left out, so that no path comes back to where it
    // has been.
    std::vector<STR> m_Folders;
    // After a failure the names are those that were found before it.
    FileResult m_Result;
};

// Pipes, devices and other things that are neither are left out.
FolderListing ListFolder(const STR& folder);

}  // namespace tabulorix
