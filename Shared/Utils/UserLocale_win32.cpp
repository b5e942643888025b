#include <windows.h>

#include "UserLocale.h"

namespace tabulorix {

bool EqualsIgnoringCaseInLocale(std::string_view left, std::string_view right) {
    // A length of 0 is an error to the system, so empty texts are compared here.
    if (left.empty() || right.empty()) {
        return left.size() == right.size();
    }
    return CompareStringA(LOCALE_USER_DEFAULT, NORM_IGNORECASE, left.data(),
                          static_cast<int>(left.size()), right.data(),
                          static_cast<int>(right.size())) == CSTR_EQUAL;
}

NarrowCharacter NarrowUtf16Unit(char16_t unit) {
    if (unit < 0x80) {
        return {static_cast<char>(unit), 1};
    }
    const auto wide = static_cast<wchar_t>(unit);
    char bytes[8] = {};
    const int count =
        WideCharToMultiByte(CP_ACP, 0, &wide, 1, bytes, sizeof bytes, nullptr, nullptr);
    return {bytes[0], count};
}

}  // namespace tabulorix
