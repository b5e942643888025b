// Texts of a score as XML takes them.

#pragma once

#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace tabulorix {

// UTF-8 of characters that XML can hold. A text that is UTF-8 stays as it is, any other is read as
// Windows' western code page. Control characters become blanks.
std::string ToXmlText(std::string_view text);

// Appends <name>text</name> to `parent`.
void AddElement(pugi::xml_node parent, const char* name, std::string_view text);
void AddElement(pugi::xml_node parent, const char* name, int value);

}  // namespace tabulorix
