#include "SampleTab.h"

#include <string_view>

#include "Exceptions.h"
#include "FileSystem.h"

namespace tabulorix {

namespace {

constexpr const char* kExamples[] = {"amazing_grace.tab", "drunken_sailor.tab", "greensleeves.tab",
                                     "ode_to_joy.tab", "scarborough_fair.tab"};

std::string ReadExamples() {
    std::string lines;
    for (const char* name : kExamples) {
        const FileContents file = ReadWholeFile(STR(TABULORIX_EXAMPLES_DIR "/") + name);
        if (!file.m_Result) {
            throw Exception(STR(name) + ": " + file.m_Result.m_Error);
        }
        lines += file.m_Bytes.View();
    }
    return lines;
}

}  // namespace

std::string MakeSampleTab(int lineCount) {
    const std::string examples = ReadExamples();
    std::string tab;
    std::string_view rest;
    for (int line = 0; line < lineCount; ++line) {
        if (rest.empty()) {
            rest = examples;
        }
        const std::size_t length = rest.find('\n') + 1;
        tab += rest.substr(0, length);
        rest.remove_prefix(length);
    }
    return tab;
}

}  // namespace tabulorix
