#include "Arguments.h"

#include <algorithm>
#include <optional>

#include "FileSystem.h"
#include "InputFile.h"
#include "MusicXml.h"

namespace tabulorix {

namespace {

constexpr const char* kHelpText =
    "Usage: tabulorix [options] FILE...\n"
    "\n"
    "Makes a notated score, NAME.vif, of each plain-text guitar or bass tab FILE, beside it.\n"
    "FILE - is standard input, whose score goes to standard output.\n"
    "\n"
    "FILE may be a folder: every tab in it and below it gives a score, beside it or in the same\n"
    "place below the output folder. Tabs are called .tab, .btab or .crd; a .txt is tried too, and\n"
    "is no failure when it is no tab. Hidden files and links to folders are left out. Each other\n"
    "file that was not converted has a line, and a table closes the run.\n"
    "\n"
    "  -o, --output PATH   write the score to this file, or into this folder, which is made\n"
    "                      when it is missing (several FILEs or a folder: always a folder);\n"
    "                      - is standard output. In a folder the score of standard input is\n"
    "                      stdin.vif.\n"
    "  --format FORMAT     vif: a score for the notation host (the default)\n"
    "                      musicxml: MusicXML for other notation programs, NAME.musicxml;\n"
    "                      also chosen by -o NAME.musicxml\n"
    "  --rhythm LEVEL      never: notes without rhythms\n"
    "                      indicated: rhythms only when the tab shows them (the default)\n"
    "                      always: rhythms from the spacing when the tab shows none\n"
    "  --explain           print how each FILE was read, with bar numbers and note values,\n"
    "                      instead of converting it; also a FILE that is no tab. All go to\n"
    "                      standard output, or into the file that -o names\n"
    "  --explain=html      the same as a page for a browser\n"
    "  --quiet             print nothing but errors\n"
    "  --version           print the version and end\n"
    "  --help              print this text and end\n"
    "  --                  what follows are FILEs\n"
    "\n"
    "Exit status: 0 every FILE was converted or explained, 1 at least one was not, 2 wrong "
    "usage.\n";

class ArgumentReader {
public:
    // The first text is the program's own name.
    ArgumentReader(int count, const char* const* texts)
        : m_Next(texts + std::min(count, 1)), m_End(texts + count) {}

    Arguments Read();

private:
    // An option as it was written, cut at its value.
    struct Option {
        std::string_view m_Name;
        std::string_view m_Value;
        bool m_HasValue;
    };

    static Option Split(std::string_view text);
    void ReadOption(Option option);
    void ReadRhythmLevel(std::string_view name);
    void ReadFormat(std::string_view name);
    void ReadExplanation(const Option& option);
    void ChooseFormat();
    // The value in the same argument, or the next argument. False with the problem set when there
    // is none.
    bool TakeValue(Option& option);
    void CheckFiles();
    void Complain(const STR& problem) { m_Result.m_Problem = problem; }
    bool IsDone() const {
        return !m_Result.m_Problem.IsEmpty() || m_Result.m_Request != Arguments::Request::Convert;
    }

    const char* const* m_Next;
    const char* const* m_End;
    Arguments m_Result;
    std::optional<ScoreFormat> m_NamedFormat;
};

bool CanBeFolder(const STR& output) {
    const PathKind kind = GetPathKind(output);
    return output != kStandardStream && (kind == PathKind::Folder || kind == PathKind::Nothing);
}

STR Quoted(std::string_view text) {
    return STR("\"") + text + "\"";
}

ArgumentReader::Option ArgumentReader::Split(std::string_view text) {
    if (text.starts_with("--")) {
        const std::size_t sign = text.find('=');
        if (sign != std::string_view::npos) {
            return {text.substr(0, sign), text.substr(sign + 1), true};
        }
    } else if (text.starts_with("-o") && text.size() > 2) {
        return {text.substr(0, 2), text.substr(2), true};
    }
    return {text, {}, false};
}

bool ArgumentReader::TakeValue(Option& option) {
    if (!option.m_HasValue && m_Next != m_End) {
        option.m_Value = *m_Next++;
    }
    if (option.m_Value.empty()) {
        Complain(STR(option.m_Name) + " needs a value");
        return false;
    }
    return true;
}

void ArgumentReader::ReadRhythmLevel(std::string_view name) {
    if (name == "never") {
        m_Result.m_RhythmLevel = RhythmLevel::Never;
    } else if (name == "indicated") {
        m_Result.m_RhythmLevel = RhythmLevel::WhenIndicated;
    } else if (name == "always") {
        m_Result.m_RhythmLevel = RhythmLevel::Always;
    } else {
        Complain(STR("--rhythm is never, indicated or always, not ") + Quoted(name));
    }
}

void ArgumentReader::ReadFormat(std::string_view name) {
    m_NamedFormat = FindScoreFormat(name);
    if (!m_NamedFormat) {
        Complain(STR("--format is vif or musicxml, not ") + Quoted(name));
    }
}

// The value is optional and so never the next argument.
void ArgumentReader::ReadExplanation(const Option& option) {
    if (!option.m_HasValue || option.m_Value == "text") {
        m_Result.m_Explanation = ExplanationKind::Text;
    } else if (option.m_Value == "html") {
        m_Result.m_Explanation = ExplanationKind::Html;
    } else {
        Complain(STR("--explain is text or html, not ") + Quoted(option.m_Value));
    }
}

// Without a named format the output's name tells it.
void ArgumentReader::ChooseFormat() {
    if (!m_NamedFormat) {
        m_NamedFormat = FindScoreFormatOfPath(m_Result.m_Output);
    }
    m_Result.m_Format = m_NamedFormat.value_or(ScoreFormat::Vif);
    if (m_Result.m_Format == ScoreFormat::MusicXml && !CanComposeMusicXml()) {
        Complain("this build has no MusicXML, which takes pugixml: use --format vif");
    }
}

void ArgumentReader::ReadOption(Option option) {
    const std::string_view name = option.m_Name;
    if (name == "-o" || name == "--output") {
        if (TakeValue(option)) {
            m_Result.m_Output = option.m_Value;
        }
    } else if (name == "--format") {
        if (TakeValue(option)) {
            ReadFormat(option.m_Value);
        }
    } else if (name == "--rhythm") {
        if (TakeValue(option)) {
            ReadRhythmLevel(option.m_Value);
        }
    } else if (name == "--explain") {
        ReadExplanation(option);
    } else if (name != "--quiet" && name != "--version" && name != "--help") {
        Complain(STR("there is no option ") + Quoted(name));
    } else if (option.m_HasValue) {
        Complain(STR(name) + " takes no value");
    } else if (name == "--quiet") {
        m_Result.m_IsQuiet = true;
    } else {
        m_Result.m_Request =
            name == "--help" ? Arguments::Request::ShowHelp : Arguments::Request::ShowVersion;
    }
}

void ArgumentReader::CheckFiles() {
    const std::vector<STR>& files = m_Result.m_Files;
    if (files.empty()) {
        Complain("no file is named");
    } else if (std::any_of(files.begin(), files.end(), [](const STR& f) { return f.IsEmpty(); })) {
        Complain("a file name is empty");
    } else if (std::count(files.begin(), files.end(), STR(kStandardStream)) > 1) {
        Complain("standard input can be named once only");
    } else if (m_Result.m_Explanation != ExplanationKind::None && NamesFolder(m_Result)) {
        Complain("--explain takes files, not folders");
    } else if (files.size() > 1 && NamesFolder(m_Result) &&
               std::count(files.begin(), files.end(), STR(kStandardStream)) > 0) {
        Complain("standard input cannot be named beside a folder");
    } else if (files.size() > 1 && m_Result.m_Explanation == ExplanationKind::None &&
               !CanBeFolder(m_Result.m_Output)) {
        Complain(STR("the output of several files must be a folder, not ") +
                 Quoted(m_Result.m_Output));
    } else if (IsFolder(files.front()) && !CanBeFolder(m_Result.m_Output)) {
        Complain(STR("the output of a folder must be a folder, not ") + Quoted(m_Result.m_Output));
    }
}

Arguments ArgumentReader::Read() {
    bool areOptionsOver = false;
    while (m_Next != m_End && !IsDone()) {
        const std::string_view text = *m_Next++;
        if (areOptionsOver || text == kStandardStream || !text.starts_with('-')) {
            m_Result.m_Files.emplace_back(text);
        } else if (text == "--") {
            areOptionsOver = true;
        } else {
            ReadOption(Split(text));
        }
    }
    if (!IsDone()) {
        ChooseFormat();
    }
    if (!IsDone()) {
        CheckFiles();
    }
    return std::move(m_Result);
}

}  // namespace

Arguments ReadArguments(int count, const char* const* texts) {
    return ArgumentReader(count, texts).Read();
}

bool NamesFolder(const Arguments& arguments) {
    return std::any_of(arguments.m_Files.begin(), arguments.m_Files.end(), IsFolder);
}

const char* GetHelpText() noexcept {
    return kHelpText;
}

}  // namespace tabulorix
