// What the stand-in host is told to do: the command line, as settings and a list of actions.

#pragma once

#include <string>
#include <vector>

namespace standin {

// Where an action can be asked for: inside one of the host's six functions, in the order in which a
// plug-in looks them up, or while the plug-in's dialog is open.
enum class Place { LoadTempFile, ResultsMessage, Update, Destroy, Create, Instruments, Dialog };

constexpr int kCallbackCount = 6;

struct Action {
    enum class Kind {
        Init,
        InitWithNull,  // null records
        Open,          // m_Text is the path
        OpenNull,      // a null path
        Term,
        ResultsMessage,
        Instruments,
        Without,       // m_Text is the number of the callback to hide, 1 to 6, 0 for none
        Cancel,        // from here on only inside a callback
        Throw,         // a C++ exception of this program's own run-time
        RaiseForeign,  // what a throw of another compiler looks like to the system
        Crash,         // an access violation
    };
    Kind m_Kind;
    std::string m_Text;
};

// An action at the m_Call-th call of one function, or at the m_Call-th dialog, from 1, since the
// plug-in was loaded.
struct Interruption {
    Place m_Place;
    int m_Call;
    Action m_Action;
};

// What is done in a dialog, one after the other: "always", "only", "never", "box", "ok", "cancel",
// "enter", "escape", "close", "alt+LETTER", "pause=MILLISECONDS". Empty leaves it to the user.
using Answer = std::vector<std::string>;

struct Script {
    std::string m_Plugin;
    std::string m_Preload;         // another library, loaded before the plug-in; may be empty
    std::string m_SettingsFolder;  // told to the plug-in
    std::string m_ScoreFolder;     // gets a copy of each score; empty for none
    std::string m_TempFolder;  // the system's temporary folder for this process; empty: unchanged
    unsigned m_ControlWord = 0x027F;
    bool m_IsPlain = false;  // no VEL_INIT before the steps, no VEL_TERM after them
    bool m_IsQuiet = false;
    int m_Rounds = 1;
    int m_FiguresEvery = 0;  // rounds; 0 for never
    std::vector<Action> m_Steps;
    std::vector<Interruption> m_Interruptions;
    std::vector<Answer> m_Answers;  // dialog by dialog; the last one counts for all the others
    bool m_WantsHelp = false;
    std::string m_Problem;  // with the command line; empty when there is none
};

Script ReadScript(int count, const char* const* texts);

const char* GetHelpText();

}  // namespace standin
