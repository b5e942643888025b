#include "ScriptedHost.h"

#include "FaultPause.h"
#include "HostCallbacks.h"
#include "HostModule.h"
#include "ImportDriver.h"
#include "TestSupport.h"

namespace tabulorix {

namespace {

ScriptedHost* g_Host = nullptr;

// Logs what is called, and gives back what the test's script says to it.
template <class... Parts>
int Record(const Parts&... parts) {
    const FaultPause pause;
    const std::string line = Cat(parts...);
    g_Host->m_Log += line + '\n';
    return g_Host->m_Script ? g_Host->m_Script(line) : 1;
}

const char* Check(std::uintptr_t cookie) {
    return cookie == 77 ? "" : "wrong cookie ";
}

int LoadTempFile(const char* scorePath) {
    const FaultPause pause;
    g_Host->m_ScorePath = scorePath;
    g_Host->m_Score = ReadWholeFile(scorePath).m_Bytes.View();
    return Record("load");
}

int ReportResult(const char* title, const char* fileName, int kind, int location1, int location2,
                 const char* text) {
    return Record("result ", title, ' ', fileName, ' ', kind, ' ', location1, ' ', location2, ' ',
                  text);
}

int UpdateProgress(std::uintptr_t cookie, int percent, const char* caption) {
    return Record(Check(cookie), "update ", percent, caption);
}

int DestroyProgress(std::uintptr_t cookie) {
    return Record(Check(cookie), "destroy");
}

int CreateProgress(std::uintptr_t cookie, const char* title, int minimum, int maximum, int last) {
    return Record(Check(cookie), "create ", title, ' ', minimum, ' ', maximum, ' ', last);
}

int ChooseInstruments(std::uintptr_t value1, std::uintptr_t value2) {
    return Record("choose") + static_cast<int>(10 * value1 + value2);
}

template <class Function>
HostFunction Erase(Function* function) {
    return reinterpret_cast<HostFunction>(function);
}

class ScriptedModule : public HostModule {
public:
    explicit ScriptedModule(int functionCount)
        : m_FunctionCount(static_cast<std::size_t>(functionCount)) {}

    HostFunction FindFunction(const char* name) const noexcept override {
        const std::pair<std::string_view, HostFunction> exports[] = {
            {"VEL_LOADTEMPFILE", Erase(LoadTempFile)},
            {"VEL_RESULTSDIALOGMESSAGE", Erase(ReportResult)},
            {"VEL_UPDATEPROGRESSDIALOG", Erase(UpdateProgress)},
            {"VEL_DESTROYPROGRESSDIALOG", Erase(DestroyProgress)},
            {"VEL_CREATEPROGRESSDIALOG_2", Erase(CreateProgress)},
            {"VEL_CHOOSETRANSPOSINGINSTRUMENTS", Erase(ChooseInstruments)},
        };
        g_Host->m_Asked.emplace_back(name);
        for (std::size_t i = 0; i < m_FunctionCount; ++i) {
            if (exports[i].first == name) {
                return exports[i].second;
            }
        }
        return nullptr;
    }

private:
    std::size_t m_FunctionCount;
};

}  // namespace

std::unique_ptr<HostModule> MakeScriptedModule(int functionCount) {
    return std::make_unique<ScriptedModule>(functionCount);
}

ScriptedHost::ScriptedHost() : m_OldFolder(std::filesystem::current_path()) {
    const FileName unique = FileName::CreateTemporary();
    m_Folder = std::filesystem::absolute(unique.GetPath().View()).string();
    unique.Delete();
    std::filesystem::create_directory(m_Folder);
    std::filesystem::current_path(m_Folder);
    GetPluginState() = {};
    g_Host = this;
}

ScriptedHost::~ScriptedHost() {
    TerminatePlugin();
    g_Host = nullptr;
    std::error_code ignored;
    std::filesystem::current_path(m_OldFolder, ignored);
    std::filesystem::remove_all(m_Folder, ignored);
}

int ScriptedHost::Init(int functionCount) {
    m_Info.m_SettingsFolder = m_Folder.c_str();
    m_Info.m_ProgressCookie = 77;
    m_Info.m_ParentWindow = this;
    return InitialisePlugin(&m_Info, &m_Result, MakeScriptedModule(functionCount));
}

int ScriptedHost::Open(const STR& path) {
    return OpenTabFile(path.GetText(), *this);
}

STR ScriptedHost::MakeFile(const char* name, std::string_view bytes) {
    WriteWholeFile(name, bytes);
    return name;
}

std::string ScriptedHost::Import(const STR& path) {
    m_Log.clear();
    m_Score.clear();
    m_Script = nullptr;
    Open(path);
    return m_Score;
}

RhythmDialog::Answer ScriptedHost::Show(void* parentWindow, ImportOptions& options) {
    options.Save();
    const FaultPause pause;
    Record("dialog ", options.GetStoredLevel(), parentWindow == this ? "" : " wrong parent");
    if (m_Answer.m_IsConfirmed) {
        options.SetRhythmLevel(m_Choice);
    }
    return m_Answer;
}

}  // namespace tabulorix
