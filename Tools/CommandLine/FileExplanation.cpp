#include "FileExplanation.h"

#include <algorithm>
#include <new>

#include "Exceptions.h"
#include "Explain.h"
#include "ExplanationPage.h"
#include "FileName.h"
#include "FileSystem.h"
#include "InputFile.h"
#include "Terminal.h"

namespace tabulorix {

namespace {

class FileExplainer {
public:
    FileExplainer(const Arguments& arguments, ConsoleOutput& output);

    bool Explain();

private:
    bool IsStandardOutput() const {
        return m_Arguments.m_Output.IsEmpty() || m_Arguments.m_Output == kStandardStream;
    }
    bool ExplainFile(const STR& file);
    // What is to be written to a file is kept until all of it is there.
    bool WriteNow();
    bool WriteAll();
    FileResult ReplaceFile(const STR& path) const;
    bool Check(const FileResult& result, const STR& problem);

    const Arguments& m_Arguments;
    ConsoleOutput& m_Output;
    std::unique_ptr<ExplanationPage> m_Page;
    std::string m_Text;  // not yet written
    bool m_HasShown = false;
};

FileExplainer::FileExplainer(const Arguments& arguments, ConsoleOutput& output)
    : m_Arguments(arguments), m_Output(output) {
    m_Page = arguments.m_Explanation == ExplanationKind::Html
                 ? MakeHtmlPage()
                 : MakeTextPage(IsStandardOutput() && CanShowColours());
}

bool FileExplainer::Check(const FileResult& result, const STR& problem) {
    if (!result) {
        m_Output.PrintError(problem + ": " + result.m_Error);
    }
    return result.Succeeded();
}

bool FileExplainer::ExplainFile(const STR& file) {
    const STR name = GetShownName(file);
    m_Output.StartFile(name);
    try {
        const FileContents contents = ReadInput(file);
        if (!Check(contents.m_Result, "cannot be read")) {
            return false;
        }
        Explanation explanation = tabulorix::Explain(contents.m_Bytes, m_Arguments.m_RhythmLevel);
        explanation.m_Name = name.View();
        m_Text += m_Page->Show(explanation);
        m_HasShown = true;
        return true;
    } catch (const std::bad_alloc&) {
        m_Output.PrintError("there is not enough memory for it");
        return false;
    }
}

bool FileExplainer::WriteNow() {
    if (!IsStandardOutput()) {
        return true;
    }
    m_Output.StartFile("standard output");
    const bool isWritten = Check(WriteStandardOutput(m_Text), "cannot be written");
    m_Text.clear();
    return isWritten;
}

FileResult FileExplainer::ReplaceFile(const STR& path) const {
    if (GetPathKind(path) == PathKind::Device) {
        return WriteWholeFile(path, m_Text);
    }
    const FileIdentity replaced = GetFileIdentity(path);
    const std::vector<STR>& files = m_Arguments.m_Files;
    if (replaced != FileIdentity() && std::any_of(files.begin(), files.end(), [&](const STR& file) {
            return GetFileIdentity(file) == replaced;
        })) {
        return {"it is one of the tabs"};
    }
    const STR target = ResolveLinks(path);
    // A request to end the program is only noted while there may be a file to remove.
    const InterruptGuard guard;
    NewFile page = NewFile::In(GetFolderPart(target));
    if (!page.GetCreation()) {
        return page.GetCreation();
    }
    const FileResult written = page.Write(m_Text);
    return written ? page.MoveOver(target) : written;
}

bool FileExplainer::WriteAll() {
    if (IsStandardOutput()) {
        return WriteNow();
    }
    m_Output.StartFile(m_Arguments.m_Output);
    return Check(ReplaceFile(m_Arguments.m_Output), "cannot be written");
}

bool FileExplainer::Explain() {
    m_Text = m_Page->Begin();
    bool isComplete = true;
    for (const STR& file : m_Arguments.m_Files) {
        isComplete = ExplainFile(file) && isComplete;
        if (!WriteNow()) {
            return false;
        }
    }
    if (!m_HasShown) {
        return false;
    }
    m_Text += m_Page->End();
    return WriteAll() && isComplete;
}

}  // namespace

bool ExplainFiles(const Arguments& arguments, ConsoleOutput& output) {
    return FileExplainer(arguments, output).Explain();
}

}  // namespace tabulorix
