#include "Exceptions.h"

namespace tabulorix {

namespace {

ThrowLocation g_LastThrow;

void HandleAllocationFailure() {
    ThrowOutOfMemory("new", 0);
}

}  // namespace

void RecordThrowLocation(const char* source, int line) noexcept {
    g_LastThrow = {source, line};
}

ThrowLocation GetLastThrowLocation() noexcept {
    return g_LastThrow;
}

void ThrowOutOfMemory(const char* source, int line) {
    RecordThrowLocation(source, line);
    throw OutOfMemoryException();
}

void InstallAllocationFailureHandler() noexcept {
    std::set_new_handler(HandleAllocationFailure);
}

}  // namespace tabulorix
