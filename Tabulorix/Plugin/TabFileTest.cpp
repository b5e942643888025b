#include "TabFileTest.h"

#include <algorithm>

#include "FileSystem.h"
#include "TabRecognition.h"

namespace tabulorix {

namespace {

constexpr ImportFileType kImportFileTypes[] = {
    {"ASCII Tab", "tab", "TEXT"},
    {"ASCII Bass Tab", "btab", "TEXT"},
    {"ASCII Chord", "crd", "TEXT"},
};

bool HasTabExtension(const STR& path) {
    const int dot = path.Find('.');
    if (dot < 0) {
        return true;
    }
    const STR extension = path.Tail(dot + 1);
    return std::ranges::any_of(kImportFileTypes, [&](const ImportFileType& type) {
        return extension.EqualsIgnoringCase(type.m_Extension);
    });
}

}  // namespace

std::span<const ImportFileType> GetImportFileTypes() noexcept {
    return kImportFileTypes;
}

bool IsTabFile(const STR& path) {
    return HasTabExtension(path) && RecognizeTab(ReadWholeFile(path).m_Bytes).IsTab();
}

}  // namespace tabulorix
