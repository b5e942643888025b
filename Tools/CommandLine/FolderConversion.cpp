#include "FolderConversion.h"

#include <algorithm>
#include <string>
#include <vector>

#include "Exceptions.h"
#include "FileConversion.h"
#include "InputFile.h"
#include "TabFolder.h"
#include "Terminal.h"

namespace tabulorix {

namespace {

// How many files came to which end.
class Tally {
public:
    void Add(Outcome outcome, int count = 1) { m_Counts[static_cast<int>(outcome)] += count; }
    int Get(Outcome outcome) const { return m_Counts[static_cast<int>(outcome)]; }

    int m_WithLinesLeftOut = 0;  // among the converted
    int m_NotReached = 0;        // before the program was to end

private:
    int m_Counts[static_cast<int>(Outcome::Failed) + 1] = {};
};

struct TableRow {
    std::string m_Label;
    int m_Count;
};

std::string ComposeTable(const Tally& tally) {
    const int empty = tally.Get(Outcome::Empty);
    const int notText = tally.Get(Outcome::NotText);
    const int tooFewDashes = tally.Get(Outcome::TooFewDashes);
    std::vector<TableRow> rows = {
        {"converted", tally.Get(Outcome::Converted)},
        {"  with lines left out", tally.m_WithLinesLeftOut},
        {"not a tab", tooFewDashes + notText + empty},
        {"  too few dashes", tooFewDashes},
        {"  not text", notText},
        {"  empty", empty},
        {"without a stave", tally.Get(Outcome::WithoutStave)},
        {"failed", tally.Get(Outcome::Failed)},
        {"not reached", tally.m_NotReached},
    };
    // Nothing happened in most ways; the first row says so much when nothing happened at all.
    rows.erase(std::remove_if(rows.begin() + 1, rows.end(),
                              [](const TableRow& row) { return row.m_Count == 0; }),
               rows.end());
    std::size_t labelWidth = 0;
    std::size_t countWidth = 0;
    for (const TableRow& row : rows) {
        labelWidth = std::max(labelWidth, row.m_Label.size());
        countWidth = std::max(countWidth, std::to_string(row.m_Count).size());
    }
    std::string table;
    for (const TableRow& row : rows) {
        const std::string count = std::to_string(row.m_Count);
        const std::size_t gap = labelWidth - row.m_Label.size() + countWidth - count.size() + 2;
        table += (table.empty() ? "" : "\n") + row.m_Label + std::string(gap, ' ') + count;
    }
    return table;
}

class FolderRun {
public:
    FolderRun(const Arguments& arguments, ConsoleOutput& output)
        : m_Arguments(arguments), m_Output(output) {}

    bool Run();

private:
    void FindFiles();
    void AddFolder(const STR& folder);
    void Fail(const STR& folder, const STR& reason);
    void ConvertFiles();

    const Arguments& m_Arguments;
    ConsoleOutput& m_Output;
    std::vector<InputFile> m_Files;
    Tally m_Tally;
    bool m_IsComplete = true;
};

void FolderRun::Fail(const STR& folder, const STR& reason) {
    m_Output.StartFile(folder);
    m_Output.PrintError(reason);
    m_Tally.Add(Outcome::Failed);
    m_IsComplete = false;
}

void FolderRun::AddFolder(const STR& folder) {
    TabFolder found = FindTabFiles(folder);
    for (const TabFolder::Failure& failure : found.m_Failures) {
        Fail(failure.m_Folder, STR("cannot be read: ") + failure.m_Reason);
    }
    // A slip in the folder's name is not to look like work that is done.
    if (found.m_Files.empty() && found.m_Failures.empty() && !WasInterrupted()) {
        Fail(folder, "there is no tab file in it");
    }
    m_Files.insert(m_Files.end(), found.m_Files.begin(), found.m_Files.end());
}

// All of them before the first is converted: the scores may go into the same folders.
void FolderRun::FindFiles() {
    for (const STR& file : m_Arguments.m_Files) {
        if (IsFolder(file)) {
            AddFolder(file);
        } else {
            m_Files.push_back({file});
        }
    }
}

void FolderRun::ConvertFiles() {
    FileConverter converter(m_Arguments, m_Files, m_Output);
    m_Output.StartRun(static_cast<int>(m_Files.size()));
    m_Tally.m_NotReached = static_cast<int>(m_Files.size());
    for (const InputFile& file : m_Files) {
        if (WasInterrupted()) {
            return;
        }
        const Outcome outcome = converter.Convert(file);
        --m_Tally.m_NotReached;
        m_Tally.Add(outcome);
        const bool isConverted = outcome == Outcome::Converted;
        m_Tally.m_WithLinesLeftOut += isConverted && m_Output.HasMessages() ? 1 : 0;
        const bool mayFail =
            outcome != Outcome::Failed && file.m_Origin == InputFile::Origin::FoundText;
        m_IsComplete = m_IsComplete && (isConverted || mayFail);
    }
}

bool FolderRun::Run() {
    // The table comes before the end.
    const InterruptGuard guard;
    FindFiles();
    try {
        ConvertFiles();
    } catch (const ConverterCancelled&) {
        m_IsComplete = false;
    }
    m_Output.PrintTable(STR(ComposeTable(m_Tally)));
    return m_IsComplete;
}

}  // namespace

bool ConvertFolders(const Arguments& arguments, ConsoleOutput& output) {
    return FolderRun(arguments, output).Run();
}

}  // namespace tabulorix
