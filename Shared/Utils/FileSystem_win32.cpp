#include <windows.h>

#include <string>
#include <utility>

#include "FileName.h"
#include "FileSystem.h"

namespace tabulorix {

namespace {

constexpr DWORD kChunkSize = 64 * 1024;
constexpr DWORD kMostBytesAtOnce = 1024 * 1024;

FileResult LastError() {
    const DWORD code = GetLastError();
    char text[512];
    std::string_view words(
        text, FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                             code, 0, text, sizeof text, nullptr));
    words = words.substr(0, words.find_last_not_of(" .\r\n") + 1);
    if (words.empty()) {
        return {STR("error ") + STR::FromInt(static_cast<int>(code))};
    }
    return {words};
}

FileResult CloseChecked(HANDLE handle) {
    return CloseHandle(handle) != 0 ? FileResult() : LastError();
}

class Handle {
public:
    Handle(const STR& path, DWORD access, DWORD disposition, DWORD flags = FILE_ATTRIBUTE_NORMAL)
        : m_Handle(CreateFileA(path.GetText(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                               disposition, flags, nullptr)) {}
    ~Handle() {
        if (IsOpen()) {
            CloseHandle(m_Handle);
        }
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    bool IsOpen() const noexcept { return m_Handle != INVALID_HANDLE_VALUE; }
    HANDLE Get() const noexcept { return m_Handle; }

    FileResult Close() { return CloseChecked(std::exchange(m_Handle, INVALID_HANDLE_VALUE)); }

private:
    HANDLE m_Handle;
};

FileContents TooLarge(int mostBytes) {
    return {{}, {STR("more than ") + STR::FromInt(mostBytes) + " bytes"}};
}

FileContents ReadToEnd(HANDLE file, int mostBytes) {
    std::string chunk(kChunkSize, '\0');
    FileContents contents;
    for (;;) {
        DWORD count = 0;
        // The end of a pipe is reported as a failure.
        if (ReadFile(file, chunk.data(), kChunkSize, &count, nullptr) == 0 &&
            GetLastError() != ERROR_BROKEN_PIPE) {
            return {{}, LastError()};
        }
        if (count == 0) {
            return contents;
        }
        if (static_cast<int>(count) > mostBytes - contents.m_Bytes.GetLength()) {
            return TooLarge(mostBytes);
        }
        contents.m_Bytes += std::string_view(chunk.data(), count);
    }
}

FileResult WriteAll(HANDLE file, std::string_view bytes) {
    while (!bytes.empty()) {
        const std::string_view part = bytes.substr(0, kMostBytesAtOnce);
        DWORD count = 0;
        if (WriteFile(file, part.data(), static_cast<DWORD>(part.size()), &count, nullptr) == 0) {
            return LastError();
        }
        if (count == 0) {  // who takes nothing would be asked for ever
            SetLastError(ERROR_WRITE_FAULT);
            return LastError();
        }
        bytes.remove_prefix(count);
    }
    return {};
}

constexpr std::intptr_t kNoHandle = -1;

HANDLE ToHandle(std::intptr_t number) {
    return reinterpret_cast<HANDLE>(number);
}

// Without the flag a link that leads nowhere would be followed, and the file made at its end.
std::intptr_t MakeFile(const char* path) {
    return reinterpret_cast<std::intptr_t>(
        CreateFileA(path, GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_NEW,
                    FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
}

}  // namespace

FileResult GetLastFailure() {
    return LastError();
}

FileContents ReadWholeFile(const STR& path, int mostBytes) {
    if (GetPathKind(path) == PathKind::Folder) {
        return {{}, {"Is a folder"}};
    }
    const Handle file(path, GENERIC_READ, OPEN_EXISTING);
    if (!file.IsOpen()) {
        return {{}, LastError()};
    }
    LARGE_INTEGER size;
    if (GetFileSizeEx(file.Get(), &size) != 0 && size.QuadPart > mostBytes) {
        return TooLarge(mostBytes);
    }
    return ReadToEnd(file.Get(), mostBytes);
}

FileContents ReadStandardInput() {
    return ReadToEnd(GetStdHandle(STD_INPUT_HANDLE), kMostBytesRead);
}

FileResult WriteWholeFile(const STR& path, std::string_view bytes) {
    Handle file(path, GENERIC_WRITE, CREATE_ALWAYS);
    if (!file.IsOpen()) {
        return LastError();
    }
    const FileResult written = WriteAll(file.Get(), bytes);
    const FileResult closed = file.Close();
    return written.Succeeded() ? closed : written;
}

FileResult WriteStandardOutput(std::string_view bytes) {
    return WriteAll(GetStdHandle(STD_OUTPUT_HANDLE), bytes);
}

NewFile::NewFile(std::string path, std::intptr_t handle)
    : m_Path(std::move(path)), m_Handle(handle) {
    if (handle == kNoHandle) {
        m_Path.clear();
        m_Creation = LastError();
    }
}

NewFile NewFile::At(const STR& path) {
    std::string name(path.View());
    const std::intptr_t handle = MakeFile(name.c_str());
    return {std::move(name), handle};
}

NewFile NewFile::In(const STR& folder, const STR& prefix) {
    for (DWORD number = GetTickCount();; ++number) {
        const STR unique = prefix + STR::FromInt(static_cast<int>(number & INT_MAX)) + ".tmp";
        std::string name(JoinPath(folder, unique).View());
        const std::intptr_t handle = MakeFile(name.c_str());
        if (handle != kNoHandle || GetLastError() != ERROR_FILE_EXISTS) {
            return {std::move(name), handle};
        }
    }
}

NewFile::~NewFile() {
    if (m_Handle != kNoHandle) {
        CloseHandle(ToHandle(m_Handle));
    }
    if (!m_Path.empty()) {
        DeleteFileA(m_Path.c_str());
    }
}

FileResult NewFile::Write(std::string_view bytes) {
    return WriteAll(ToHandle(m_Handle), bytes);
}

FileResult NewFile::Close() {
    return CloseChecked(ToHandle(std::exchange(m_Handle, kNoHandle)));
}

FileResult NewFile::Keep() {
    FileResult closed = Close();
    if (closed) {
        m_Path.clear();
    }
    return closed;
}

FileResult NewFile::MoveOver(const STR& to) {
    FileResult closed = Close();
    if (closed && MoveFileExA(m_Path.c_str(), to.GetText(), MOVEFILE_REPLACE_EXISTING) == 0) {
        return LastError();
    }
    if (closed) {
        m_Path.clear();
    }
    return closed;
}

// The system makes the file when it is left to choose the number in its name.
FileCreation CreateUniqueFile(const STR& folder, const STR& prefix) {
    char path[MAX_PATH];
    const STR place = folder.IsEmpty() ? STR(".") : folder;
    if (GetTempFileNameA(place.GetText(), prefix.GetText(), 0, path) == 0) {
        return {{}, LastError()};
    }
    try {
        return {path, {}};
    } catch (...) {  // no memory for the name
        DeleteFileA(path);
        throw;
    }
}

FileResult RemoveFile(const STR& path) {
    return DeleteFileA(path.GetText()) != 0 ? FileResult() : LastError();
}

PathKind GetPathKind(const STR& path) {
    const DWORD attributes = GetFileAttributesA(path.GetText());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return PathKind::Nothing;
    }
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return PathKind::Folder;
    }
    // Names such as NUL and CON have attributes like a file in every folder.
    const Handle file(path, 0, OPEN_EXISTING);
    const bool isDevice = file.IsOpen() && GetFileType(file.Get()) != FILE_TYPE_DISK;
    return isDevice ? PathKind::Device : PathKind::File;
}

FileResult MakeFolder(const STR& path) {
    return CreateDirectoryA(path.GetText(), nullptr) != 0 ? FileResult() : LastError();
}

FileIdentity GetFileIdentity(const STR& path) {
    // A folder opens only with this flag.
    const Handle file(path, 0, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
    BY_HANDLE_FILE_INFORMATION information;
    if (!file.IsOpen() || GetFileInformationByHandle(file.Get(), &information) == 0) {
        return {};
    }
    return {
        information.dwVolumeSerialNumber,
        (static_cast<std::uint64_t>(information.nFileIndexHigh) << 32) | information.nFileIndexLow};
}

// Links are rare here, and moving a file over one replaces the link.
STR ResolveLinks(const STR& path) {
    return GetFullPath(path);
}

STR GetFullPath(const STR& path) {
    if (path.IsEmpty()) {
        return path;
    }
    char full[4 * MAX_PATH];
    const DWORD length = GetFullPathNameA(path.GetText(), sizeof full, full, nullptr);
    return length == 0 || length >= sizeof full ? path : STR(std::string_view(full, length));
}

STR GetTemporaryFolder() {
    char folder[MAX_PATH + 1];
    const DWORD length = GetTempPathA(sizeof folder, folder);
    return length == 0 || length >= sizeof folder ? "." : folder;
}

char GetPathSeparator() noexcept {
    return '\\';
}

// A drive's colon ends a part too.
bool IsPathSeparator(char c) noexcept {
    return c == '\\' || c == '/' || c == ':';
}

}  // namespace tabulorix
