// What the user asks for on the command line.

#pragma once

#include <vector>

#include "RhythmLevel.h"
#include "STR.h"
#include "ScoreFormat.h"

namespace tabulorix {

// Whether the files are explained instead of converted, and how that is shown.
enum class ExplanationKind { None, Text, Html };

struct Arguments {
    enum class Request { Convert, ShowHelp, ShowVersion };

    Request m_Request = Request::Convert;
    std::vector<STR> m_Files;  // and folders
    STR m_Output;  // a file, a folder or "-"; empty when each score goes beside its file
    ScoreFormat m_Format = ScoreFormat::Vif;
    RhythmLevel m_RhythmLevel = RhythmLevel::WhenIndicated;
    ExplanationKind m_Explanation = ExplanationKind::None;
    bool m_IsQuiet = false;
    // What is wrong, for the user; empty when everything can be done as asked.
    STR m_Problem;
};

// Options and files in any order; the last of contradicting options counts. Looks at the file
// system only to tell whether a file is a folder, and its output or that of several files too.
Arguments ReadArguments(int count, const char* const* texts);

// Whether one of the files is a folder.
bool NamesFolder(const Arguments& arguments);

// With the line end.
const char* GetHelpText() noexcept;

}  // namespace tabulorix
