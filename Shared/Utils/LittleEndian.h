// Several bytes as one number, the first byte lowest, on every machine. Each is one load where the
// machine has that order.

#pragma once

#include <cstddef>
#include <cstdint>

namespace tabulorix {

constexpr std::uint32_t LoadBytes4(const char* bytes) noexcept {
    const auto byteAt = [bytes](int i) -> std::uint32_t {
        return static_cast<unsigned char>(bytes[i]);
    };
    return byteAt(0) | byteAt(1) << 8 | byteAt(2) << 16 | byteAt(3) << 24;
}

constexpr std::uint64_t LoadBytes8(const char* bytes) noexcept {
    const auto byteAt = [bytes](int i) -> std::uint64_t {
        return static_cast<unsigned char>(bytes[i]);
    };
    return byteAt(0) | byteAt(1) << 8 | byteAt(2) << 16 | byteAt(3) << 24 | byteAt(4) << 32 |
           byteAt(5) << 40 | byteAt(6) << 48 | byteAt(7) << 56;
}

// Whether the bytes are equal. Made for a few bytes, where a call costs more than the comparison:
// loads that overlap cover every length from 4 on.
constexpr bool EqualShortBytes(const char* left, const char* right, std::size_t length) noexcept {
    if (length >= 8) {
        for (std::size_t i = 0; i < length - 8; i += 8) {
            if (LoadBytes8(left + i) != LoadBytes8(right + i)) {
                return false;
            }
        }
        return LoadBytes8(left + length - 8) == LoadBytes8(right + length - 8);
    }
    if (length >= 4) {
        return LoadBytes4(left) == LoadBytes4(right) &&
               LoadBytes4(left + length - 4) == LoadBytes4(right + length - 4);
    }
    for (std::size_t i = 0; i < length; ++i) {
        if (left[i] != right[i]) {
            return false;
        }
    }
    return true;
}

}  // namespace tabulorix
