#include "Utf8.h"

#include <array>

namespace tabulorix {

namespace {

// Windows-1252 from 0x80 to 0x9F; beyond it is Latin-1.
constexpr std::array<std::uint16_t, 32> kWestern = {
    0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

std::uint32_t GetByte(std::string_view text, std::size_t index) noexcept {
    return index < text.size() ? static_cast<unsigned char>(text[index]) : 0;
}

bool IsCharacter(std::uint32_t code) noexcept {
    return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

}  // namespace

Utf8Character ReadUtf8(std::string_view text) noexcept {
    const std::uint32_t lead = GetByte(text, 0);
    if (lead < kFirstBeyondAscii) {
        return {lead, 1};
    }
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 0;
    constexpr std::array<std::uint32_t, 5> kLeast = {0, 0, 0x80, 0x800, 0x10000};
    std::uint32_t code = lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if ((GetByte(text, i) & 0xC0U) != 0x80) {
            return {};
        }
        code = code << 6U | (GetByte(text, i) & 0x3FU);
    }
    const bool isValid = length > 0 && lead < 0xF8 && code >= kLeast[length] && IsCharacter(code);
    return isValid ? Utf8Character{code, length} : Utf8Character{};
}

bool IsUtf8(std::string_view text) noexcept {
    while (!text.empty()) {
        const std::size_t length = ReadUtf8(text).m_Length;
        if (length == 0) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

void AppendUtf8(std::string& text, std::uint32_t code) {
    if (code < 0x800) {
        text += static_cast<char>(0xC0U | code >> 6U);
    } else {
        text += static_cast<char>(0xE0U | code >> 12U);
        text += static_cast<char>(0x80U | (code >> 6U & 0x3FU));
    }
    text += static_cast<char>(0x80U | (code & 0x3FU));
}

std::uint32_t GetWesternCode(unsigned char byte) noexcept {
    const std::size_t index = byte - kFirstBeyondAscii;
    return index < kWestern.size() ? kWestern[index] : byte;
}

}  // namespace tabulorix
