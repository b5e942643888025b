// The characters that stand for a played string.

#pragma once

#include "Ascii.h"

namespace tabulorix {

// A digit of a fret number, or the x of a muted string.
constexpr bool IsFretCharacter(char c) noexcept {
    return IsDigit(c) || c == 'x' || c == 'X';
}

}  // namespace tabulorix
