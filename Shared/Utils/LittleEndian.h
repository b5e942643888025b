// Several bytes as one number, the first byte lowest, on every machine. Each is one load where the
// machine has that order.

#pragma once

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

}  // namespace tabulorix
