// Whatever fails, and wherever: an import ends as it should and leaves everything as it was, and
// the next one is as ever.

#include "FaultScene.h"
#include "HostCallbacks.h"

namespace tabulorix {

namespace {

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
        RemoveFile("empty.tab");
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

}  // namespace

TEST_CASE("Without memory an import ends as one that failed") {
    CheckEachCall<ImportScene>(Fault::Kind::Memory);
}

TEST_CASE("When the system fails an import, it ends as one that failed") {
    CheckEachCall<ImportScene>(Fault::Kind::File);
    CheckEachCall<ImportScene>(Fault::Kind::Partial);
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
TEST_CASE("No import writes into what somebody plants at the name of its temporary file") {
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
                    Plant(score, victim, what);
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
    }
}

}  // namespace tabulorix
