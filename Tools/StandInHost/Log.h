// The log of the stand-in host: a line for each call, indented by its depth, at once on standard
// output, so that it is complete up to the moment in which a process dies.

#pragma once

#include <cstddef>
#include <string>

namespace standin {

// Nothing but complaints and figures from now on.
void SilenceLog();

void Log(const std::string& line);
// In spite of silence.
void LogAlways(const std::string& line);

// What is logged during its life stands further to the right.
class LogIndent {
public:
    explicit LogIndent(std::size_t levels = 1);
    ~LogIndent();
    LogIndent(const LogIndent&) = delete;
    LogIndent& operator=(const LogIndent&) = delete;

private:
    std::size_t m_LevelBefore;
};

// In quotes, with control and 8-bit characters as \xNN; a null text is null.
std::string Quoted(const char* text);
// 0x5EED
std::string Hex(unsigned long number);

}  // namespace standin
