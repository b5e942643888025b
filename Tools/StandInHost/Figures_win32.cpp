#include "Figures.h"

// The second needs the first.
// clang-format off
#include <windows.h>
#include <psapi.h>
// clang-format on

#include <algorithm>
#include <array>
#include <vector>

namespace standin {

namespace {

// What Windows gives a process: 64 in its own block and 1024 more.
constexpr std::size_t kSlots = 1088;
constexpr DWORD kMostHeaps = 64;

std::size_t CountTakenSlots() {
    std::vector<DWORD> free;
    free.reserve(kSlots);
    for (DWORD slot = TlsAlloc(); slot != TLS_OUT_OF_INDEXES; slot = TlsAlloc()) {
        free.push_back(slot);
    }
    for (const DWORD slot : free) {
        TlsFree(slot);
    }
    return kSlots - free.size();
}

std::size_t CountHeapBytes() {
    std::array<HANDLE, kMostHeaps> heaps{};
    const DWORD count = std::min(GetProcessHeaps(kMostHeaps, heaps.data()), kMostHeaps);
    std::size_t bytes = 0;
    for (DWORD i = 0; i < count; ++i) {
        HeapLock(heaps[i]);
        PROCESS_HEAP_ENTRY entry{};
        while (HeapWalk(heaps[i], &entry) != 0) {
            bytes += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? entry.cbData : 0;
        }
        HeapUnlock(heaps[i]);
    }
    return bytes;
}

std::string Named(const char* name, std::size_t number) {
    return std::string(name) + " " + std::to_string(number);
}

}  // namespace

std::string GetFigures() {
    const std::size_t slots = CountTakenSlots();
    const std::size_t heap = CountHeapBytes();
    const HANDLE process = GetCurrentProcess();
    DWORD handles = 0;
    GetProcessHandleCount(process, &handles);
    PROCESS_MEMORY_COUNTERS memory{};
    GetProcessMemoryInfo(process, &memory, sizeof memory);
    return Named("tls", slots) + Named(" heap", heap) + Named(" handles", handles) +
           Named(" gdi", GetGuiResources(process, GR_GDIOBJECTS)) +
           Named(" user", GetGuiResources(process, GR_USEROBJECTS)) +
           Named(" working-set", memory.WorkingSetSize) + Named(" private", memory.PagefileUsage);
}

void WaitForLine() {
    // Past the run-time, whose buffer for the input would be among the figures.
    const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
    char byte = '\0';
    DWORD read = 0;
    while (byte != '\n' && ReadFile(input, &byte, 1, &read, nullptr) != 0 && read == 1) {
    }
}

}  // namespace standin
