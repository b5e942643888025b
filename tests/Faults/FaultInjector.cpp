#include "FaultInjector.h"

#include <malloc.h>
#include <sys/types.h>

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <new>
#include <utility>

#include "FaultPause.h"

namespace tabulorix {

namespace {

constinit Fault g_Fault{Fault::Kind::Memory, 0, false};
constinit int g_CallCount = 0;
constinit long g_LiveBlockCount = 0;
constinit std::size_t g_LiveBytes = 0;
std::function<void(const std::string&)> g_UniqueFileHook;

bool MustFail(Fault::Kind kind) noexcept {
    if (g_Fault.m_Call == 0 || g_Fault.m_Kind != kind || FaultPause::s_Depth > 0) {
        return false;
    }
    ++g_CallCount;
    return g_CallCount == g_Fault.m_Call || (g_Fault.m_IsForEver && g_CallCount > g_Fault.m_Call);
}

bool MustFailFile() noexcept {
    if (MustFail(Fault::Kind::File)) {
        errno = EIO;
        return true;
    }
    return false;
}

void* Count(void* block) noexcept {
    g_LiveBlockCount += block == nullptr ? 0 : 1;
    g_LiveBytes += malloc_usable_size(block);
    return block;
}

}  // namespace

InjectedFault::InjectedFault(const Fault& fault) noexcept {
    g_CallCount = 0;
    g_Fault = fault;
}

InjectedFault::~InjectedFault() {
    g_Fault.m_Call = 0;
}

bool InjectedFault::HasHappened() const noexcept {
    return g_CallCount >= g_Fault.m_Call;
}

long GetLiveBlockCount() noexcept {
    return g_LiveBlockCount;
}

std::size_t GetLiveByteCount() noexcept {
    return g_LiveBytes;
}

void SetUniqueFileHook(std::function<void(const std::string&)> hook) {
    g_UniqueFileHook = std::move(hook);
}

}  // namespace tabulorix

using namespace tabulorix;

// The linker chooses these names.
// NOLINTBEGIN(bugprone-reserved-identifier,bugprone-macro-parentheses)
extern "C" {

void* __real_malloc(std::size_t size);
void* __real_realloc(void* block, std::size_t size);
void __real_free(void* block);
char* __real_realpath(const char* path, char* result);

void* __wrap_malloc(std::size_t size) {
    return MustFail(Fault::Kind::Memory) ? nullptr : Count(__real_malloc(size));
}

void* __wrap_realloc(void* block, std::size_t size) {
    if (MustFail(Fault::Kind::Memory)) {
        return nullptr;
    }
    const std::size_t before = malloc_usable_size(block);
    void* grown = __real_realloc(block, size);
    if (block != nullptr && grown != nullptr) {
        g_LiveBytes += malloc_usable_size(grown) - before;
    }
    return block == nullptr ? Count(grown) : grown;
}

void __wrap_free(void* block) {
    g_LiveBlockCount -= block == nullptr ? 0 : 1;
    g_LiveBytes -= malloc_usable_size(block);
    __real_free(block);
}

char* __wrap_realpath(const char* path, char* result) {
    char* real = MustFailFile() ? nullptr : __real_realpath(path, result);
    return result == nullptr ? static_cast<char*>(Count(real)) : real;
}

// What these give is the C library's own and is not counted.
#define WRAP_FOLDER(name, Argument)                                \
    void* __real_##name(Argument* argument);                       \
    void* __wrap_##name(Argument* argument) {                      \
        return MustFailFile() ? nullptr : __real_##name(argument); \
    }

#define WRAP(name, parameters, arguments)                     \
    int __real_##name parameters;                             \
    int __wrap_##name parameters {                            \
        return MustFailFile() ? -1 : __real_##name arguments; \
    }
#define WRAP_WORKING(name, parameters, arguments)   \
    int __real_##name parameters;                   \
    int __wrap_##name parameters {                  \
        const int result = __real_##name arguments; \
        return MustFailFile() ? -1 : result;        \
    }
#define WRAP_TRANSFER(name, Buffer)                                     \
    ssize_t __real_##name(int file, Buffer* bytes, std::size_t size);   \
    ssize_t __wrap_##name(int file, Buffer* bytes, std::size_t size) {  \
        const bool isPartial = MustFail(Fault::Kind::Partial);          \
        const std::size_t taken = isPartial ? (size + 1) / 2 : size;    \
        return MustFailFile() ? -1 : __real_##name(file, bytes, taken); \
    }
// 32-bit programs may have the variants for large files.
#define WRAP_BOTH(name, parameters, arguments) \
    WRAP(name, parameters, arguments)          \
    WRAP(name##64, parameters, arguments)
#define WRAP_UNIQUE(name)                                                             \
    int __real_##name(char* path, int endLength, int flags);                          \
    int __wrap_##name(char* path, int endLength, int flags) {                         \
        const int file = MustFailFile() ? -1 : __real_##name(path, endLength, flags); \
        if (file >= 0 && g_UniqueFileHook) {                                          \
            g_UniqueFileHook(path);                                                   \
        }                                                                             \
        return file;                                                                  \
    }

WRAP_BOTH(open, (const char* path, int flags, unsigned mode), (path, flags, mode))
WRAP_BOTH(stat, (const char* path, void* status), (path, status))
WRAP_BOTH(fstat, (int file, void* status), (file, status))
WRAP(access, (const char* path, int mode), (path, mode))
WRAP(fchmod, (int file, unsigned mode), (file, mode))
WRAP(mkdir, (const char* path, unsigned mode), (path, mode))
WRAP(rename, (const char* from, const char* to), (from, to))
WRAP_WORKING(unlink, (const char* path), (path))
WRAP_WORKING(close, (int file), (file))
WRAP_FOLDER(opendir, const char)
WRAP_FOLDER(readdir, void)
WRAP_FOLDER(readdir64, void)
WRAP_TRANSFER(read, void)
WRAP_TRANSFER(write, const void)
WRAP_UNIQUE(mkostemps)
WRAP_UNIQUE(mkostemps64)
}
// NOLINTEND(bugprone-reserved-identifier,bugprone-macro-parentheses)

void* operator new(std::size_t size) {
    void* block = std::malloc(size);
    while (block == nullptr) {
        const std::new_handler handler = std::get_new_handler();
        if (handler == nullptr) {
            throw std::bad_alloc();
        }
        handler();
        block = std::malloc(size);
    }
    return block;
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return std::malloc(size);
}

void operator delete(void* block) noexcept {
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}
