#include "Log.h"

#include <cstdio>

namespace standin {

namespace {

constexpr std::size_t kSpacesPerLevel = 2;

bool g_IsSilent = false;
std::size_t g_Level = 0;

}  // namespace

void SilenceLog() {
    g_IsSilent = true;
}

void Log(const std::string& line) {
    if (!g_IsSilent) {
        LogAlways(line);
    }
}

void LogAlways(const std::string& line) {
    std::printf("%s%s\n", std::string(g_Level * kSpacesPerLevel, ' ').c_str(), line.c_str());
    std::fflush(stdout);
}

LogIndent::LogIndent(std::size_t levels) : m_LevelBefore(g_Level) {
    g_Level += levels;
}

LogIndent::~LogIndent() {
    g_Level = m_LevelBefore;
}

std::string Quoted(const char* text) {
    if (text == nullptr) {
        return "null";
    }
    std::string quoted = "\"";
    for (; *text != '\0'; ++text) {
        const auto byte = static_cast<unsigned char>(*text);
        if (byte < 0x20 || byte >= 0x7F) {
            char code[8];
            std::snprintf(code, sizeof code, "\\x%02X", static_cast<unsigned>(byte));
            quoted += code;
        } else {
            quoted += *text;
        }
    }
    return quoted + "\"";
}

std::string Hex(unsigned long number) {
    char code[16];
    std::snprintf(code, sizeof code, "0x%04lX", number);
    return code;
}

}  // namespace standin
