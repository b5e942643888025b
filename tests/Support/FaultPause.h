// As long as one lives, injected faults spare what the program does: the test's own code.

#pragma once

namespace tabulorix {

struct FaultPause {
    FaultPause() noexcept { ++s_Depth; }
    ~FaultPause() { --s_Depth; }
    FaultPause(const FaultPause&) = delete;
    FaultPause& operator=(const FaultPause&) = delete;

    static inline int s_Depth = 0;
};

}  // namespace tabulorix
