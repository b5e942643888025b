// The tree of a score as XML, for a comparison with a general library on equal terms.
//
//     <VifFileVersion t="10100004">      the label names the element, the text is an attribute
//       <Type t="Score"/>
//       <_ t="first"/>                   an element without a label

#pragma once

#include <pugixml.hpp>

#include "TreeNode.h"

namespace tabulorix {

void FillXml(pugi::xml_document& document, const TreeNode& root);

}  // namespace tabulorix
