#include <algorithm>
#include <cctype>

#include "UserLocale.h"

namespace tabulorix {

bool EqualsIgnoringCaseInLocale(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](char a, char b) {
        return std::tolower(static_cast<unsigned char>(a)) ==
               std::tolower(static_cast<unsigned char>(b));
    });
}

// The 8-bit text of these systems is UTF-8.
NarrowCharacter NarrowUtf16Unit(char16_t unit) {
    if (unit < 0x80) {
        return {static_cast<char>(unit), 1};
    }
    if (unit < 0x800) {
        return {static_cast<char>(0xC0 | (unit >> 6)), 2};
    }
    return {static_cast<char>(0xE0 | (unit >> 12)), 3};
}

}  // namespace tabulorix
