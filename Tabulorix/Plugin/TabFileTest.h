// Which files the plug-in takes: the types that it offers to the host, and the test of one file.

#pragma once

#include <span>

#include "STR.h"
#include "VeltrasoApi.h"

namespace tabulorix {

// Static; valid while the plug-in is loaded.
std::span<const ImportFileType> GetImportFileTypes() noexcept;

// True for a tab: the extension is one of the types', in any case, and the bytes are those of a
// tab.
//
// The extension is everything after the first dot of the whole path, folders included, so a path
// with an earlier dot is refused. A path without any dot is judged by its bytes alone. A file that
// cannot be opened, or is too large to be converted, is no tab.
bool IsTabFile(const STR& path);

}  // namespace tabulorix
