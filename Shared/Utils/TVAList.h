// A growable array of plain values (ints, pointers).
//
// A tree has some hundred thousand of these lists, most of them empty or short: unlike std::vector
// this one counts in ints, as all of a tree does, grows in small steps, and moves its entries by
// realloc.
//
// The capacity grows by the grow step, so that a short list stays small, and in proportion once
// the list is long, so that appending stays cheap. Capacities stay multiples of the grow step.

#pragma once

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdlib>
#include <type_traits>
#include <utility>

#include "Exceptions.h"

namespace tabulorix {

// `GrowStep` is above 0.
template <typename T, int GrowStep = 4>
class TVAList {
    static_assert(std::is_trivially_copyable_v<T>, "entries are moved by copying their bytes");

public:
    TVAList() noexcept = default;
    TVAList(TVAList&& other) noexcept { Swap(other); }
    TVAList& operator=(TVAList&& other) noexcept {
        Swap(other);
        return *this;
    }
    TVAList(const TVAList&) = delete;
    TVAList& operator=(const TVAList&) = delete;
    ~TVAList() { std::free(m_Data); }

    int GetCount() const noexcept { return m_Count; }
    int GetCapacity() const noexcept { return m_Capacity; }

    // `index` is below the count.
    T& operator[](int index) noexcept { return m_Data[index]; }
    const T& operator[](int index) const noexcept { return m_Data[index]; }

    T* begin() noexcept { return m_Data; }
    T* end() noexcept { return m_Data + m_Count; }
    const T* begin() const noexcept { return m_Data; }
    const T* end() const noexcept { return m_Data + m_Count; }

    void Append(T value) {
        if (m_Count == m_Capacity) {
            Grow(1);
        }
        m_Data[m_Count++] = value;
    }

    // Appends all the values or, when that fails, none. They do not lie in this list.
    void Append(const T* values, int count) {
        if (count > m_Capacity - m_Count) {
            Grow(count);
        }
        std::copy_n(values, count, end());
        m_Count += count;
    }

    // Keeps the first `count` entries.
    void Truncate(int count) noexcept { m_Count = count; }

    // The list is not empty.
    T RemoveLast() noexcept { return m_Data[--m_Count]; }

    bool Contains(const T& value) const noexcept {
        for (const T& entry : *this) {
            if (entry == value) {
                return true;
            }
        }
        return false;
    }

    // Forgets the entries and keeps the memory.
    void Clear() noexcept { m_Count = 0; }

    void Swap(TVAList& other) noexcept {
        std::swap(m_Data, other.m_Data);
        std::swap(m_Capacity, other.m_Capacity);
        std::swap(m_Count, other.m_Count);
    }

private:
    static constexpr int kLongList = 256;

    // Makes room for `count` more entries than there are.
    void Grow(int count) {
        constexpr int kLargest = static_cast<int>(INT_MAX / sizeof(T));
        const int longListSteps = m_Capacity >= kLongList ? m_Capacity / 2 / GrowStep : 1;
        const int neededSteps = (count - (m_Capacity - m_Count) - 1) / GrowStep + 1;
        const int steps = std::max(longListSteps, neededSteps);
        if (steps > (kLargest - m_Capacity) / GrowStep) {
            ThrowOutOfMemory("TVAList", __LINE__);
        }
        const int capacity = m_Capacity + steps * GrowStep;
        void* grown = std::realloc(m_Data, static_cast<std::size_t>(capacity) * sizeof(T));
        if (grown == nullptr) {
            ThrowOutOfMemory("TVAList", __LINE__);
        }
        m_Data = static_cast<T*>(grown);
        m_Capacity = capacity;
    }

    T* m_Data = nullptr;
    int m_Capacity = 0;
    int m_Count = 0;
};

}  // namespace tabulorix
