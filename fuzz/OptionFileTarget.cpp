// Option files: any file is refused or gives a level, and a level that is stored in it is kept. A
// file that is nested too deep to be stored stays as it is.

#include <algorithm>

#include "Exceptions.h"
#include "FileName.h"
#include "FuzzTarget.h"
#include "ImportOptions.h"

namespace tabulorix {

namespace {

class TemporaryOptionFile {
public:
    TemporaryOptionFile() : m_File(FileName::CreateTemporary()) {}
    ~TemporaryOptionFile() { m_File.Delete(); }
    TemporaryOptionFile(const TemporaryOptionFile&) = delete;
    TemporaryOptionFile& operator=(const TemporaryOptionFile&) = delete;

    const FileName& Get() const { return m_File; }

private:
    FileName m_File;
};

bool IsKnown(RhythmLevel level) {
    return level == RhythmLevel::Never || level == RhythmLevel::WhenIndicated ||
           level == RhythmLevel::Always;
}

void StoreLevel(ImportOptions& options, const FileName& file, RhythmLevel level) {
    options.SetRhythmLevel(level);
    const STR before = ReadWholeFile(file.GetPath()).m_Bytes;
    if (!options.Save()) {
        Require(std::ranges::count(std::string_view(before), '{') > 100, "the level can be stored");
        Require(ReadWholeFile(file.GetPath()).m_Bytes == before, "else the file stays as it is");
        return;
    }
    Require(ImportOptions(file).GetStoredLevel() == static_cast<int>(level),
            "a stored level is kept");
}

}  // namespace

}  // namespace tabulorix

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tabulorix;
    static const TemporaryOptionFile s_File;
    const FileName& file = s_File.Get();
    Require(WriteWholeFile(file.GetPath(), GetInput(data, size)).Succeeded(),
            "the input can be written");
    try {
        ImportOptions options(file);
        Require(IsKnown(options.GetRhythmLevel()), "every file gives a level");
        StoreLevel(options, file, RhythmLevel::Always);
        StoreLevel(options, file, RhythmLevel::Never);
    } catch (const OutOfMemoryException&) {
        throw;
    } catch (const Exception&) {
        // No tree: the file keeps what is in it.
        return 0;
    }
    return 0;
}
