#include "XmlText.h"

#include "Utf8.h"

namespace tabulorix {

namespace {

// UTF-8 of characters that XML can hold.
bool IsXmlUtf8(std::string_view text) {
    return IsUtf8(text) && text.find("\xEF\xBF\xBE") == std::string_view::npos &&
           text.find("\xEF\xBF\xBF") == std::string_view::npos;
}

}  // namespace

std::string ToXmlText(std::string_view text) {
    const bool isUtf8 = IsXmlUtf8(text);
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < ' ' || byte == 0x7F) {
            result += ' ';
        } else if (byte < kFirstBeyondAscii || isUtf8) {
            result += c;
        } else {
            AppendUtf8(result, GetWesternCode(byte));
        }
    }
    return result;
}

void AddElement(pugi::xml_node parent, const char* name, std::string_view text) {
    parent.append_child(name).text().set(ToXmlText(text).c_str());
}

void AddElement(pugi::xml_node parent, const char* name, int value) {
    parent.append_child(name).text().set(value);
}

}  // namespace tabulorix
