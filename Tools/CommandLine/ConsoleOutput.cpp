#include "ConsoleOutput.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "Exceptions.h"
#include "PrintableText.h"
#include "Terminal.h"

namespace tabulorix {

ConsoleOutput::ConsoleOutput(Options options) : m_Options(options), m_Bar(!options.m_IsQuiet) {}

void ConsoleOutput::StartRun(int fileCount) {
    m_RunFileCount = fileCount;
    m_Bar.Start();
}

void ConsoleOutput::StartFile(const STR& shownName) {
    m_ShownName = MakePrintable(shownName);
    m_ReportedIds.Clear();
    if (IsRun()) {
        ++m_RunFileNumber;
    } else {
        m_Bar.Start();
    }
}

void ConsoleOutput::SetProgress(int percent, const STR& /*caption*/) {
    if (WasInterrupted()) {
        RecordThrowLocation("ConsoleOutput", __LINE__);
        throw ConverterCancelled("cancelled");
    }
    if (!m_Bar.IsDue()) {
        return;
    }
    const int shown = std::clamp(percent, 0, 100);
    if (!IsRun()) {
        m_Bar.Draw(m_ShownName, shown);
        return;
    }
    const std::int64_t done = (m_RunFileNumber - 1) * std::int64_t{100} + shown;
    m_Bar.Draw(STR::FromInt(m_RunFileNumber) + " of " + STR::FromInt(m_RunFileCount),
               static_cast<int>(done / m_RunFileCount));
}

void ConsoleOutput::ReportResult(const ResId& message, int /*kind*/, const STR& text, int repeat) {
    const int id = message.GetId();
    const bool wasReported = m_ReportedIds.Contains(id);
    if (!wasReported) {
        m_ReportedIds.Append(id);
    }
    if (m_Options.m_IsQuiet || IsRun() || (wasReported && repeat == 0)) {
        return;
    }
    m_Bar.Clear();
    const STR line = text.IsEmpty() ? message.GetString() : text;
    std::fprintf(stderr, "%s: %s\n", m_ShownName.GetText(), line.GetText());
}

void ConsoleOutput::PrintSummary(const STR& text) {
    if (!IsRun()) {
        PrintResult(m_ShownName, text);
    }
}

void ConsoleOutput::PrintTable(const STR& table) {
    PrintResult(table, {});
}

// Takes no memory: a score that has its place is not to fail here.
void ConsoleOutput::PrintResult(const STR& start, const STR& end) {
    m_Bar.Clear();
    if (m_Options.m_IsQuiet) {
        return;
    }
    std::FILE* stream = m_Options.m_SummariesToErrorStream ? stderr : stdout;
    // Written at once: an interrupt between two files must not lose it.
    if ((std::fprintf(stream, "%s%s\n", start.GetText(), end.GetText()) < 0 ||
         std::fflush(stream) != 0) &&
        !m_HasLostSummary) {
        m_HasLostSummary = true;
        std::fprintf(stderr, "tabulorix: standard output: %s\n", std::strerror(errno));
    }
}

void ConsoleOutput::PrintError(const STR& text) {
    m_Bar.Clear();
    std::fprintf(stderr, "tabulorix: %s: %s\n", m_ShownName.GetText(),
                 MakePrintable(text).GetText());
}

}  // namespace tabulorix
