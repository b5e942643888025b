// The file that a score is written to before it takes its place, so that nobody ever finds half a
// score under its name.

#pragma once

#include "FileSystem.h"
#include "STR.h"
#include "Terminal.h"

namespace tabulorix {

// As long as it lives, requests to end the program are only noted: it never stays behind.
class TemporaryFile {
public:
    // Throws FileOpenWriteFailedException, with the reason, when `folder` takes no new file.
    explicit TemporaryFile(const STR& folder);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const STR& GetPath() const noexcept { return m_Path; }

    // Gives it its own name, in place of a file that has it. `path` is in the same folder.
    FileResult MoveTo(const STR& path);

private:
    InterruptGuard m_Guard;
    STR m_Path;  // empty when it has moved
};

}  // namespace tabulorix
