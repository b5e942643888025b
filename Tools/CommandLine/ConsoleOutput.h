// Everything that the command line prints: messages, errors and the progress bar on standard error,
// summaries on standard output.

#pragma once

#include <chrono>

#include "PluginOutput.h"
#include "STR.h"
#include "TVAList.h"

namespace tabulorix {

class ConsoleOutput : public PluginOutput {
public:
    struct Options {
        // Errors only.
        bool m_IsQuiet = false;
        // Standard output is taken by a score.
        bool m_SummariesToErrorStream = false;
    };

    explicit ConsoleOutput(Options options);
    ~ConsoleOutput() override;
    ConsoleOutput(const ConsoleOutput&) = delete;
    ConsoleOutput& operator=(const ConsoleOutput&) = delete;

    // What follows is about this input. Call before the operations below.
    void StartFile(const STR& shownName);

    // Raises ConverterCancelled when the user wants the program to end.
    void SetProgress(int percent, const STR& caption) override;
    void ReportResult(const ResId& message, int kind, const STR& text, int repeat) override;

    // `text` follows the input's name: " -> song.vif: guitar, ...".
    void PrintSummary(const STR& text);
    // `text` says why the input could not be converted.
    void PrintError(const STR& text);

    // True when a summary could not be written; the user has been told.
    bool HasLostSummary() const noexcept { return m_HasLostSummary; }

private:
    void DrawBar(int percent);
    void ClearBar();

    Options m_Options;
    bool m_MayShowBar;
    bool m_HasLostSummary = false;
    STR m_ShownName;
    TVAList<int> m_ReportedIds;
    std::chrono::steady_clock::time_point m_FileStart;
    int m_ShownPercent = -1;  // below 0: no bar on the terminal
    int m_ShownWidth = 0;     // in columns
};

}  // namespace tabulorix
