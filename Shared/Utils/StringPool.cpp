#include "StringPool.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <limits>
#include <new>

#include "Exceptions.h"
#include "LittleEndian.h"

namespace tabulorix {

namespace {

constexpr std::uint32_t kBucketCount = 1001;
// The mean length at which chains are split, and into how many. A power of two.
constexpr std::size_t kSplitFactor = 4;

void* AllocateForPool(std::size_t size) {
    try {
        return ::operator new(size);
    } catch (const std::bad_alloc&) {
        ThrowOutOfMemory("StringPool", __LINE__);
    }
}

// All of 1 to 8 bytes. Loads that overlap cover every length without a loop.
std::uint64_t LoadShort(const char* bytes, std::size_t length) noexcept {
    if (length >= 4) {
        return LoadBytes4(bytes) | std::uint64_t{LoadBytes4(bytes + length - 4)} << 32;
    }
    const auto byteAt = [bytes](std::size_t i) {
        return std::uint64_t{static_cast<unsigned char>(bytes[i])};
    };
    return byteAt(0) | byteAt(length / 2) << 8 | byteAt(length - 1) << 16;
}

std::uint64_t Mix(std::uint64_t hash, std::uint64_t word) noexcept {
    hash = (hash ^ word) * 0x9E3779B97F4A7C15;
    return hash ^ hash >> 32;
}

// Zero before the first use, and never after it.
constinit std::uint64_t g_HashSeed = 0;

// What nobody outside knows of a process: when it began, and where its memory lies.
std::uint64_t MakeHashSeed() noexcept {
    const int local = 0;
    const auto ticks = std::chrono::high_resolution_clock::now().time_since_epoch().count();
    return Mix(static_cast<std::uint64_t>(ticks), reinterpret_cast<std::uintptr_t>(&local)) | 1;
}

}  // namespace

std::uint32_t HashText(std::string_view text) noexcept {
    if (g_HashSeed == 0) {
        g_HashSeed = MakeHashSeed();
    }
    const char* bytes = text.data();
    std::size_t length = text.size();
    std::uint64_t hash = g_HashSeed + length;
    // Mixed with the seed again after each word, for no word can undo what it cannot foresee.
    for (; length > 8; bytes += 8, length -= 8) {
        hash = Mix(Mix(hash, LoadBytes8(bytes)), g_HashSeed);
    }
    if (length > 0) {
        hash = Mix(hash, LoadShort(bytes, length));
    }
    return static_cast<std::uint32_t>(Mix(hash, 0));
}

// One chain of texts, or, once that has become long, a power of two of chains between which further
// bits of the hash decide. A bucket without texts owns no memory.
//
// All buckets are plain zeroed memory, ready before any code of the module runs.
class PoolBucket {
public:
    using Entry = PooledString::Entry;

    static PoolBucket& Of(std::uint32_t hash) noexcept { return s_Buckets[hash % kBucketCount]; }
    static std::size_t GetTextCount() noexcept { return s_TextCount; }

    // Null when the text is not there.
    Entry* Find(std::string_view text, std::uint32_t hash) noexcept {
        for (Entry* entry = GetChain(hash); entry != nullptr; entry = entry->m_Next) {
            if (entry->m_Hash == hash && entry->m_Length == text.size() &&
                EqualShortBytes(entry->GetCharacters(), text.data(), text.size())) {
                return entry;
            }
        }
        return nullptr;
    }

    // A new entry without handles.
    Entry* Add(std::string_view text, std::uint32_t hash) {
        if (text.size() > std::numeric_limits<std::uint32_t>::max() - sizeof(Entry)) {
            ThrowOutOfMemory("StringPool", __LINE__);
        }
        if (m_TextCount >= (m_ChainMask + 1) * kSplitFactor) {
            Split();
        }
        void* memory = AllocateForPool(sizeof(Entry) + text.size());
        Entry*& chain = GetChain(hash);
        chain = new (memory) Entry{chain, 0, hash, static_cast<std::uint32_t>(text.size())};
        std::memcpy(chain + 1, text.data(), text.size());
        ++m_TextCount;
        ++s_TextCount;
        return chain;
    }

    void Remove(Entry* entry) noexcept {
        Entry** link = &GetChain(entry->m_Hash);
        while (*link != entry) {
            link = &(*link)->m_Next;
        }
        *link = entry->m_Next;
        ::operator delete(entry);
        --s_TextCount;
        if (--m_TextCount == 0) {
            ::operator delete(m_Chains);
            *this = {};
        }
    }

private:
    Entry*& GetChain(std::uint32_t hash) noexcept {
        return m_Chains == nullptr ? m_OnlyChain : m_Chains[hash / kBucketCount & m_ChainMask];
    }

    void Split() {
        const std::size_t count = (m_ChainMask + 1) * kSplitFactor;
        PoolBucket split;
        split.m_Chains = static_cast<Entry**>(AllocateForPool(count * sizeof(Entry*)));
        split.m_ChainMask = count - 1;
        split.m_TextCount = m_TextCount;
        std::fill_n(split.m_Chains, count, nullptr);
        Entry** chains = m_Chains == nullptr ? &m_OnlyChain : m_Chains;
        for (std::size_t i = 0; i <= m_ChainMask; ++i) {
            while (chains[i] != nullptr) {
                Entry* entry = chains[i];
                chains[i] = entry->m_Next;
                Entry*& chain = split.GetChain(entry->m_Hash);
                entry->m_Next = chain;
                chain = entry;
            }
        }
        ::operator delete(m_Chains);
        *this = split;
    }

    static PoolBucket s_Buckets[kBucketCount];
    static std::size_t s_TextCount;

    Entry* m_OnlyChain = nullptr;
    Entry** m_Chains = nullptr;  // owned; null while there is only one
    std::size_t m_ChainMask = 0;
    std::size_t m_TextCount = 0;
};

constinit PoolBucket PoolBucket::s_Buckets[kBucketCount];
constinit std::size_t PoolBucket::s_TextCount = 0;

std::size_t GetPooledTextCount() noexcept {
    return PoolBucket::GetTextCount();
}

PooledString::PooledString(std::string_view text, std::uint32_t hash) {
    if (text.empty()) {
        return;
    }
    PoolBucket& bucket = PoolBucket::Of(hash);
    m_Entry = bucket.Find(text, hash);
    if (m_Entry == nullptr) {
        m_Entry = bucket.Add(text, hash);
    }
    ++m_Entry->m_HandleCount;
}

void PooledString::Remove(Entry* entry) noexcept {
    PoolBucket::Of(entry->m_Hash).Remove(entry);
}

}  // namespace tabulorix
