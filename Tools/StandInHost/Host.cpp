#include "Host.h"

#include <cstdlib>
#include <cstring>
#include <stdexcept>

#include "ControlWord.h"
#include "ExportNames.h"
#include "Figures.h"
#include "Log.h"

namespace standin {

namespace {

// Values that nobody else would pass.
constexpr std::uintptr_t kCookie = 0x5EED;
constexpr int kUntouchedByte = 0xA5;
constexpr int kMessageKind = 2;
constexpr std::uintptr_t kInstrument1 = 11;
constexpr std::uintptr_t kInstrument2 = 22;

// What the run-time of another widespread compiler raises for its exceptions.
constexpr DWORD kForeignException = 0xE06D7363;

template <typename Function>
Function* Find(HMODULE module, const char* name) {
    // Through a type that every function pointer may take.
    auto* found = reinterpret_cast<void (*)()>(GetProcAddress(module, name));
    if (found == nullptr) {
        LogAlways(std::string("COMPLAINT: the plug-in exports no ") + name);
    }
    return reinterpret_cast<Function*>(found);
}

std::string FileNameOf(const char* path) {
    const std::string text = path;
    const std::size_t separator = text.find_last_of("\\/:");
    return separator == std::string::npos ? text : text.substr(separator + 1);
}

void RaiseForeignException() {
    RaiseException(kForeignException, EXCEPTION_NONCONTINUABLE, 0, nullptr);
}

void CrashNow() {
    volatile int* volatile nowhere = nullptr;
    *nowhere = 0;
}

bool HasOnlyNamedFields(const tabulorix::PluginInitResult& result) {
    tabulorix::PluginInitResult untouched;
    std::memset(&untouched, kUntouchedByte, sizeof untouched);
    return std::memcmp(result.m_Unused0, untouched.m_Unused0, sizeof result.m_Unused0) == 0;
}

void LogInitResult(const tabulorix::PluginInitResult& result) {
    Log("file types " + std::to_string(result.m_FileTypeCount) + ", constant " +
        std::to_string(result.m_Constant8) + ", other fields " +
        (HasOnlyNamedFields(result) ? "untouched" : "WRITTEN"));
    for (int i = 0; i < result.m_FileTypeCount; ++i) {
        const tabulorix::ImportFileType& type = result.m_FileTypes[i];
        Log("file type " + Quoted(type.m_Description) + " " + Quoted(type.m_Extension) + " " +
            Quoted(type.m_TypeCode));
    }
}

}  // namespace

Host* Host::s_Host = nullptr;

Host::Host(const Script& script)
    : m_Script(script), m_Dialogs(script.m_Answers, [this] { Interrupt(Place::Dialog); }) {
    s_Host = this;
}

Host::~Host() {
    s_Host = nullptr;
}

Host& Host::Get() {
    return *s_Host;
}

bool Host::Run() {
    if (!m_Script.m_TempFolder.empty()) {
        SetEnvironmentVariableA("TMP", m_Script.m_TempFolder.c_str());
    }
    if (!m_Script.m_Preload.empty() && LoadLibraryA(m_Script.m_Preload.c_str()) == nullptr) {
        LogAlways("COMPLAINT: cannot load " + m_Script.m_Preload);
        return false;
    }
    for (int round = 1; round <= m_Script.m_Rounds; ++round) {
        if (!RunRound()) {
            return false;
        }
        if (m_Script.m_FiguresEvery != 0 && round % m_Script.m_FiguresEvery == 0) {
            LogAlways("round " + std::to_string(round) + " " + GetFigures());
            WaitForLine();
        }
    }
    return true;
}

bool Host::RunRound() {
    if (!Load()) {
        return false;
    }
    m_CallCounts = {};
    TakeSteps();
    HideExport(0);
    FreeLibrary(m_Module);
    if (GetModuleHandleA(m_Script.m_Plugin.c_str()) != nullptr) {
        LogAlways("COMPLAINT: the plug-in stays loaded");
    }
    Log("unloaded");
    return true;
}

bool Host::Load() {
    SetControlWord(m_Script.m_ControlWord);
    m_Module = LoadLibraryA(m_Script.m_Plugin.c_str());
    if (m_Module == nullptr) {
        LogAlways("COMPLAINT: cannot load " + m_Script.m_Plugin + ": error " +
                  std::to_string(GetLastError()));
        return false;
    }
    m_Plugin.m_Init = Find<tabulorix::VelInitFunction>(m_Module, "VEL_INIT");
    m_Plugin.m_OpenFile = Find<tabulorix::VelOpenFileFunction>(m_Module, "VEL_OPENFILE");
    m_Plugin.m_Term = Find<tabulorix::VelTermFunction>(m_Module, "VEL_TERM");
    m_Plugin.m_ResultsMessage =
        Find<tabulorix::VelResultsDialogMessageFunction>(m_Module, "VEL_RESULTSDIALOGMESSAGE");
    m_Plugin.m_Instruments = Find<tabulorix::VelChooseTransposingInstrumentsFunction>(
        m_Module, "VEL_CHOOSETRANSPOSINGINSTRUMENTS");
    Log("loaded " + Quoted(FileNameOf(m_Script.m_Plugin.c_str()).c_str()));
    return m_Plugin.m_Init != nullptr && m_Plugin.m_OpenFile != nullptr &&
           m_Plugin.m_Term != nullptr && m_Plugin.m_ResultsMessage != nullptr &&
           m_Plugin.m_Instruments != nullptr;
}

void Host::TakeSteps() {
    if (!m_Script.m_IsPlain) {
        Do({Action::Kind::Init, {}});
    }
    for (const Action& step : m_Script.m_Steps) {
        Do(step);
    }
    if (!m_Script.m_IsPlain) {
        Do({Action::Kind::Term, {}});
    }
}

template <typename Call>
void Host::CallPlugin(const std::string& text, Call call) {
    const LogIndent place(m_CallDepth > 0 ? 1 : 0);
    Log(text);
    const std::string name = text.substr(0, text.find('('));
    SetControlWord(m_Script.m_ControlWord);
    int result = 0;
    {
        const LogIndent indent;
        ++m_CallDepth;
        result = call();
        --m_CallDepth;
    }
    CheckControlWord(m_Script.m_ControlWord, "after", name);
    Log(name + " = " + std::to_string(result));
}

void Host::Init() {
    tabulorix::PluginHostInfo info{};
    info.m_ParentWindow = m_Dialogs.GetWindow();
    info.m_Module = m_Module;
    info.m_ProgressCookie = kCookie;
    info.m_SettingsFolder = m_Script.m_SettingsFolder.c_str();
    tabulorix::PluginInitResult result;
    std::memset(&result, kUntouchedByte, sizeof result);
    CallPlugin("VEL_INIT()", [&] { return m_Plugin.m_Init(&info, &result); });
    LogInitResult(result);
}

void Host::Open(const char* path) {
    if (m_CallDepth == 0) {
        m_OpenFile = path == nullptr ? "" : FileNameOf(path);
    }
    CallPlugin("VEL_OPENFILE(" + Quoted(path) + ")", [&] { return m_Plugin.m_OpenFile(path); });
}

void Host::Do(const Action& action) {
    switch (action.m_Kind) {
        case Action::Kind::Init:
            Init();
            break;
        case Action::Kind::InitWithNull:
            CallPlugin("VEL_INIT(null, null)", [&] { return m_Plugin.m_Init(nullptr, nullptr); });
            break;
        case Action::Kind::Open:
            Open(action.m_Text.c_str());
            break;
        case Action::Kind::OpenNull:
            Open(nullptr);
            break;
        case Action::Kind::Term:
            CallPlugin("VEL_TERM()", [&] { return m_Plugin.m_Term(); });
            break;
        case Action::Kind::ResultsMessage:
            CallPlugin("VEL_RESULTSDIALOGMESSAGE(title, file, 2, 3, 4, text)", [&] {
                return m_Plugin.m_ResultsMessage("title", "file", kMessageKind, 3, 4, "text");
            });
            break;
        case Action::Kind::Instruments:
            CallPlugin("VEL_CHOOSETRANSPOSINGINSTRUMENTS(11, 22)",
                       [&] { return m_Plugin.m_Instruments(kInstrument1, kInstrument2); });
            break;
        case Action::Kind::Without:
            HideExport(std::atoi(action.m_Text.c_str()));
            Log("without function " + action.m_Text);
            break;
        case Action::Kind::Cancel:
            break;
        case Action::Kind::Throw:
            throw std::runtime_error("the host does not like this");
        case Action::Kind::RaiseForeign:
            RaiseForeignException();
            break;
        case Action::Kind::Crash:
            CrashNow();
            break;
    }
}

bool Host::Interrupt(Place place) {
    const int call = ++m_CallCounts[static_cast<std::size_t>(place)];
    bool isCancelled = false;
    for (const Interruption& interruption : m_Script.m_Interruptions) {
        if (interruption.m_Place == place && interruption.m_Call == call) {
            isCancelled = isCancelled || interruption.m_Action.m_Kind == Action::Kind::Cancel;
            Do(interruption.m_Action);
        }
    }
    return isCancelled;
}

void Host::LogCall(const std::string& call) const {
    CheckControlWord(m_Script.m_ControlWord, "in", call);
    Log(call);
}

void Host::CopyScore(const char* scorePath) const {
    if (m_Script.m_ScoreFolder.empty()) {
        return;
    }
    const std::string copy = m_Script.m_ScoreFolder + "\\" + m_OpenFile + ".vif";
    if (CopyFileA(scorePath, copy.c_str(), FALSE) == 0) {
        LogAlways("COMPLAINT: cannot copy the score to " + copy);
    }
}

}  // namespace standin
