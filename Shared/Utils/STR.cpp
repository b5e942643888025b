#include "STR.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cstring>
#include <new>
#include <utility>

#include "Exceptions.h"
#include "ResId.h"
#include "UserLocale.h"

namespace tabulorix {

// The characters follow the record in the same allocation.
struct STR::Buffer {
    int m_Count;
    int m_Length;
    int m_Capacity;

    char* Characters() noexcept { return reinterpret_cast<char*>(this + 1); }
};

namespace {

constexpr std::size_t kLongestText = INT_MAX / 2;

// The longest decimal int, "-2147483648".
constexpr std::size_t kLongestInt = 11;

void AppendReplaced(STR& result, std::string_view pattern, std::string_view argument1,
                    std::string_view argument2) {
    while (!pattern.empty()) {
        const std::size_t mark = pattern.find('%');
        result += pattern.substr(0, mark);
        if (mark == std::string_view::npos) {
            return;
        }
        pattern.remove_prefix(mark);
        if (pattern.starts_with("%1") || pattern.starts_with("%2")) {
            result += pattern[1] == '1' ? argument1 : argument2;
            pattern.remove_prefix(2);
        } else {
            result += pattern.substr(0, 1);
            pattern.remove_prefix(1);
        }
    }
}

}  // namespace

// Static storage, never freed: the count only has to stay above zero.
STR::Buffer* STR::GetEmptyBuffer() noexcept {
    static struct {
        Buffer m_Head{1, 0, 0};
        char m_End = '\0';
    } empty;
    return &empty.m_Head;
}

STR::Buffer* STR::NewBuffer(std::size_t capacity) {
    if (capacity > kLongestText) {
        ThrowOutOfMemory("STR", __LINE__);
    }
    void* memory = ::operator new(sizeof(Buffer) + capacity + 1);
    return new (memory) Buffer{1, 0, static_cast<int>(capacity)};
}

STR::STR() noexcept : m_Buffer(GetEmptyBuffer()) {
    ++m_Buffer->m_Count;
}

STR::STR(std::string_view text) : STR() {
    *this += text;
}

STR::STR(const ResId& id, std::string_view argument1, std::string_view argument2) : STR() {
    const STR pattern = id.GetString();
    AppendReplaced(*this, pattern, argument1, argument2);
}

STR::STR(const STR& other) noexcept : m_Buffer(other.m_Buffer) {
    ++m_Buffer->m_Count;
}

STR::STR(STR&& other) noexcept : STR() {
    std::swap(m_Buffer, other.m_Buffer);
}

STR& STR::operator=(const STR& other) noexcept {
    STR copy(other);
    std::swap(m_Buffer, copy.m_Buffer);
    return *this;
}

STR& STR::operator=(STR&& other) noexcept {
    std::swap(m_Buffer, other.m_Buffer);
    return *this;
}

STR::~STR() {
    Release();
}

void STR::Release() noexcept {
    if (--m_Buffer->m_Count == 0) {
        ::operator delete(m_Buffer);
    }
}

const char* STR::GetText() const noexcept {
    return m_Buffer->Characters();
}

int STR::GetLength() const noexcept {
    return m_Buffer->m_Length;
}

std::string_view STR::View() const noexcept {
    return {m_Buffer->Characters(), static_cast<std::size_t>(m_Buffer->m_Length)};
}

int STR::Find(char c) const noexcept {
    const std::size_t position = View().find(c);
    return position == std::string_view::npos ? -1 : static_cast<int>(position);
}

STR STR::Tail(int position) const {
    if (position <= 0) {
        return *this;
    }
    return position >= GetLength() ? STR() : STR(View().substr(static_cast<std::size_t>(position)));
}

bool STR::EqualsIgnoringCase(std::string_view other) const {
    return EqualsIgnoringCaseInLocale(View(), other);
}

STR& STR::operator+=(std::string_view tail) {
    if (tail.empty()) {
        return *this;
    }
    const auto length = static_cast<std::size_t>(GetLength());
    const std::size_t needed = length + tail.size();
    if (m_Buffer->m_Count > 1 || needed > static_cast<std::size_t>(m_Buffer->m_Capacity)) {
        // A text that grows doubles, so that appending piece by piece stays cheap. The old buffer
        // is kept until the tail is copied, because the tail may be a part of it.
        const std::size_t reserve = length == 0 ? 0 : needed / 2;
        Buffer* grown = NewBuffer(std::max(needed, std::min(needed + reserve, kLongestText)));
        std::memcpy(grown->Characters(), GetText(), length);
        std::memcpy(grown->Characters() + length, tail.data(), tail.size());
        Release();
        m_Buffer = grown;
    } else {
        std::memmove(m_Buffer->Characters() + length, tail.data(), tail.size());
    }
    m_Buffer->m_Length = static_cast<int>(needed);
    m_Buffer->Characters()[needed] = '\0';
    return *this;
}

STR STR::FromInt(int value) {
    char digits[kLongestInt];
    const auto end = std::to_chars(digits, digits + kLongestInt, value);
    return STR(std::string_view(digits, static_cast<std::size_t>(end.ptr - digits)));
}

}  // namespace tabulorix
