// Character classes of 8-bit text, as ASCII has them in every locale.
//
// The same input must give the same score on every machine, so nothing that reads tablature may
// ask the C library's locale-dependent classes.

#pragma once

namespace tabulorix {

constexpr bool IsDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}

constexpr bool IsUpper(char c) noexcept {
    return c >= 'A' && c <= 'Z';
}

constexpr bool IsLetter(char c) noexcept {
    return IsUpper(c) || (c >= 'a' && c <= 'z');
}

// Space, TAB, line feed, vertical tab, form feed or carriage return.
constexpr bool IsWhiteSpace(char c) noexcept {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// White space, or the NUL that stands for everything beyond a line's end.
constexpr bool IsBlank(char c) noexcept {
    return c == '\0' || IsWhiteSpace(c);
}

constexpr char ToLower(char c) noexcept {
    return IsUpper(c) ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr char ToUpper(char c) noexcept {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// One of the chord roots "ABCDEFG".
constexpr bool IsChordRoot(char c) noexcept {
    return c >= 'A' && c <= 'G';
}

}  // namespace tabulorix
