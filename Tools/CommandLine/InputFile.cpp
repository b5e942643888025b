#include "InputFile.h"

namespace tabulorix {

bool IsFolder(const STR& path) {
    return path != kStandardStream && GetPathKind(path) == PathKind::Folder;
}

STR GetShownName(const STR& path) {
    return path == kStandardStream ? STR("standard input") : path;
}

FileContents ReadInput(const STR& path) {
    return path == kStandardStream ? ReadStandardInput() : ReadWholeFile(path);
}

}  // namespace tabulorix
