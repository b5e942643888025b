// Text in UTF-16 made into one byte for each of its units, in the system's 8-bit code page.

#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

namespace tabulorix {

class Utf16Text {
public:
    // Bytes without a byte-order mark. An odd byte at the end is no unit. `bytes` must outlive the
    // object.
    Utf16Text(std::string_view bytes, bool isBigEndian)
        : m_Bytes(bytes), m_IsBigEndian(isBigEndian) {}

    std::size_t GetUnitCount() const noexcept { return m_Bytes.size() / 2; }

    // As many bytes as there are units. Of a unit that needs several bytes, the first one.
    std::unique_ptr<char[]> Narrow();

    // After Narrow: writes the warning for each of the first units that lost bytes.
    void WarnOfLostBytes(std::size_t unitCount) const;

private:
    char16_t GetUnit(std::size_t index) const noexcept;
    char NarrowUnit(char16_t unit);

    std::string_view m_Bytes;
    bool m_IsBigEndian;
    bool m_HasLostBytes = false;
};

}  // namespace tabulorix
