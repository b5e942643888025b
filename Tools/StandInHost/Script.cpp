#include "Script.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <string_view>

namespace standin {

namespace {

constexpr const char* kHelpText =
    "Usage: StandInHost [options] PLUGIN STEP...\n"
    "\n"
    "Loads the plug-in as the notation program does, takes the steps, and prints every call in "
    "both\n"
    "directions. A STEP is a FILE to open, or one of\n"
    "\n"
    "  init, init=null     VEL_INIT (with null records); also done before the first step\n"
    "  open=FILE, open     VEL_OPENFILE (with a null path)\n"
    "  term                VEL_TERM; also done after the last step\n"
    "  message             VEL_RESULTSDIALOGMESSAGE\n"
    "  instruments         VEL_CHOOSETRANSPOSINGINSTRUMENTS\n"
    "  without=K           from now on the host has no function K, 1 to 6 as listed below; 0: all\n"
    "\n"
    "  --settings FOLDER   where the plug-in keeps its options (default: the current folder)\n"
    "  --scores FOLDER     copy each loaded score there, as FILE.vif\n"
    "  --temp FOLDER       the folder for temporary files\n"
    "  --answer A,B...     what to do in a dialog: always, only, never, box, ok, cancel, enter,\n"
    "                      escape, close, alt+LETTER, pause=MILLISECONDS; given again: in the "
    "next\n"
    "                      dialog. Without it the dialog waits for you.\n"
    "  --at PLACE[@N]:DO   at the N-th call of PLACE within an import (default: the first) do one "
    "of\n"
    "                      the steps, or: cancel, throw (a C++ exception), raise (another "
    "compiler's\n"
    "                      exception), crash. PLACE is load, results, update, destroy, create,\n"
    "                      instruments (1 to 6 in this order), or dialog.\n"
    "  --plain             no VEL_INIT before the steps and no VEL_TERM after them\n"
    "  --preload LIBRARY   load this library before the plug-in\n"
    "  --control-word HEX  the floating-point control word of the host (default: 027F)\n"
    "  --repeat N          load, take the steps and unload N times\n"
    "  --figures N         after each N rounds print what the process uses, and wait for a line\n"
    "  --quiet             print figures and complaints only\n"
    "\n"
    "StandInHostShared is the same program with the compiler's run-time in shared libraries. Only "
    "its\n"
    "C++ exceptions can travel through a plug-in; a throw in the other ends the process.\n";

struct NamedPlace {
    std::string_view m_Name;
    Place m_Place;
};

constexpr std::array<NamedPlace, 7> kPlaces{{{"load", Place::LoadTempFile},
                                             {"results", Place::ResultsMessage},
                                             {"update", Place::Update},
                                             {"destroy", Place::Destroy},
                                             {"create", Place::Create},
                                             {"instruments", Place::Instruments},
                                             {"dialog", Place::Dialog}}};

struct NamedAction {
    std::string_view m_Name;
    Action::Kind m_Kind;
    bool m_IsStep;
};

constexpr std::array<NamedAction, 10> kActions{{{"init", Action::Kind::Init, true},
                                                {"init=null", Action::Kind::InitWithNull, true},
                                                {"open", Action::Kind::OpenNull, true},
                                                {"term", Action::Kind::Term, true},
                                                {"message", Action::Kind::ResultsMessage, true},
                                                {"instruments", Action::Kind::Instruments, true},
                                                {"cancel", Action::Kind::Cancel, false},
                                                {"throw", Action::Kind::Throw, false},
                                                {"raise", Action::Kind::RaiseForeign, false},
                                                {"crash", Action::Kind::Crash, false}}};

std::optional<int> ReadNumber(std::string_view text, int base = 10) {
    int number = 0;
    const char* end = text.data() + text.size();
    const std::from_chars_result read = std::from_chars(text.data(), end, number, base);
    if (text.empty() || read.ec != std::errc() || read.ptr != end || number < 0) {
        return std::nullopt;
    }
    return number;
}

std::optional<Action> ReadAction(std::string_view text, bool isStep) {
    for (const NamedAction& named : kActions) {
        if (text == named.m_Name && (named.m_IsStep || !isStep)) {
            return Action{named.m_Kind, {}};
        }
    }
    if (text.starts_with("open=")) {
        return Action{Action::Kind::Open, std::string(text.substr(5))};
    }
    if (text.starts_with("without=")) {
        return Action{Action::Kind::Without, std::string(text.substr(8))};
    }
    return isStep ? std::optional<Action>({Action::Kind::Open, std::string(text)}) : std::nullopt;
}

// PLACE[@N]:DO
std::optional<Interruption> ReadInterruption(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos) {
        return std::nullopt;
    }
    std::string_view name = text.substr(0, colon);
    std::optional<int> call = 1;
    if (const std::size_t at = name.find('@'); at != std::string_view::npos) {
        call = ReadNumber(name.substr(at + 1));
        name = name.substr(0, at);
    }
    const auto place = std::find_if(kPlaces.begin(), kPlaces.end(),
                                    [name](const NamedPlace& p) { return p.m_Name == name; });
    const std::optional<Action> action = ReadAction(text.substr(colon + 1), false);
    if (place == kPlaces.end() || !call || !action) {
        return std::nullopt;
    }
    return Interruption{place->m_Place, *call, *action};
}

Answer SplitAnswer(std::string_view text) {
    Answer answer;
    while (!text.empty()) {
        const std::size_t comma = std::min(text.find(','), text.size());
        answer.emplace_back(text.substr(0, comma));
        text.remove_prefix(std::min(comma + 1, text.size()));
    }
    return answer;
}

class ScriptReader {
public:
    ScriptReader(int count, const char* const* texts)
        : m_Next(texts + std::min(count, 1)), m_End(texts + count) {}

    Script Read();

private:
    void ReadFlag(std::string_view name);
    // An option with a value. False when there is no such option.
    bool ReadSetting(std::string_view name, std::string_view value);
    void ReadWord(std::string_view word);
    void Complain(std::string_view what) {
        if (m_Result.m_Problem.empty()) {
            m_Result.m_Problem = what;
        }
    }
    int NumberOf(std::string_view name, std::string_view value, int base = 10);

    const char* const* m_Next;
    const char* const* m_End;
    Script m_Result;
};

int ScriptReader::NumberOf(std::string_view name, std::string_view value, int base) {
    const std::optional<int> number = ReadNumber(value, base);
    if (!number) {
        Complain(std::string(name) + " takes a number");
    }
    return number.value_or(0);
}

bool ScriptReader::ReadSetting(std::string_view name, std::string_view value) {
    if (name == "--settings") {
        m_Result.m_SettingsFolder = value;
    } else if (name == "--scores") {
        m_Result.m_ScoreFolder = value;
    } else if (name == "--temp") {
        m_Result.m_TempFolder = value;
    } else if (name == "--preload") {
        m_Result.m_Preload = value;
    } else if (name == "--answer") {
        m_Result.m_Answers.push_back(SplitAnswer(value));
    } else if (name == "--control-word") {
        m_Result.m_ControlWord = static_cast<unsigned>(NumberOf(name, value, 16));
    } else if (name == "--repeat") {
        m_Result.m_Rounds = NumberOf(name, value);
    } else if (name == "--figures") {
        m_Result.m_FiguresEvery = NumberOf(name, value);
    } else if (name == "--at") {
        const std::optional<Interruption> interruption = ReadInterruption(value);
        if (!interruption) {
            Complain("--at takes PLACE[@N]:DO");
            return true;
        }
        m_Result.m_Interruptions.push_back(*interruption);
    } else {
        return false;
    }
    return true;
}

void ScriptReader::ReadFlag(std::string_view name) {
    if (name == "--plain") {
        m_Result.m_IsPlain = true;
    } else if (name == "--quiet") {
        m_Result.m_IsQuiet = true;
    } else if (name == "--help") {
        m_Result.m_WantsHelp = true;
    } else if (m_Next == m_End || !ReadSetting(name, *m_Next++)) {
        Complain(std::string(name) + " is no option, or lacks its value");
    }
}

void ScriptReader::ReadWord(std::string_view word) {
    if (word.starts_with("--")) {
        ReadFlag(word);
    } else if (m_Result.m_Plugin.empty()) {
        m_Result.m_Plugin = word;
    } else {
        m_Result.m_Steps.push_back(*ReadAction(word, true));
    }
}

Script ScriptReader::Read() {
    while (m_Next != m_End) {
        ReadWord(*m_Next++);
    }
    if (m_Result.m_Plugin.empty()) {
        Complain("no plug-in is named");
    }
    return std::move(m_Result);
}

}  // namespace

Script ReadScript(int count, const char* const* texts) {
    return ScriptReader(count, texts).Read();
}

const char* GetHelpText() {
    return kHelpText;
}

}  // namespace standin
