// The formats that the command line writes scores in. A format's name is its file extension.

#pragma once

#include <optional>
#include <string_view>

#include "FileSystem.h"
#include "STR.h"
#include "TreeNode.h"

namespace tabulorix {

enum class ScoreFormat { Vif, MusicXml };

// "vif" or "musicxml".
const char* GetExtension(ScoreFormat format) noexcept;
// Nothing for a name that no format has.
std::optional<ScoreFormat> FindScoreFormat(std::string_view name) noexcept;
// The format whose extension the path has, in any case of letters.
std::optional<ScoreFormat> FindScoreFormatOfPath(std::string_view path);

// Both throw Exception when this program cannot write the format.
STR ComposeDocument(const TreeNode& document, ScoreFormat format);
FileResult WriteDocument(const TreeNode& document, ScoreFormat format, NewFile& file);

}  // namespace tabulorix
