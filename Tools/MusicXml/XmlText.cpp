#include "XmlText.h"

#include <array>
#include <cstdint>

#include "Utf8.h"

namespace tabulorix {

namespace {

// Windows-1252 from 0x80 to 0x9F; beyond it is Latin-1.
constexpr std::array<std::uint16_t, 32> kWestern = {
    0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

// UTF-8 of characters that XML can hold.
bool IsXmlUtf8(std::string_view text) {
    return IsUtf8(text) && text.find("\xEF\xBF\xBE") == std::string_view::npos &&
           text.find("\xEF\xBF\xBF") == std::string_view::npos;
}

void AppendWestern(std::string& text, std::uint32_t byte) {
    const std::size_t index = byte - kFirstBeyondAscii;
    AppendUtf8(text, index < kWestern.size() ? kWestern[index] : byte);
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
            AppendWestern(result, byte);
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
