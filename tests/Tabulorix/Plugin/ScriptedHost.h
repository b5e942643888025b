// A host inside the test program: it records what the plug-in asks of it, and does what a test
// scripts in the middle of a call. Only one at a time.
//
// It works in a folder of its own, which is the current one meanwhile: files are named without the
// folders above, whose names may hold dots, which would hide the files' extensions.

#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "PluginState.h"
#include "RhythmDialog.h"
#include "VeltrasoApi.h"

namespace tabulorix {

// Exports the first `functionCount` of the host's six functions.
std::unique_ptr<HostModule> MakeScriptedModule(int functionCount);

class ScriptedHost : public RhythmDialog {
public:
    ScriptedHost();
    ~ScriptedHost() override;

    int Init(int functionCount = 6);
    int Open(const STR& path);
    // Makes a file in the host's folder and gives back its name.
    STR MakeFile(const char* name, std::string_view bytes);
    // The score of a fresh import.
    std::string Import(const STR& path);

    Answer Show(void* parentWindow, ImportOptions& options) override;

    // Each call of the plug-in, one line each.
    std::string m_Log;
    std::string m_Score;  // as the host loaded it
    STR m_ScorePath;
    // Called for each line of the log; its result is that of the host's function, and it may throw.
    std::function<int(std::string_view line)> m_Script;
    Answer m_Answer{true, false};
    RhythmLevel m_Choice = RhythmLevel::WhenIndicated;
    std::vector<std::string> m_Asked;  // names of the functions that were looked for
    PluginHostInfo m_Info{};
    PluginInitResult m_Result{};

private:
    std::filesystem::path m_OldFolder;
    std::string m_Folder;
};

}  // namespace tabulorix
