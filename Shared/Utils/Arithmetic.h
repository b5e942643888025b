// Arithmetic that stops at the ends of an int instead of running over them, for figures that absurd
// input can make as large as it likes.

#pragma once

#include <algorithm>
#include <climits>
#include <cstdint>

namespace tabulorix {

constexpr int ClampToInt(std::int64_t value) noexcept {
    return static_cast<int>(std::clamp<std::int64_t>(value, INT_MIN, INT_MAX));
}

constexpr int SaturatingAdd(int left, int right) noexcept {
    return ClampToInt(std::int64_t{left} + right);
}

// Appends a decimal digit (0 to 9) to a number that is not negative.
constexpr int AppendDigit(int number, int digit) noexcept {
    return ClampToInt(std::int64_t{number} * 10 + digit);
}

}  // namespace tabulorix
