// Makes memory run out and the system's file operations fail, at a call that a test chooses.
//
// The program's allocations come here because this file defines operator new and delete; the
// linker sends the calls of the C library here (--wrap, see the CMakeLists.txt of the tests). A
// close or a removal that fails has done its work nevertheless, so that what is left open or on the
// disk is always the program's fault.

#pragma once

#include <functional>
#include <string>

namespace tabulorix {

struct Fault {
    // Partial: a read or write takes only a part of the bytes, which is no failure.
    enum class Kind { Memory, File, Partial };

    Kind m_Kind;
    int m_Call;        // the number of the call that fails, counted from 1
    bool m_IsForEver;  // so do all that come after it
};

// From the constructor on, until the end of this object.
class InjectedFault {
public:
    explicit InjectedFault(const Fault& fault) noexcept;
    ~InjectedFault();
    InjectedFault(const InjectedFault&) = delete;
    InjectedFault& operator=(const InjectedFault&) = delete;

    // False when there have not been that many calls.
    bool HasHappened() const noexcept;
};

// The allocations of the program that have not been freed.
long GetLiveBlockCount() noexcept;
// With what the allocator adds to them, which may be different each time.
std::size_t GetLiveByteCount() noexcept;

// Called with the path of each file of a unique name as soon as it is made; empty to end that.
void SetUniqueFileHook(std::function<void(const std::string& path)> hook);

}  // namespace tabulorix
