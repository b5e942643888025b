// Finished score documents as MusicXML, for people whose notation program is another one.

#pragma once

#include <string>

#include "TreeNode.h"

namespace tabulorix {

// Whether this program was built with the format.
bool CanComposeMusicXml() noexcept;

// The whole file, in UTF-8. It shows what the document holds, bar by bar; a document without bars
// gives one empty bar. Throws Exception when this program was built without the format.
std::string ComposeMusicXml(const TreeNode& document);

}  // namespace tabulorix
