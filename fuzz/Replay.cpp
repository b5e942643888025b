// Runs a fuzz target once for each file that is named, and for each file of a folder that is named.
// A target that finds fault ends the process; the last line then names the file.

#include <algorithm>
#include <filesystem>
#include <vector>

#include "FileSystem.h"
#include "FuzzTarget.h"

namespace {

using tabulorix::Require;

std::vector<std::filesystem::path> ListFiles(const std::filesystem::path& path) {
    if (!std::filesystem::is_directory(path)) {
        return {path};
    }
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(path)) {
        files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

void Replay(const std::string& path) {
    std::printf("%s\n", path.c_str());
    std::fflush(stdout);
    const tabulorix::FileContents file = tabulorix::ReadWholeFile(path.c_str());
    Require(file.m_Result.Succeeded(), "the file can be read");
    // A buffer of exactly the input's size, so that a sanitizer sees each read beyond its end.
    const std::string_view bytes = file.m_Bytes;
    const std::vector<std::uint8_t> input(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(input.data(), input.size());
}

}  // namespace

int main(int argumentCount, char** arguments) {
    int count = 0;
    for (int i = 1; i < argumentCount; ++i) {
        for (const auto& file : ListFiles(arguments[i])) {
            Replay(file.string());
            ++count;
        }
    }
    Require(count > 0, "there is something to replay");
    std::printf("%d files replayed\n", count);
    return 0;
}
