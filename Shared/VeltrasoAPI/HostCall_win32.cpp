#include <windows.h>

#include "Exceptions.h"
#include "HostCall.h"

namespace tabulorix {

namespace {

// The code with which the usual compiler of this system raises a C++ exception. The system hands
// such an exception from handler to handler of the thread's chain. This program's compiler puts
// nothing into that chain, so without the handler below the exception would jump over its frames.
constexpr DWORD kForeignException = 0xE06D7363;

constexpr DWORD kIsUnwinding = 2 | 4;

// As the system lays it out. Its headers give the handler another calling convention than it has.
struct Link;
using Handler = EXCEPTION_DISPOSITION __cdecl(EXCEPTION_RECORD* exception, Link* link,
                                              CONTEXT* context, void* dispatcher);
struct Link {
    Link* m_Next;
    Handler* m_Handler;
};

// One link of the chain, on the stack of the call that it contains.
struct Containment : Link {
    void* m_WayBack[5];
};

Link* GetChain() noexcept {
    Link* first;
    __asm__ volatile("movl %%fs:0, %0" : "=r"(first));
    return first;
}

void SetChain(const Link* first) noexcept {
    __asm__ volatile("movl %0, %%fs:0" : : "r"(first) : "memory");
}

EXCEPTION_DISPOSITION __cdecl Contain(EXCEPTION_RECORD* exception, Link* link, CONTEXT* /*context*/,
                                      void* /*dispatcher*/) {
    if ((exception->ExceptionFlags & kIsUnwinding) != 0 ||
        exception->ExceptionCode != kForeignException) {
        return ExceptionContinueSearch;
    }
    // Unwinding runs the host's destructors and may not keep registers; volatile keeps this on the
    // stack.
    Containment* volatile containment = static_cast<Containment*>(link);
    RtlUnwind(containment, nullptr, exception, nullptr);
    __builtin_longjmp(containment->m_WayBack, 1);
}

// Takes the link out of the chain also when an exception of this program's kind passes, which does
// not do that by itself.
class InChain {
public:
    explicit InChain(Link& link) noexcept : m_Link(link) {
        m_Link.m_Next = GetChain();
        m_Link.m_Handler = Contain;
        SetChain(&m_Link);
    }
    ~InChain() { SetChain(m_Link.m_Next); }
    InChain(const InChain&) = delete;
    InChain& operator=(const InChain&) = delete;

private:
    Link& m_Link;
};

[[gnu::noinline]] int CallInChain(Containment& containment, int (*call)(void*), void* context) {
    const InChain inChain(containment);
    return call(context);
}

}  // namespace

int CallContainingForeignExceptions(int (*call)(void*), void* context) {
    Containment containment;
    if (__builtin_setjmp(containment.m_WayBack) == 0) {
        return CallInChain(containment, call, context);
    }
    // The jump brings back the stack only. Naming the caller's registers here makes this function
    // save and restore them, so that the throw below does not carry what the host left in them.
    __asm__ volatile("" : : : "ebx", "esi", "edi");
    SetChain(containment.m_Next);
    RecordThrowLocation("HostCall", __LINE__);
    throw Exception("a function of the host failed");
}

}  // namespace tabulorix
