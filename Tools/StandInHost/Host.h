// The host: it loads the plug-in, calls its five functions, and answers the calls that come back.

#pragma once

#include <array>
#include <string>

#include "DialogAnswers_win32.h"
#include "Script.h"
#include "VeltrasoApi.h"

namespace standin {

class Host {
public:
    // Outlives the host.
    explicit Host(const Script& script);
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    // The only one; the plug-in's calls reach it.
    static Host& Get();

    // All rounds. False when the plug-in could not be loaded.
    bool Run();

    // For the host's functions: the first logs the call and checks how it was made, the second does
    // what the script wants to be done there, and says whether the user "cancels". A foreign
    // exception that the second raises runs no destructor here, so its caller holds nothing.
    void LogCall(const std::string& call) const;
    bool Interrupt(Place place);

    // Copies the score to where the script wants it.
    void CopyScore(const char* scorePath) const;

private:
    // The plug-in's functions, null where it exports none.
    struct Functions {
        tabulorix::VelInitFunction* m_Init = nullptr;
        tabulorix::VelOpenFileFunction* m_OpenFile = nullptr;
        tabulorix::VelTermFunction* m_Term = nullptr;
        tabulorix::VelResultsDialogMessageFunction* m_ResultsMessage = nullptr;
        tabulorix::VelChooseTransposingInstrumentsFunction* m_Instruments = nullptr;
    };

    bool RunRound();
    bool Load();
    void TakeSteps();
    void Do(const Action& action);
    void Init();
    void Open(const char* path);
    // Logs a call of the plug-in and checks what it leaves behind; deeper in the log when the
    // plug-in is calling.
    template <typename Call>
    void CallPlugin(const std::string& text, Call call);

    static Host* s_Host;

    const Script& m_Script;
    DialogAnswers m_Dialogs;
    HMODULE m_Module = nullptr;
    Functions m_Plugin;
    int m_CallDepth = 0;                                 // of calls of the plug-in
    std::string m_OpenFile;                              // the file that is being imported
    std::array<int, kCallbackCount + 1> m_CallCounts{};  // by place, within the round
};

}  // namespace standin
