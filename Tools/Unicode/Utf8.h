// Characters of UTF-8, for what is made of texts of unknown encoding.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tabulorix {

constexpr std::uint32_t kFirstBeyondAscii = 0x80;

struct Utf8Character {
    std::uint32_t m_Code = 0;
    std::size_t m_Length = 0;  // in bytes; 0 for what is no UTF-8
};

// The character at the front of a text that is not empty.
Utf8Character ReadUtf8(std::string_view text) noexcept;

// Whether all of the text is UTF-8.
bool IsUtf8(std::string_view text) noexcept;

// For codes from 0x80 to 0xFFFF.
void AppendUtf8(std::string& text, std::uint32_t code);

// What a byte from 0x80 stands for in Windows' western code page; U+FFFD for none.
std::uint32_t GetWesternCode(unsigned char byte) noexcept;

}  // namespace tabulorix
