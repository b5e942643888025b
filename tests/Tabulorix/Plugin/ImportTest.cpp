#include <doctest/doctest.h>

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <stdexcept>

#include "HostCallbacks.h"
#include "ImportDriver.h"
#include "NodeAllocator.h"
#include "ScriptedHost.h"
#include "TestSupport.h"

namespace tabulorix {

namespace {

const std::string kTab = MakeStave({"|-0---2---3---|-5---7---8---|"}) + "\n----------------\n";
const std::string kOtherTab = MakeStave({"|-7---5---3---|"});

const std::string kClosing = "update 100\ndestroy\n";

bool IsQuiet() {
    return GetPluginState().m_IsImportBusy == 0 && GetPluginState().m_RunningImports == 0;
}

}  // namespace

TEST_CASE("An import asks the host in a fixed order, and the score is gone afterwards") {
    ScriptedHost host;
    REQUIRE(host.Init() == 1);
    CHECK(host.Open(host.MakeFile("song.TAB", kTab)) == 1);
    CHECK(
        host.m_Log ==
        "dialog 1\ncreate Tabulorix 0 100 30\nupdate 0\nupdate 0\n"
        "result Tabulorix song.TAB 4 -2 -2 Lines 8 to 8 inclusive don't seem to be part of a real "
        "stave so they have been ignored\n"
        "update 10\nupdate 20\nupdate 20\nupdate 50\nupdate 80\nload\n" +
            kClosing);
    CHECK(host.m_Score.starts_with("VifFileVersion \"10100004\"\r\n"));
    CHECK(host.m_ScorePath.View().ends_with(".vif"));
    CHECK_FALSE(FileName(host.m_ScorePath).Exists());
    CHECK(NodeAllocator::GetBlockCount() == 0);
}

TEST_CASE("A file is taken for its first extension and its bytes") {
    ScriptedHost host;
    host.Init();
    host.m_Answer.m_IsConfirmed = false;
    MakeFolder("my.tabs");
    const Cases names = {{"my.tabs/a.tab", "0"}, {"a.tab", "1"}, {"a.BTab", "1"},   {"a.crd", "1"},
                         {"plain", "1"},         {"a.txt", "0"}, {"a.v2.tab", "0"}, {"a.", "0"}};
    CheckEach(names, [&](const std::string& name) {
        return Cat(host.Open(host.MakeFile(name.c_str(), "-----------")));
    });
    CHECK(host.Open(host.MakeFile("prose.tab", "----------\n-")) == 0);
    CHECK(host.Open("missing.tab") == 0);
    CHECK(OpenTabFile(nullptr, host) == 0);
}

TEST_CASE("Without all six functions there is none, but files are still recognised") {
    for (int count = 0; count < 6; ++count) {
        CAPTURE(count);
        ScriptedHost host;
        CHECK(host.Init(count) == 0);
        CHECK(static_cast<int>(host.m_Asked.size()) == count + 1);
        CHECK(host.m_Result.m_FileTypeCount == 3);
        CHECK(host.m_Result.m_Constant8 == 8);
        CHECK(std::string(host.m_Result.m_FileTypes[1].m_Extension) == "btab");
        CHECK(host.Open(host.MakeFile("song.tab", kTab)) == 1);
        CHECK(host.m_Log == "dialog 1\n");
        CHECK(GetHostCallbacks().ChooseTransposingInstruments(3, 4) == 0);
        CHECK(host.Init() == 1);
        CHECK(GetHostCallbacks().ChooseTransposingInstruments(3, 4) == 35);
        CHECK(TerminatePlugin() == 1);
        CHECK(TerminatePlugin() == 1);
        CHECK(GetHostCallbacks().ReportResult("", "", 0, 0, 0, "") == 0);
    }
    ScriptedHost host;
    CHECK(InitialisePlugin(nullptr, &host.m_Result, nullptr) == 0);
    CHECK(InitialisePlugin(&host.m_Info, nullptr, nullptr) == 0);
}

TEST_CASE("Long and missing settings folders do no harm") {
    ScriptedHost host;
    host.Init();
    const std::string folder(600, 'f');
    for (const char* given : {folder.c_str(), static_cast<const char*>(nullptr)}) {
        host.m_Info.m_SettingsFolder = given;
        InitialisePlugin(&host.m_Info, &host.m_Result, MakeScriptedModule(0));
        CHECK(STR(GetPluginState().m_SettingsFolder).GetLength() == (given == nullptr ? 0 : 511));
    }
}

TEST_CASE("The answer is kept in the option file, with all else that stands in it") {
    ScriptedHost host;
    host.Init();
    const STR tab = host.MakeFile("song.tab", kTab);
    const auto options = [&] {
        const auto root = TreeNode::ReadFromFile("TabulorixOptions.txt");
        return Join(root->GetChildren(), [](const TreeNode* option) {
            return Cat(option->GetLabel(), '=', option->GetText(), '/', option->GetChildCount());
        });
    };
    host.m_Answer = {false, true};
    host.m_Choice = RhythmLevel::Always;
    CHECK(host.Open(tab) == 1);
    CHECK(host.m_Log == "dialog 1\n" + kClosing);
    CHECK(options() == "RhythmLevel=1/0");

    for (const auto& [depth, isSaved] : {std::pair(2500, true), std::pair(3000, false)}) {
        const std::string deep = Repeat("A{", depth) + Repeat("}", depth);
        const STR deepFile = host.MakeFile("TabulorixOptions.txt", deep);
        host.Open(tab);
        CHECK((ReadWholeFile(deepFile).m_Bytes.View() != deep) == isSaved);
    }

    host.MakeFile("TabulorixOptions.txt", "{ Future \"x\" { A } RhythmLevel \"5\" }");
    host.m_Answer = {true, true};
    host.m_Choice = RhythmLevel::Never;
    CHECK(host.Import(tab).size() > 0);
    CHECK(host.m_Log.starts_with("dialog 5\n"));
    CHECK(options() == "Future=x/1 RhythmLevel=0/0");

    CHECK(host.Import(tab).size() > 0);
    CHECK(host.m_Log.starts_with("create"));

    host.MakeFile("TabulorixOptions.txt", "#");
    CHECK(host.Import(tab).empty());
    CHECK(host.m_Log == kClosing);
    CHECK(IsQuiet());
}

TEST_CASE("Cancelled or failed anywhere, an import closes, and the next one is as ever") {
    ScriptedHost host;
    host.Init();
    const STR tab = host.MakeFile("song.tab", kTab);
    const std::string score = host.Import(tab);
    const auto callCount = std::count(host.m_Log.begin(), host.m_Log.end(), '\n');
    REQUIRE(callCount > 10);
    for (const bool throws : {false, true}) {
        for (std::ptrdiff_t call = 1; call <= callCount; ++call) {
            CAPTURE(throws);
            CAPTURE(call);
            std::ptrdiff_t count = 0;
            std::string struck;
            host.m_Log.clear();
            host.m_Score.clear();
            host.m_Script = [&](std::string_view line) {
                struck = ++count == call ? line : struck;
                if (count == call && throws) {
                    throw std::runtime_error("host");
                }
                return count == call ? 0 : 1;
            };
            CHECK(host.Open(tab) == 1);
            CHECK(host.m_Log.ends_with(kClosing));
            // Nobody looks at what the host says before the conversion, to a message and at the
            // end.
            const bool isIgnored = call <= 3 || struck.starts_with("result");
            const bool isLoaded = call > callCount - 3 || (isIgnored && !throws);
            CHECK((host.m_Log.find("load\n") != std::string::npos) == isLoaded);
            CHECK((host.m_Score == (isLoaded ? score : "")));
            CHECK_FALSE(FileName(host.m_ScorePath).Exists());
            CHECK(IsQuiet());
            CHECK(NodeAllocator::GetNodeCount() == 0);
            CHECK((host.Import(tab) == score));
        }
    }
}

TEST_CASE("What the host calls from inside an import does not disturb it") {
    ScriptedHost host;
    host.Init();
    const STR tab = host.MakeFile("song.tab", kTab);
    const STR other = host.MakeFile("other.tab", kOtherTab);
    const std::string score = host.Import(tab);
    const std::string log = host.m_Log;
    const std::string otherScore = host.Import(other);

    host.m_Log.clear();
    host.m_Script = [&](std::string_view) {
        CHECK(host.Init() == 0);
        CHECK(TerminatePlugin() == 1);
        if (GetPluginState().m_IsImportBusy != 0) {
            CHECK(host.Open(other) == 1);
        }
        return 1;
    };
    host.Open(tab);
    CHECK(host.m_Log == log);
    CHECK((host.m_Score == score));
    CHECK(GetHostCallbacks().ChooseTransposingInstruments(3, 4) == 0);
    CHECK(host.Init() == 1);

    // Before its conversion has begun, another import runs through.
    for (const std::string place : {"dialog", "create", "update 0"}) {
        CAPTURE(place);
        bool isNested = false;
        std::string nestedScore;
        host.m_Log.clear();
        host.m_Script = [&](std::string_view line) {
            if (line.starts_with(place) && !isNested) {
                isNested = true;
                CHECK(host.Open(other) == 1);
                nestedScore = host.m_Score;
                CHECK(TerminatePlugin() == 1);
            }
            return 1;
        };
        host.Open(tab);
        CHECK((nestedScore == otherScore));
        CHECK((host.m_Score == score));
        CHECK(host.m_Log.ends_with(log.substr(log.find("result"))));
        // The end that was asked for meanwhile has come.
        CHECK(GetHostCallbacks().ChooseTransposingInstruments(3, 4) == 0);
        CHECK(IsQuiet());
        CHECK(host.Init() == 1);
    }
}

TEST_CASE("The locale of the host's process changes no byte of a score") {
    ScriptedHost host;
    host.Init();
    host.m_Choice = RhythmLevel::Always;
    const STR tab = host.MakeFile("SONG.TAB", "RIFF I 1/2 \xDD\xFD\xDF\n\n" + kTab);
    host.MakeFile("TabulorixOptions.txt", "{ RhythmLevel \"1\" Title \"I\" }");
    const std::string score = host.Import(tab);
    for (const char* name : {"tr_TR", "de_DE"}) {
        if (std::setlocale(LC_ALL, name) == nullptr) {
            REQUIRE(std::getenv("LOCPATH") == nullptr);
            MESSAGE("SKIPPED: this machine has no locale ", std::string(name));
            continue;
        }
        const std::string other = host.Import(tab);
        std::setlocale(LC_ALL, "C");
        CHECK(!score.empty());
        CHECK((other == score));
    }
}

}  // namespace tabulorix
