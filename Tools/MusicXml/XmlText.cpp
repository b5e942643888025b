#include "XmlText.h"

#include <array>
#include <cstdint>

namespace tabulorix {

namespace {

constexpr std::uint32_t kFirstBeyondAscii = 0x80;

// Windows-1252 from 0x80 to 0x9F; beyond it is Latin-1.
constexpr std::array<std::uint16_t, 32> kWestern = {
    0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

std::uint32_t Byte(std::string_view text, std::size_t index) {
    return index < text.size() ? static_cast<unsigned char>(text[index]) : 0;
}

bool IsXmlCharacter(std::uint32_t code) {
    return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF) && code != 0xFFFE && code != 0xFFFF;
}

// The number of bytes of the UTF-8 character at the front, of those that XML can hold; 0 when there
// is none. `text` is not empty.
std::size_t GetCharacterLength(std::string_view text) {
    const std::uint32_t lead = Byte(text, 0);
    if (lead < kFirstBeyondAscii) {
        return 1;
    }
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 0;
    constexpr std::array<std::uint32_t, 5> kLeast = {0, 0, 0x80, 0x800, 0x10000};
    std::uint32_t code = lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if ((Byte(text, i) & 0xC0U) != 0x80) {
            return 0;
        }
        code = code << 6U | (Byte(text, i) & 0x3FU);
    }
    return lead < 0xF8 && code >= kLeast[length] && IsXmlCharacter(code) ? length : 0;
}

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = GetCharacterLength(text);
        if (length == 0) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

// For codes from 0x80 to 0xFFFF.
void AppendUtf8(std::string& text, std::uint32_t code) {
    if (code < 0x800) {
        text += static_cast<char>(0xC0U | code >> 6U);
    } else {
        text += static_cast<char>(0xE0U | code >> 12U);
        text += static_cast<char>(0x80U | (code >> 6U & 0x3FU));
    }
    text += static_cast<char>(0x80U | (code & 0x3FU));
}

void AppendWestern(std::string& text, std::uint32_t byte) {
    const std::size_t index = byte - kFirstBeyondAscii;
    AppendUtf8(text, index < kWestern.size() ? kWestern[index] : byte);
}

}  // namespace

std::string ToXmlText(std::string_view text) {
    const bool isUtf8 = IsUtf8(text);
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
