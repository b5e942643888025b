#include "NodeAllocator.h"

#include <new>

#include "Exceptions.h"
#include "TreeNode.h"

namespace tabulorix {

namespace {

constexpr int kSlotsPerBlock = 512;

struct Block;

// A place for a node. Its block is named in front of it, so that freeing needs no search.
struct Slot {
    Block* m_Block;
    union {
        Slot* m_NextFree;
        alignas(TreeNode) std::byte m_Node[sizeof(TreeNode)];
    };
};

struct Block {
    // The neighbours among the blocks with room.
    Block* m_Next = nullptr;
    Block* m_Previous = nullptr;
    Slot* m_FirstFree = nullptr;
    int m_UntouchedFrom = 0;  // from this slot on none was ever used
    int m_NodeCount = 0;
    Slot m_Slots[kSlotsPerBlock];

    bool IsFull() const noexcept { return m_NodeCount == kSlotsPerBlock; }
};

// Full blocks are in no list: their nodes lead back to them.
constinit Block* g_FirstWithRoom = nullptr;
constinit std::size_t g_BlockCount = 0;
constinit std::size_t g_NodeCount = 0;

void Link(Block* block) noexcept {
    block->m_Previous = nullptr;
    block->m_Next = g_FirstWithRoom;
    if (g_FirstWithRoom != nullptr) {
        g_FirstWithRoom->m_Previous = block;
    }
    g_FirstWithRoom = block;
}

void Unlink(Block* block) noexcept {
    (block->m_Previous == nullptr ? g_FirstWithRoom : block->m_Previous->m_Next) = block->m_Next;
    if (block->m_Next != nullptr) {
        block->m_Next->m_Previous = block->m_Previous;
    }
}

void AddBlock() {
    try {
        // Default-initialised: the slots' pages stay untouched until they are needed.
        Link(new Block);
    } catch (const std::bad_alloc&) {
        ThrowOutOfMemory("NodeAllocator", __LINE__);
    }
    ++g_BlockCount;
}

void Release(Block* block) noexcept {
    Unlink(block);
    delete block;
    --g_BlockCount;
}

Slot* TakeSlot(Block* block) noexcept {
    ++block->m_NodeCount;
    Slot* slot = block->m_FirstFree;
    if (slot != nullptr) {
        block->m_FirstFree = slot->m_NextFree;
        return slot;
    }
    slot = &block->m_Slots[block->m_UntouchedFrom++];
    slot->m_Block = block;
    return slot;
}

}  // namespace

void* NodeAllocator::Allocate() {
    if (g_FirstWithRoom == nullptr) {
        AddBlock();
    }
    Block* block = g_FirstWithRoom;
    Slot* slot = TakeSlot(block);
    if (block->IsFull()) {
        Unlink(block);
    }
    ++g_NodeCount;
    return slot->m_Node;
}

void NodeAllocator::Free(void* node) noexcept {
    Slot* slot = reinterpret_cast<Slot*>(static_cast<std::byte*>(node) - offsetof(Slot, m_Node));
    Block* block = slot->m_Block;
    if (block->IsFull()) {
        Link(block);
    }
    slot->m_NextFree = block->m_FirstFree;
    block->m_FirstFree = slot;
    --g_NodeCount;
    const bool isOnlyOneWithRoom = g_FirstWithRoom == block && block->m_Next == nullptr;
    if (--block->m_NodeCount == 0 && !isOnlyOneWithRoom) {
        Release(block);
    }
}

void NodeAllocator::Reset() noexcept {
    for (Block* block = g_FirstWithRoom; block != nullptr;) {
        Block* next = block->m_Next;
        if (block->m_NodeCount == 0) {
            Release(block);
        }
        block = next;
    }
}

std::size_t NodeAllocator::GetNodeCount() noexcept {
    return g_NodeCount;
}

std::size_t NodeAllocator::GetBlockCount() noexcept {
    return g_BlockCount;
}

}  // namespace tabulorix
