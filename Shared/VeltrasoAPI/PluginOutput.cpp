#include "PluginOutput.h"

#include <memory>
#include <utility>

#include "Exceptions.h"
#include "HostCallbacks.h"

namespace tabulorix {

namespace {

// Crash reports name these two places by these numbers.
constexpr int kCancelledAtProgress = 152;
constexpr int kCancelledAtProgressText = 161;

struct SharedValues {
    STR m_Title;
    STR m_FileName;
    STR m_Caption;
    int m_Location1 = PluginOutput::kNoLocation;
    int m_Location2 = PluginOutput::kNoLocation;
    short m_Location3 = PluginOutput::kNoLocation;
    int m_Further = 0;
};

// Made by the first object: texts need the heap, and nothing is to run while the module loads.
constinit std::unique_ptr<SharedValues> g_Shared;
constinit std::unique_ptr<PluginOutput> g_PluginOutput;

}  // namespace

PluginOutput::PluginOutput(STR fileName, STR title) {
    if (g_Shared == nullptr) {
        g_Shared = std::make_unique<SharedValues>();
    }
    g_Shared->m_FileName = std::move(fileName);
    g_Shared->m_Title = std::move(title);
}

PluginOutput::~PluginOutput() = default;

void PluginOutput::SetTitle(const STR& title) {
    g_Shared->m_Title = title;
}

void PluginOutput::SetFileName(const STR& fileName) {
    g_Shared->m_FileName = fileName;
    m_ReportedIds.Clear();
}

void PluginOutput::SetLocation1(int location) {
    SetLocation(g_Shared->m_Location1, location);
}

void PluginOutput::SetLocation2(int location) {
    SetLocation(g_Shared->m_Location2, location);
}

void PluginOutput::SetLocation(int& stored, int location) noexcept {
    if (location != stored) {
        m_ReportedIds.Clear();
    }
    stored = location;
}

void PluginOutput::SetLocation3(short location) {
    g_Shared->m_Location3 = location;
}

STR PluginOutput::GetFileName() const {
    return g_Shared->m_FileName;
}

int PluginOutput::GetLocation1() const {
    return g_Shared->m_Location1;
}

int PluginOutput::GetLocation2() const {
    return g_Shared->m_Location2;
}

short PluginOutput::GetLocation3() const {
    return g_Shared->m_Location3;
}

STR PluginOutput::GetTitle() const {
    return g_Shared->m_Title;
}

void PluginOutput::SetProgressText(const STR& caption) {
    g_Shared->m_Caption = caption;
    ShowProgress(kCancelledAtProgressText);
}

void PluginOutput::SetProgress(int percent, const STR& caption) {
    m_Percent = percent;
    g_Shared->m_Caption = caption;
    ShowProgress(kCancelledAtProgress);
}

void PluginOutput::ShowProgress(int throwLine) const {
    if (!GetHostCallbacks().UpdateProgressDialog(m_Percent, g_Shared->m_Caption)) {
        RecordThrowLocation("PluginOutput", throwLine);
        throw ConverterCancelled("cancelled");
    }
}

void PluginOutput::ReportResult(const ResId& message, int kind, const STR& text, int repeat) {
    const int id = message.GetId();
    if (repeat == 0 && m_ReportedIds.Contains(id)) {
        return;
    }
    const STR sent = text.IsEmpty() ? message.GetString() : text;
    const SharedValues& shared = *g_Shared;
    GetHostCallbacks().ReportResult(shared.m_Title.GetText(), shared.m_FileName.GetText(), kind,
                                    shared.m_Location1, shared.m_Location2, sent.GetText());
    ++m_MessageCount;
    m_ReportedFlag = 1;
    m_ReportedIds.Append(id);
}

int PluginOutput::GetReportedFlag() const {
    return m_ReportedFlag;
}

int PluginOutput::GetFurtherValue() const {
    return g_Shared->m_Further;
}

PluginOutput& GetPluginOutput() {
    if (g_PluginOutput == nullptr) {
        g_PluginOutput = std::make_unique<PluginOutput>();
    }
    return *g_PluginOutput;
}

void DestroyPluginOutput() noexcept {
    g_PluginOutput.reset();
}

}  // namespace tabulorix
