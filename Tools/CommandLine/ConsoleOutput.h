// Everything that the command line prints: messages, errors and the progress bar on standard error,
// summaries on standard output.

#pragma once

#include "PluginOutput.h"
#include "ProgressBar.h"
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

    // What follows are the files of a run, this many: the bar shows how many of them are done, and
    // neither messages nor summaries are printed.
    void StartRun(int fileCount);
    // What follows is about this input. Call before the operations below.
    void StartFile(const STR& shownName);

    // Raises ConverterCancelled when the user wants the program to end.
    void SetProgress(int percent, const STR& caption) override;
    void ReportResult(const ResId& message, int kind, const STR& text, int repeat) override;

    // `text`, which is printable, follows the input's name: " -> song.vif: guitar, ...".
    void PrintSummary(const STR& text);
    // `text` says why the input could not be converted.
    void PrintError(const STR& text);
    // The end of a run: lines, the last without its end.
    void PrintTable(const STR& table);

    // Whether the conversion of this input has had anything to say, printed or not.
    bool HasMessages() const noexcept { return m_ReportedIds.GetCount() > 0; }

    // True when a summary could not be written; the user has been told.
    bool HasLostSummary() const noexcept { return m_HasLostSummary; }

private:
    bool IsRun() const noexcept { return m_RunFileCount > 0; }
    void PrintResult(const STR& start, const STR& end);

    Options m_Options;
    ProgressBar m_Bar;
    int m_RunFileCount = 0;   // 0: no run
    int m_RunFileNumber = 0;  // of the file that was started last, from 1
    bool m_HasLostSummary = false;
    STR m_ShownName;
    TVAList<int> m_ReportedIds;
};

}  // namespace tabulorix
