#include "Utf16Text.h"

#include <algorithm>

#include "Log.h"
#include "UserLocale.h"

namespace tabulorix {

namespace {

constexpr std::string_view kLostBytesWarning =
    "Trying to read a Unicode text TreeNode that has characters that translate to multibyte chars "
    "and we can't copy with this\n";

// A whole number of vectors on every machine.
constexpr std::size_t kUnitsPerBlock = 32;

template <bool isBigEndian>
char16_t LoadUnit(const char* bytes) noexcept {
    const auto first = static_cast<unsigned char>(bytes[0]);
    const auto second = static_cast<unsigned char>(bytes[1]);
    return static_cast<char16_t>(isBigEndian ? first << 8 | second : second << 8 | first);
}

// False when not all units are ASCII; the bytes are useless then. Without a branch in the loop,
// compilers make vector instructions of it.
template <bool isBigEndian>
bool NarrowAsciiBlock(const char* __restrict bytes, char* __restrict narrow) noexcept {
    char16_t allBits = 0;
    for (std::size_t i = 0; i < kUnitsPerBlock; ++i) {
        const char16_t unit = LoadUnit<isBigEndian>(bytes + 2 * i);
        allBits = static_cast<char16_t>(allBits | unit);
        narrow[i] = static_cast<char>(unit);
    }
    return allBits < 0x80;
}

}  // namespace

std::unique_ptr<char[]> Utf16Text::Narrow() {
    const std::size_t count = GetUnitCount();
    auto result = std::make_unique_for_overwrite<char[]>(count);
    char* narrow = result.get();
    const auto narrowBlock = m_IsBigEndian ? NarrowAsciiBlock<true> : NarrowAsciiBlock<false>;
    for (std::size_t i = 0; i < count;) {
        if (count - i >= kUnitsPerBlock && narrowBlock(m_Bytes.data() + 2 * i, narrow + i)) {
            i += kUnitsPerBlock;
            continue;
        }
        const std::size_t end = std::min(count, i + kUnitsPerBlock);
        for (; i < end; ++i) {
            narrow[i] = NarrowUnit(GetUnit(i));
        }
    }
    return result;
}

void Utf16Text::WarnOfLostBytes(std::size_t unitCount) const {
    for (std::size_t i = 0; m_HasLostBytes && i < unitCount; ++i) {
        if (NarrowUtf16Unit(GetUnit(i)).m_ByteCount > 1) {
            WriteDebugLog(kLostBytesWarning);
        }
    }
}

char16_t Utf16Text::GetUnit(std::size_t index) const noexcept {
    const char* bytes = m_Bytes.data() + 2 * index;
    return m_IsBigEndian ? LoadUnit<true>(bytes) : LoadUnit<false>(bytes);
}

char Utf16Text::NarrowUnit(char16_t unit) {
    const NarrowCharacter character = NarrowUtf16Unit(unit);
    m_HasLostBytes = m_HasLostBytes || character.m_ByteCount > 1;
    return character.m_FirstByte;
}

}  // namespace tabulorix
