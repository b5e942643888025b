// The failures of the program, and the record of where the last one was thrown.
//
// Before a throw, the thrower records its source's name and line, so that a debugger or a crash
// report can tell where an exception came from after the stack is unwound.

#pragma once

#include <new>
#include <utility>

#include "STR.h"

namespace tabulorix {

// Where the last exception was thrown: a source's short name (static text, null before the first
// throw) and a line in it.
struct ThrowLocation {
    const char* m_Source = nullptr;
    int m_Line = 0;
};

void RecordThrowLocation(const char* source, int line) noexcept;
ThrowLocation GetLastThrowLocation() noexcept;

// The root of all failures. The message is for a person: what failed, with the path or figure.
class Exception {
public:
    Exception() noexcept = default;
    explicit Exception(STR message) noexcept : m_Message(std::move(message)) {}
    Exception(const Exception&) noexcept = default;
    Exception& operator=(const Exception&) noexcept = default;
    virtual ~Exception() = default;

    const STR& GetText() const noexcept { return m_Message; }

private:
    STR m_Message;
};

// Every failed allocation; carries no text, since there is no memory for one.
class OutOfMemoryException : public Exception, public std::bad_alloc {
public:
    const char* what() const noexcept override { return "out of memory"; }
};

class FileOpenWriteFailedException : public Exception {
    using Exception::Exception;
};

class FileSaveFailedException : public Exception {
    using Exception::Exception;
};

// Ends the reading of a tree at the label that was looked for; the text is that node's text.
class TreeNodeLabelFoundException : public Exception {
    using Exception::Exception;
};

// The user cancelled the progress display.
class ConverterCancelled : public Exception {
    using Exception::Exception;
};

[[noreturn]] void ThrowOutOfMemory(const char* source, int line);

// From now on a failed `new` raises OutOfMemoryException.
void InstallAllocationFailureHandler() noexcept;

}  // namespace tabulorix
