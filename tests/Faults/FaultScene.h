// What the tests of faults have in common: the places in which runs fail, what must be the same
// afterwards, and the ways to fail.

#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>

#include "FaultInjector.h"
#include "NodeAllocator.h"
#include "ScoreTemplate.h"
#include "ScriptedHost.h"
#include "TestSupport.h"

namespace tabulorix {

namespace fs = std::filesystem;

inline constexpr RhythmLevel kLevels[] = {RhythmLevel::Never, RhythmLevel::WhenIndicated,
                                          RhythmLevel::Always};

// Between them they have all that a score can hold, and lines that are left out.
inline const std::string kTabs[] = {
    "Intro\n\n 3/4\n  Am7      C/G\n  Q.  E    H\n" + MakeStave("e|-0h2-12--|-x---3--|") +
        "\n----------------\n",
    " Chorus\n 1 + 2 + 3 + 4 +\n" + MakeStave("|-1---3---12----|--|", 4),
};

inline bool HasSmallTemplate() {
    return GetMusic(*CreateBlankScore())->GetChildCount() < 20;
}

// Reading the real template takes most of the allocations of an import, all of them alike: some of
// them in one import must do.
inline bool TakesSamples(Fault::Kind kind) {
    return kind == Fault::Kind::Memory && !HasSmallTemplate();
}

// What is in a folder: the bytes of each file, and where each link leads.
using Disk = std::map<std::string, std::string>;

inline Disk ReadDisk(const fs::path& folder) {
    Disk disk;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const std::string path = entry.path().string();
        disk[path] = entry.is_symlink()        ? fs::read_symlink(path).string()
                     : entry.is_regular_file() ? std::string(ReadWholeFile(STR(path)).m_Bytes)
                                               : "";
    }
    return disk;
}

// What a process has of the things that must not pile up.
struct Holdings {
    long m_Blocks = GetLiveBlockCount();
    std::size_t m_NodeBlocks = NodeAllocator::GetBlockCount();
    std::size_t m_Texts = GetPooledTextCount();
    std::ptrdiff_t m_Descriptors =
        std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
    bool operator==(const Holdings&) const = default;
};

// A host whose folder has everything that the program may touch.
class Scene {
public:
    explicit Scene(const std::string& tab) {
        const fs::path temporary = fs::absolute("temporary");
        fs::create_directory(temporary);
        ::setenv("TMPDIR", temporary.c_str(), 1);
        m_Tab = m_Host.MakeFile("song.tab", tab);
    }
    ~Scene() { ::setenv("TMPDIR", m_OldFolder.GetText(), 1); }
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    Disk ReadDisk() const { return tabulorix::ReadDisk(fs::current_path()); }

    STR m_OldFolder = GetTemporaryFolder();
    ScriptedHost m_Host;
    STR m_Tab;
};

// Lets calls fail, once and for ever, until a run comes through without: all, or some of them.
template <class SceneToCheck>
int CheckCalls(Fault::Kind kind, int first, int step, SceneToCheck& scene) {
    int failedRuns = 0;
    for (const bool isForEver : {false, true}) {
        bool hasHappened = true;
        for (int call = first; hasHappened; call += step) {
            {
                const InjectedFault fault({kind, call, isForEver});
                scene.Run();
                hasHappened = fault.HasHappened();
            }
            if (const char* problem = scene.FindProblem()) {
                FAIL_CHECK(Cat(problem, " after call ", call, isForEver ? " for ever" : ""));
            }
            failedRuns += hasHappened ? 1 : 0;
            if (kind == Fault::Kind::Partial || !hasHappened) {
                CHECK(scene.IsComplete());
            }
        }
    }
    return failedRuns;
}

template <class SceneToCheck>
void CheckEachCall(Fault::Kind kind) {
    constexpr int kSampled = 97;  // every 97th call, each in the turn of one scene
    constexpr int kScenes = static_cast<int>(std::size(kTabs) * std::size(kLevels));
    int failedRuns = 0;
    int number = 0;
    for (const std::string& tab : kTabs) {
        for (const RhythmLevel level : kLevels) {
            const int skipped = TakesSamples(kind) ? kSampled : 0;
            SceneToCheck scene(tab, level);
            failedRuns +=
                CheckCalls(kind, 1 + number++ * skipped, std::max(1, kScenes * skipped), scene);
        }
    }
    CHECK(failedRuns > 0);
    MESSAGE("failed runs: ", failedRuns);
}

// What somebody puts at the name of a temporary file.
enum class Planted { LinkToFile, LinkToNothing, File, Folder };

inline void Plant(const std::string& path, const STR& victim, Planted what) {
    fs::remove(path);
    if (what == Planted::File) {
        WriteWholeFile(STR(path), "planted");
    } else if (what == Planted::Folder) {
        fs::create_directory(path);
    } else {
        const std::string end = what == Planted::LinkToFile ? "" : ".nothing";
        fs::create_symlink(fs::absolute(victim.GetText()).string() + end, path);
    }
}

}  // namespace tabulorix
