#include "XmlTree.h"

#include <string>
#include <vector>

namespace tabulorix {

namespace {

pugi::xml_node AppendElement(pugi::xml_node parent, const TreeNode& node) {
    const std::string label(node.GetLabel());
    pugi::xml_node element = parent.append_child(label.empty() ? "_" : label.c_str());
    if (!node.GetText().empty()) {
        element.append_attribute("t") = std::string(node.GetText()).c_str();
    }
    return element;
}

}  // namespace

void FillXml(pugi::xml_document& document, const TreeNode& root) {
    struct Pair {
        const TreeNode* m_Node;
        pugi::xml_node m_Element;
    };
    std::vector<Pair> pairs = {{&root, AppendElement(document, root)}};
    while (!pairs.empty()) {
        const Pair pair = pairs.back();
        pairs.pop_back();
        for (const TreeNode* child : pair.m_Node->GetChildren()) {
            pairs.push_back({child, AppendElement(pair.m_Element, *child)});
        }
    }
}

}  // namespace tabulorix
