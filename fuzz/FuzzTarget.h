// What a fuzz target is made of: the entry point that it defines, and the way to say that a promise
// does not hold.
//
// Each target feeds one part of the program with any bytes. On every input it must come back
// without an exception, and what it made must be sound.

#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

// Called once for an input, as often as the driver likes. Always returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace tabulorix {

inline std::string_view GetInput(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

// Ends the process with `promise`, a sentence that should be true, unless it holds.
inline void Require(bool holds, const char* promise) {
    if (!holds) {
        std::fprintf(stderr, "This does not hold: %s\n", promise);
        std::abort();
    }
}

}  // namespace tabulorix
