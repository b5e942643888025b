#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <utility>

#include "FileName.h"
#include "FileSystem.h"

namespace tabulorix {

namespace {

constexpr std::size_t kChunkSize = 65536;
constexpr std::string_view kUniqueEnding = ".tmp";

FileResult LastError() {
    return {std::strerror(errno)};
}

// Repeats a system call that a signal interrupted before it did anything.
template <typename Call>
auto Retry(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

// Some systems find out here only that the bytes have no room. An interrupted close has closed.
FileResult CloseChecked(int descriptor) {
    return ::close(descriptor) == 0 || errno == EINTR ? FileResult() : LastError();
}

class Descriptor {
public:
    Descriptor(const STR& path, int flags)
        : m_Number(Retry([&] { return ::open(path.GetText(), flags | O_CLOEXEC, 0666); })) {}
    ~Descriptor() {
        if (IsOpen()) {
            ::close(m_Number);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool IsOpen() const noexcept { return m_Number >= 0; }
    int GetNumber() const noexcept { return m_Number; }
    FileResult Close() { return CloseChecked(std::exchange(m_Number, -1)); }

private:
    int m_Number;
};

FileContents TooLarge(int mostBytes) {
    return {{}, {STR("more than ") + STR::FromInt(mostBytes) + " bytes"}};
}

FileContents ReadToEnd(int descriptor, int mostBytes) {
    char chunk[kChunkSize];
    FileContents contents;
    for (;;) {
        const ssize_t count = Retry([&] { return ::read(descriptor, chunk, kChunkSize); });
        if (count < 0) {
            return {{}, LastError()};
        }
        if (count == 0) {
            return contents;
        }
        if (count > mostBytes - contents.m_Bytes.GetLength()) {
            return TooLarge(mostBytes);
        }
        contents.m_Bytes += std::string_view(chunk, static_cast<std::size_t>(count));
    }
}

FileResult WriteAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count =
            Retry([&] { return ::write(descriptor, bytes.data(), bytes.size()); });
        if (count < 0) {
            return LastError();
        }
        if (count == 0) {  // who takes nothing would be asked for ever
            errno = EIO;
            return LastError();
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return {};
}

// The permissions of a file that a program makes without a thought.
mode_t GetOrdinaryMode() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

// Null when the path leads to nothing.
std::unique_ptr<char, decltype(&std::free)> GetRealPath(const char* path) {
    return {::realpath(path, nullptr), &std::free};
}

}  // namespace

FileResult GetLastFailure() {
    return LastError();
}

FileContents ReadWholeFile(const STR& path, int mostBytes) {
    const Descriptor file(path, O_RDONLY);
    struct stat status;
    if (!file.IsOpen() || ::fstat(file.GetNumber(), &status) != 0) {
        return {{}, LastError()};
    }
    if (S_ISREG(status.st_mode) && status.st_size > mostBytes) {
        return TooLarge(mostBytes);
    }
    return ReadToEnd(file.GetNumber(), mostBytes);
}

FileContents ReadStandardInput() {
    return ReadToEnd(STDIN_FILENO, kMostBytesRead);
}

FileResult WriteWholeFile(const STR& path, std::string_view bytes) {
    Descriptor file(path, O_WRONLY | O_CREAT | O_TRUNC);
    if (!file.IsOpen()) {
        return LastError();
    }
    const FileResult written = WriteAll(file.GetNumber(), bytes);
    const FileResult closed = file.Close();
    return written.Succeeded() ? closed : written;
}

FileResult WriteStandardOutput(std::string_view bytes) {
    return WriteAll(STDOUT_FILENO, bytes);
}

NewFile::NewFile(std::string path, std::intptr_t handle)
    : m_Path(std::move(path)), m_Handle(handle) {
    if (handle < 0) {
        m_Path.clear();
        m_Creation = LastError();
    }
}

NewFile NewFile::At(const STR& path) {
    constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
    std::string name(path.View());
    const int number = Retry([&] { return ::open(name.c_str(), kFlags, S_IRUSR | S_IWUSR); });
    return {std::move(name), number};
}

NewFile NewFile::In(const STR& folder, const STR& prefix) {
    std::string name(JoinPath(folder, prefix + "XXXXXX").View());
    name += kUniqueEnding;
    constexpr auto kEndingLength = static_cast<int>(kUniqueEnding.size());
    const int number = Retry([&] { return ::mkostemps(name.data(), kEndingLength, O_CLOEXEC); });
    return {std::move(name), number};
}

NewFile::~NewFile() {
    if (m_Handle >= 0) {
        ::close(static_cast<int>(m_Handle));
    }
    if (!m_Path.empty()) {
        ::unlink(m_Path.c_str());
    }
}

FileResult NewFile::Write(std::string_view bytes) {
    return WriteAll(static_cast<int>(m_Handle), bytes);
}

FileResult NewFile::Close() {
    return CloseChecked(static_cast<int>(std::exchange(m_Handle, -1)));
}

FileResult NewFile::Keep() {
    FileResult closed = Close();
    if (closed) {
        m_Path.clear();
    }
    return closed;
}

FileResult NewFile::MoveOver(const STR& to) {
    mode_t mode = GetOrdinaryMode();
    struct stat replaced;
    if (::stat(to.GetText(), &replaced) == 0) {
        if (::access(to.GetText(), W_OK) != 0) {
            return LastError();
        }
        mode = replaced.st_mode & 0777;
    } else if (errno != ENOENT) {  // who might read the file is not known
        return LastError();
    }
    if (::fchmod(static_cast<int>(m_Handle), mode) != 0) {
        return LastError();
    }
    FileResult closed = Close();
    if (closed && ::rename(m_Path.c_str(), to.GetText()) != 0) {
        return LastError();
    }
    if (closed) {
        m_Path.clear();
    }
    return closed;
}

FileCreation CreateUniqueFile(const STR& folder, const STR& prefix) {
    NewFile file = NewFile::In(folder, prefix);
    FileCreation created{STR(file.GetPath()), file.GetCreation()};
    if (created.m_Result) {
        created.m_Result = file.Keep();
    }
    return created;
}

FileResult RemoveFile(const STR& path) {
    return ::unlink(path.GetText()) == 0 ? FileResult() : LastError();
}

PathKind GetPathKind(const STR& path) {
    struct stat status;
    if (::stat(path.GetText(), &status) != 0) {
        return PathKind::Nothing;
    }
    if (S_ISREG(status.st_mode)) {
        return PathKind::File;
    }
    return S_ISDIR(status.st_mode) ? PathKind::Folder : PathKind::Device;
}

FileResult MakeFolder(const STR& path) {
    return ::mkdir(path.GetText(), S_IRWXU | S_IRWXG | S_IRWXO) == 0 ? FileResult() : LastError();
}

FileIdentity GetFileIdentity(const STR& path) {
    struct stat status;
    if (::stat(path.GetText(), &status) != 0) {
        return {};
    }
    return {status.st_dev, status.st_ino};
}

STR ResolveLinks(const STR& path) {
    const auto real = GetRealPath(path.GetText());
    return real == nullptr ? path : STR(real.get());
}

STR GetFullPath(const STR& path) {
    if (path.IsEmpty() || IsPathSeparator(path.View().front())) {
        return path;
    }
    const auto current = GetRealPath(".");
    return current == nullptr ? path : JoinPath(current.get(), path);
}

STR GetTemporaryFolder() {
    const char* chosen = std::getenv("TMPDIR");
    return chosen == nullptr || *chosen == '\0' ? "/tmp" : chosen;
}

char GetPathSeparator() noexcept {
    return '/';
}

bool IsPathSeparator(char c) noexcept {
    return c == '/';
}

}  // namespace tabulorix
