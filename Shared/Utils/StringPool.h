// The pool that holds the labels and texts of all trees.
//
// A large document repeats a few labels and values thousands of times. Each distinct text is held
// once in the process, and a PooledString is a counted handle on it, no larger than a pointer. A
// text leaves the pool with its last handle. Not safe to use from several threads.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

namespace tabulorix {

// Spreads over all 32 bits. Made for texts of a few bytes; another one in each process, so that no
// file can hold texts that all have the same.
std::uint32_t HashText(std::string_view text) noexcept;

// The number of distinct texts in the pool.
std::size_t GetPooledTextCount() noexcept;

class PooledString {
public:
    // The empty text, which takes no place in the pool.
    PooledString() noexcept = default;
    // Throws OutOfMemoryException when the text is new to the pool and there is no room for it.
    explicit PooledString(std::string_view text) : PooledString(text, HashText(text)) {}
    // For a caller that has hashed the text already. Equal texts must come with equal hashes.
    PooledString(std::string_view text, std::uint32_t hash);
    PooledString(const PooledString& other) noexcept : m_Entry(other.m_Entry) {
        if (m_Entry != nullptr) {
            ++m_Entry->m_HandleCount;
        }
    }
    PooledString(PooledString&& other) noexcept : m_Entry(std::exchange(other.m_Entry, nullptr)) {}
    PooledString& operator=(PooledString other) noexcept {
        std::swap(m_Entry, other.m_Entry);
        return *this;
    }
    ~PooledString() {
        if (m_Entry != nullptr && --m_Entry->m_HandleCount == 0) {
            Remove(m_Entry);
        }
    }

    // Any bytes, without a NUL behind them; valid as long as a handle on the text is.
    std::string_view View() const noexcept {
        return m_Entry == nullptr ? std::string_view()
                                  : std::string_view(m_Entry->GetCharacters(), m_Entry->m_Length);
    }

    // 0 for the empty text.
    std::uint32_t GetHash() const noexcept { return m_Entry == nullptr ? 0 : m_Entry->m_Hash; }

    friend bool operator==(const PooledString& left, const PooledString& right) noexcept {
        return left.m_Entry == right.m_Entry;
    }

private:
    friend class PoolBucket;

    // The characters follow the record in the same allocation.
    struct Entry {
        Entry* m_Next;
        std::size_t m_HandleCount;
        std::uint32_t m_Hash;
        std::uint32_t m_Length;

        const char* GetCharacters() const noexcept {
            return reinterpret_cast<const char*>(this + 1);
        }
    };

    static void Remove(Entry* entry) noexcept;

    Entry* m_Entry = nullptr;
};

}  // namespace tabulorix
