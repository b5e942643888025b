// Whatever fails, and wherever: the command line gives whole scores or leaves everything as it was.

#include "FaultScene.h"
#include "FileConversion.h"
#include "FolderConversion.h"
#include "MusicXml.h"

namespace tabulorix {

namespace {

// Whether the work came to its end. Lack of memory ends the program, which says so.
template <class Work>
bool RunCommandLine(Work work) {
    try {
        ConsoleOutput output({true, false});
        return work(output);
    } catch (const std::bad_alloc&) {
        return false;
    }
}

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
        m_IsConverted = RunCommandLine([this](ConsoleOutput& output) {
            return FileConverter(m_Arguments, m_Files, output).Convert(m_Files[0]) ==
                   Outcome::Converted;
        });
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
        MakeFolder("tabs");
        MakeFolder("tabs/more");
        m_Host.MakeFile("tabs/song.tab", tab);
        m_Host.MakeFile("tabs/more/song.tab", tab);
        m_Arguments.m_Files = {"tabs"};
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
        m_IsConverted = RunCommandLine(
            [this](ConsoleOutput& output) { return ConvertFolders(m_Arguments, output); });
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

}  // namespace

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

// In the place of the file that the command line has just made.
TEST_CASE("No conversion writes into what somebody plants at the name of its temporary file") {
    for (const Planted what : {Planted::LinkToFile, Planted::LinkToNothing, Planted::File}) {
        ConversionScene scene(kTabs[0], RhythmLevel::Always);
        const STR victim = scene.m_Host.MakeFile("victim", "kept");
        bool isIntact = false;
        SetUniqueFileHook([&](const std::string& path) {
            Plant(path, victim, what);
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
