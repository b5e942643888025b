#include "ScoreFormat.h"

#include "FileExtension.h"
#include "FileName.h"
#include "MusicXml.h"

namespace tabulorix {

const char* GetExtension(ScoreFormat format) noexcept {
    return format == ScoreFormat::MusicXml ? "musicxml" : "vif";
}

std::optional<ScoreFormat> FindScoreFormat(std::string_view name) noexcept {
    for (const ScoreFormat format : {ScoreFormat::Vif, ScoreFormat::MusicXml}) {
        if (name == GetExtension(format)) {
            return format;
        }
    }
    return std::nullopt;
}

std::optional<ScoreFormat> FindScoreFormatOfPath(std::string_view path) {
    return FindScoreFormat(GetLowerCaseExtension(GetLastPart(path)));
}

STR ComposeDocument(const TreeNode& document, ScoreFormat format) {
    if (format == ScoreFormat::MusicXml) {
        return STR(ComposeMusicXml(document));
    }
    STR score;
    document.WriteText(score, 0);
    return score;
}

FileResult WriteDocument(const TreeNode& document, ScoreFormat format, NewFile& file) {
    return format == ScoreFormat::MusicXml ? file.Write(ComposeMusicXml(document))
                                           : document.WriteInto(file);
}

}  // namespace tabulorix
