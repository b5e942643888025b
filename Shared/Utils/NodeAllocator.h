// The memory of all tree nodes.
//
// Nodes are made and deleted by the ten thousand, so they are cut from blocks instead of being
// allocated one by one. A block is given back when its last node goes, except for one that is kept
// for the next node. Not safe to use from several threads.

#pragma once

#include <cstddef>

namespace tabulorix {

class NodeAllocator {
public:
    // Room for one TreeNode, owned by the caller until Free. Throws OutOfMemoryException.
    static void* Allocate();
    // Takes back what Allocate gave.
    static void Free(void* node) noexcept;

    // Gives back every block that holds no living node. May be called while trees are alive.
    static void Reset() noexcept;

    static std::size_t GetNodeCount() noexcept;
    static std::size_t GetBlockCount() noexcept;
};

}  // namespace tabulorix
