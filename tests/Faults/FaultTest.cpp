// Whatever fails, and wherever: an import or a conversion ends as it should and leaves everything
// as it was, and the next one is as ever.

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>

#include "FaultInjector.h"
#include "FileConversion.h"
#include "FolderConversion.h"
#include "HostCallbacks.h"
#include "MusicXml.h"
#include "NodeAllocator.h"
#include "ScoreTemplate.h"
#include "ScriptedHost.h"
#include "TestSupport.h"

namespace tabulorix {

namespace {

namespace fs = std::filesystem;

constexpr RhythmLevel kLevels[] = {RhythmLevel::Never, RhythmLevel::WhenIndicated,
                                   RhythmLevel::Always};

// Between them they have all that a score can hold, and lines that are left out.
const std::string kTabs[] = {
    "Intro\n\n 3/4\n  Am7      C/G\n  Q.  E    H\n" + MakeStave("e|-0h2-12--|-x---3--|") +
        "\n----------------\n",
    " Chorus\n 1 + 2 + 3 + 4 +\n" + MakeStave("|-1---3---12----|--|", 4),
};

bool HasSmallTemplate() {
    return GetMusic(*CreateBlankScore())->GetChildCount() < 20;
}

// Reading the real template takes most of the allocations of an import, all of them alike: some of
// them in one import must do.
bool TakesSamples(Fault::Kind kind) {
    return kind == Fault::Kind::Memory && !HasSmallTemplate();
}

// What is in a folder: the bytes of each file, and where each link leads.
using Disk = std::map<std::string, std::string>;

Disk ReadDisk(const STR& folder) {
    Disk disk;
    for (const auto& entry : fs::recursive_directory_iterator(folder.GetText())) {
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
        const STR temporary = m_Host.GetPath("temporary");
        MakeFolder(temporary);
        ::setenv("TMPDIR", temporary.GetText(), 1);
        m_Tab = m_Host.MakeFile("song.tab", tab);
    }
    ~Scene() { ::setenv("TMPDIR", m_OldFolder.GetText(), 1); }
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    Disk ReadDisk() const { return tabulorix::ReadDisk(m_Host.GetPath("")); }

    STR m_OldFolder = GetTemporaryFolder();
    ScriptedHost m_Host;
    STR m_Tab;
};

// The plug-in's imports.
class ImportScene : public Scene {
public:
    ImportScene(const std::string& tab, RhythmLevel level) : Scene(tab) {
        m_Host.Init();
        m_Host.m_Choice = level;
        m_Host.MakeFile("TabulorixOptions.txt", "{ Future \"x\" }");
        m_Host.Import(m_Tab);
        m_Score = m_Host.Import(m_Tab);
        m_Disk = ReadDisk();
        m_Host.Import(m_Host.MakeFile("empty.tab", "-----------"));
        m_EmptyScore = TakeLeftScore();
        RemoveFile(m_Host.GetPath("empty.tab"));
        m_Holdings = Holdings();
    }

    void Run() {
        m_Host.m_Log.clear();
        m_Host.m_Score.clear();
        try {
            m_Host.Open(m_Tab);
        } catch (const std::bad_alloc&) {  // before the import has begun
        }
    }

    bool IsComplete() const { return !m_Score.empty() && m_Host.m_Score == m_Score; }

    // What is not as it should be after a run, or null.
    const char* FindProblem() {
        const bool isLeftRight = MayBeLeft(TakeLeftScore());
        const bool isDiskRight = ReadDisk() == m_Disk;
        const bool isGiven = m_Host.m_Log.find("load\n") != std::string::npos;
        const bool hasEnded = m_Host.m_Log.ends_with("update 100\ndestroy\n");
        return isGiven && !IsComplete()                 ? "the host was given something else"
               : !m_Host.m_Log.empty() && !hasEnded     ? "the progress display is open"
               : GetPluginState().m_IsImportBusy != 0   ? "the plug-in is busy"
               : GetPluginState().m_RunningImports != 0 ? "an import is under way"
               : !isDiskRight || !isLeftRight           ? "files are left, lost or changed"
               : Holdings() != m_Holdings               ? "memory or descriptors are held"
                                                        : nullptr;
    }

private:
    // A tab that cannot be read a second time is an empty one, whose score stays.
    bool MayBeLeft(const std::string& score) const {
        return score.empty() || (score == m_EmptyScore && m_Host.m_Score.empty());
    }

    std::string TakeLeftScore() const {
        for (const auto& [path, content] : ReadDisk()) {
            if (path.ends_with(".vif")) {
                RemoveFile(STR(path));
                return content;
            }
        }
        return {};
    }

    std::string m_Score;
    std::string m_EmptyScore;
    Disk m_Disk;
    Holdings m_Holdings;
};

// The command line's conversions, over an earlier score.
class ConversionScene : public Scene {
public:
    ConversionScene(const std::string& tab, RhythmLevel level) : Scene(tab) {
        m_Files = {{m_Tab}, {m_Host.MakeFile("next.tab", tab)}};
        m_Arguments.m_RhythmLevel = level;
        m_Arguments.m_Format = level == RhythmLevel::Always && CanComposeMusicXml()
                                   ? ScoreFormat::MusicXml
                                   : ScoreFormat::Vif;
        m_Arguments.m_IsQuiet = true;
        m_Before = m_After = PrepareDisk();
        Run();
        m_After = ReadDisk();
        PrepareDisk();
        Run();
        m_Holdings = Holdings();
        PrepareDisk();
    }

    void Run() {
        m_IsConverted = false;
        try {
            ConsoleOutput output({true, false});
            m_IsConverted = FileConverter(m_Arguments, m_Files, output).Convert(m_Files[0]) ==
                            Outcome::Converted;
        } catch (const std::bad_alloc&) {  // the program ends and says so
        }
    }

    bool IsComplete() const { return m_IsConverted; }

    const char* FindProblem() {
        const bool isRight = ReadDisk() == (m_IsConverted ? m_After : m_Before);
        PrepareDisk();
        return !isRight                   ? "files are left, lost, changed or incomplete"
               : Holdings() != m_Holdings ? "memory or descriptors are held"
                                          : nullptr;
    }

private:
    Disk PrepareDisk() {
        m_Host.MakeFile("song.vif", "earlier");
        m_Host.MakeFile("song.musicxml", "earlier");
        return ReadDisk();
    }

    Arguments m_Arguments;
    std::vector<InputFile> m_Files;
    bool m_IsConverted = false;
    Disk m_Before;
    Disk m_After;
    Holdings m_Holdings;
};

// The command line's run over a folder, over earlier scores. One file that fails does not keep the
// others from being converted.
class FolderScene : public Scene {
public:
    FolderScene(const std::string& tab, RhythmLevel level) : Scene(tab) {
        const STR folder = m_Host.GetPath("tabs");
        MakeFolder(folder);
        MakeFolder(JoinPath(folder, "more"));
        m_Host.MakeFile("tabs/song.tab", tab);
        m_Host.MakeFile("tabs/more/song.tab", tab);
        m_Arguments.m_Files = {folder};
        m_Arguments.m_RhythmLevel = level;
        m_Arguments.m_IsQuiet = true;
        for (int i = 0; i < 2; ++i) {  // the second is the first to find all that is kept
            PrepareDisk();
            Run();
            m_Score = ReadWholeFile(m_Scores[0]).m_Bytes;
            m_Holdings = Holdings();
        }
        PrepareDisk();
    }

    void Run() {
        m_IsConverted = false;
        try {
            ConsoleOutput output({true, false});
            m_IsConverted = ConvertFolders(m_Arguments, output);
        } catch (const std::bad_alloc&) {  // the program ends and says so
        }
    }

    bool IsComplete() const { return m_IsConverted; }

    const char* FindProblem() {
        bool isRight = true;
        for (const STR& path : m_Scores) {
            const STR score = ReadWholeFile(path).m_Bytes;
            isRight = isRight && (score == m_Score || (score == "earlier" && !m_IsConverted));
        }
        PrepareDisk();
        const bool isDiskRight = ReadDisk() == m_Before;
        return !isRight                   ? "scores are lost, incomplete or missing"
               : !isDiskRight             ? "files are left or changed"
               : Holdings() != m_Holdings ? "memory or descriptors are held"
                                          : nullptr;
    }

private:
    void PrepareDisk() {
        m_Scores = {m_Host.MakeFile("tabs/song.vif", "earlier"),
                    m_Host.MakeFile("tabs/more/song.vif", "earlier")};
        m_Before = m_Before.empty() ? ReadDisk() : m_Before;
    }

    Arguments m_Arguments;
    std::vector<STR> m_Scores;
    STR m_Score;
    bool m_IsConverted = false;
    Disk m_Before;
    Holdings m_Holdings;
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

}  // namespace

TEST_CASE("Without memory an import ends as one that failed") {
    CheckEachCall<ImportScene>(Fault::Kind::Memory);
}

TEST_CASE("When the system fails an import, it ends as one that failed") {
    CheckEachCall<ImportScene>(Fault::Kind::File);
    CheckEachCall<ImportScene>(Fault::Kind::Partial);
}

TEST_CASE("Without memory the command line keeps the earlier score") {
    CheckEachCall<ConversionScene>(Fault::Kind::Memory);
}

TEST_CASE("When the system fails the command line, it keeps the earlier score") {
    CheckEachCall<ConversionScene>(Fault::Kind::File);
    CheckEachCall<ConversionScene>(Fault::Kind::Partial);
}

TEST_CASE("Whatever fails in a folder, each score is the earlier or the new one") {
    if (!HasSmallTemplate()) {
        return;
    }
    for (const Fault::Kind kind : {Fault::Kind::Memory, Fault::Kind::File, Fault::Kind::Partial}) {
        FolderScene scene(kTabs[0], RhythmLevel::Always);
        CHECK(CheckCalls(kind, 1, 1, scene) > 0);
    }
}

TEST_CASE("Ten thousand imports leave no more behind than a hundred") {
    if (!HasSmallTemplate()) {
        return;
    }
    ImportScene scene(kTabs[0], RhythmLevel::Always);
    Holdings first;
    std::size_t firstBytes = 0;
    for (int i = 0; i < 10'000; ++i) {
        // Of four imports one is cancelled, one has an exception thrown into it.
        scene.m_Host.m_Script = [&](std::string_view line) {
            if (i % 4 == 2 && line == "update 80") {
                throw std::runtime_error("host");
            }
            return i % 4 == 1 && line == "update 20" ? 0 : 1;
        };
        scene.Run();
        CHECK(scene.IsComplete() == (i % 4 == 0 || i % 4 == 3));
        if (i == 100) {
            first = Holdings();
            firstBytes = GetLiveByteCount();
        }
    }
    CHECK((Holdings() == first));
    // A block that is cut a little larger than the last time is no growth.
    CHECK(GetLiveByteCount() < firstBytes + 10'000);
}

// What is planted at a name must be there afterwards as it was, and where it leads too.
TEST_CASE("Nothing is written into what somebody plants at the name of a temporary file") {
    enum class Planted { LinkToFile, LinkToNothing, File, Folder };
    const auto plant = [](const std::string& path, const STR& victim, Planted what) {
        fs::remove(path);
        if (what == Planted::File) {
            WriteWholeFile(STR(path), "planted");
        } else if (what == Planted::Folder) {
            fs::create_directory(path);
        } else {
            const std::string end = what == Planted::LinkToFile ? "" : ".nothing";
            fs::create_symlink(victim.GetText() + end, path);
        }
    };
    for (const Planted what :
         {Planted::LinkToFile, Planted::LinkToNothing, Planted::File, Planted::Folder}) {
        // Beside the placeholder, before the score's name is looked at and after.
        for (const bool isEarly : {true, false}) {
            ImportScene scene(kTabs[0], RhythmLevel::Always);
            const STR victim = scene.m_Host.MakeFile("victim", "kept");
            std::string score;
            Disk before;
            const auto plantScore = [&] {
                if (before.empty()) {
                    plant(score, victim, what);
                    before = scene.ReadDisk();
                }
            };
            SetUniqueFileHook([&](const std::string& path) {
                if (path.find(".tabulorix-") == std::string::npos && score.empty()) {
                    score = path.substr(0, path.rfind('.')) + ".vif";
                    if (isEarly) {
                        plantScore();
                    }
                }
            });
            scene.m_Host.m_Script = [&](std::string_view line) {
                if (line == "update 10") {
                    plantScore();
                }
                return 1;
            };
            scene.Run();
            SetUniqueFileHook({});
            before.erase(score.substr(0, score.rfind('.')) + ".tmp");
            CHECK((scene.ReadDisk() == before));
            // A name that is seen to be taken is passed over. Links to nothing are not seen.
            CHECK(scene.IsComplete() == (isEarly && what != Planted::LinkToNothing));
            scene.m_Host.m_Script = nullptr;
            scene.Run();
            CHECK(scene.IsComplete());
        }
        if (what == Planted::Folder) {
            continue;
        }
        // In the place of the file that the command line has just made.
        ConversionScene scene(kTabs[0], RhythmLevel::Always);
        const STR victim = scene.m_Host.MakeFile("victim", "kept");
        bool isIntact = false;
        SetUniqueFileHook([&](const std::string& path) {
            plant(path, victim, what);
            fs::create_hard_link(path, path + ".also");
        });
        scene.Run();
        SetUniqueFileHook({});
        isIntact = ReadWholeFile(victim).m_Bytes == "kept" &&
                   GetPathKind(victim + ".nothing") == PathKind::Nothing;
        CHECK(isIntact);
        for (const auto& [path, content] : scene.ReadDisk()) {
            CHECK((!path.ends_with(".also") || what != Planted::File || content == "planted"));
        }
    }
}

}  // namespace tabulorix
