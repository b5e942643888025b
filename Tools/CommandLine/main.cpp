// tabulorix: plain-text guitar and bass tab files to notated scores, from the command line.

#include <algorithm>
#include <cstdio>
#include <vector>

#include "Arguments.h"
#include "ConsoleOutput.h"
#include "Exceptions.h"
#include "FileConversion.h"
#include "FileExplanation.h"
#include "FolderConversion.h"
#include "Terminal.h"
#include "Version.h"

namespace tabulorix {

namespace {

constexpr int kAllConverted = 0;
constexpr int kNotAllConverted = 1;
constexpr int kWrongUsage = 2;

bool TakesStandardOutput(const Arguments& arguments) {
    const std::vector<STR>& files = arguments.m_Files;
    return arguments.m_Output == kStandardStream ||
           (arguments.m_Output.IsEmpty() &&
            std::find(files.begin(), files.end(), STR(kStandardStream)) != files.end());
}

bool ConvertFiles(const Arguments& arguments, ConsoleOutput& output) {
    std::vector<InputFile> files;
    for (const STR& file : arguments.m_Files) {
        files.push_back({file});
    }
    FileConverter converter(arguments, files, output);
    bool isComplete = true;
    for (const InputFile& file : files) {
        isComplete = converter.Convert(file) == Outcome::Converted && isComplete;
        if (WasInterrupted()) {
            break;
        }
    }
    return isComplete;
}

int ConvertAll(const Arguments& arguments) {
    ConsoleOutput output({arguments.m_IsQuiet, TakesStandardOutput(arguments)});
    const bool isComplete = NamesFolder(arguments) ? ConvertFolders(arguments, output)
                                                   : ConvertFiles(arguments, output);
    return isComplete && !output.HasLostSummary() ? kAllConverted : kNotAllConverted;
}

int ExplainAll(const Arguments& arguments) {
    ConsoleOutput output({arguments.m_IsQuiet, true});
    return ExplainFiles(arguments, output) ? kAllConverted : kNotAllConverted;
}

int Print(const char* text) {
    if (std::fputs(text, stdout) < 0 || std::fflush(stdout) != 0) {
        std::perror("tabulorix: standard output");
        return kNotAllConverted;
    }
    return kAllConverted;
}

int Run(int count, const char* const* texts) {
    const Arguments arguments = ReadArguments(count, texts);
    if (!arguments.m_Problem.IsEmpty()) {
        std::fprintf(stderr, "tabulorix: %s\nTry \"tabulorix --help\".\n",
                     arguments.m_Problem.GetText());
        return kWrongUsage;
    }
    switch (arguments.m_Request) {
        case Arguments::Request::ShowHelp:
            return Print(GetHelpText());
        case Arguments::Request::ShowVersion:
            return Print("tabulorix " TABULORIX_VERSION_STRING "\n");
        case Arguments::Request::Convert:
            break;
    }
    return arguments.m_Explanation == ExplanationKind::None ? ConvertAll(arguments)
                                                            : ExplainAll(arguments);
}

}  // namespace

}  // namespace tabulorix

int main(int argc, char** argv) {
    using namespace tabulorix;
    PrepareProcess();
    InstallAllocationFailureHandler();
    int status = kNotAllConverted;
    try {
        status = Run(argc, argv);
    } catch (const std::bad_alloc&) {
        std::fputs("tabulorix: there is not enough memory\n", stderr);
    } catch (const ConverterCancelled&) {
        // The request that cancelled is seen below.
    }
    if (WasInterrupted()) {
        EndAsInterrupted();
    }
    return status;
}
