// The few questions that are answered in the user's locale.

#pragma once

#include <string_view>

namespace tabulorix {

// Equality ignoring case: in the user's default locale where the system has one, otherwise in the
// locale that the program has set.
bool EqualsIgnoringCaseInLocale(std::string_view left, std::string_view right);

// One UTF-16 unit in the 8-bit code page of the system.
struct NarrowCharacter {
    char m_FirstByte;
    int m_ByteCount;  // above 1 when the code page needs several bytes
};

NarrowCharacter NarrowUtf16Unit(char16_t unit);

}  // namespace tabulorix
