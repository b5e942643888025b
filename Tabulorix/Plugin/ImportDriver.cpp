#include "ImportDriver.h"

#include <optional>
#include <utility>

#include "Converter.h"
#include "Exceptions.h"
#include "FileName.h"
#include "FileSystem.h"
#include "HostCallbacks.h"
#include "NodeAllocator.h"
#include "PluginOutput.h"
#include "PluginState.h"
#include "ScoreTemplate.h"
#include "TabFileTest.h"

namespace tabulorix {

namespace {

constexpr const char* kTitle = "Tabulorix";
constexpr const char* kScoreExtension = "vif";
// How many names are tried. A score is never written over what is there.
constexpr int kMostPlaces = 100;
constexpr int kProgressBegins = 0;
constexpr int kProgressEnds = 100;

// The user hears of failures from nobody: an import that fails loads nothing, and that is all.
template <class Step>
void IgnoreFailure(Step step) noexcept {
    try {
        step();
    } catch (...) {
    }
}

class DeletedFile {
public:
    explicit DeletedFile(STR path) noexcept : m_Path(std::move(path)) {}
    ~DeletedFile() {
        IgnoreFailure([this] { RemoveFile(m_Path); });
    }
    DeletedFile(const DeletedFile&) = delete;
    DeletedFile& operator=(const DeletedFile&) = delete;

private:
    STR m_Path;
};

// The place of one score: a unique name of the system's choice, held by an empty file with another
// extension. The score's own name may be in use nevertheless.
class ScorePlace {
public:
    ScorePlace() : ScorePlace(FileName::CreateTemporary()) {}

    const FileName& GetScore() const noexcept { return m_Score; }
    bool IsTaken() const { return GetPathKind(m_Score.GetPath()) != PathKind::Nothing; }

private:
    explicit ScorePlace(const FileName& placeholder)
        : m_Placeholder(placeholder.GetPath()),
          m_Score(placeholder.WithExtension(kScoreExtension)) {}

    DeletedFile m_Placeholder;
    FileName m_Score;
};

void PrepareOutput(const STR& shownName) {
    PluginOutput& output = GetPluginOutput();
    output.SetTitle(kTitle);
    output.SetFileName(shownName);
    output.SetLocation1(PluginOutput::kNoLocation);
    output.SetLocation2(PluginOutput::kNoLocation);
    output.SetLocation3(PluginOutput::kNoLocation);
}

// The host has loaded the score completely, or given up, when it comes back.
void HandOver(const STR& scorePath) {
    const HostCallbacks& host = GetHostCallbacks();
    if (host.HasLoadTempFile()) {
        const DeletedFile score(scorePath);
        host.LoadTempFile(scorePath);
    }
}

void AskAndImport(const STR& path, RhythmDialog& dialog) {
    PluginState& state = GetPluginState();
    const STR settingsFolder = state.m_SettingsFolder;
    if (!AskForRhythms(dialog, state.m_ParentWindow, settingsFolder)) {
        return;
    }
    const HostCallbacks& host = GetHostCallbacks();
    host.CreateProgressDialog(kTitle);
    host.UpdateProgressDialog(kProgressBegins, {});
    // Up to here the host may have run another import, which used the output.
    PrepareOutput(FileName(path).GetNameWithExtension());
    state.m_IsImportBusy = 1;
    STR scorePath;
    if (ImportTabFile(path, scorePath, settingsFolder)) {
        HandOver(scorePath);
    }
}

// Also without a display, after a cancelled dialog: hosts expect it.
void CloseImport() noexcept {
    const HostCallbacks& host = GetHostCallbacks();
    IgnoreFailure([&] { host.UpdateProgressDialog(kProgressEnds, {}); });
    IgnoreFailure([&] { host.DestroyProgressDialog(); });
    NodeAllocator::Reset();
    GetPluginState().m_IsImportBusy = 0;
}

bool Convert(const STR& path, const STR& scorePath, const STR& settingsFolder) {
    const FileName optionFile = GetOptionFile(settingsFolder);
    const ImportOptions options(optionFile);
    Converter converter(GetPluginOutput(), options.GetRhythmLevel());
    const std::unique_ptr<TreeNode> document = CreateBlankScore();
    return document != nullptr && converter.Convert(path, *document, scorePath);
}

}  // namespace

int OpenTabFile(const char* path, RhythmDialog& dialog) {
    if (path == nullptr) {
        return 0;
    }
    const STR file(path);
    const bool isTab = IsTabFile(file);
    if (isTab && GetPluginState().m_IsImportBusy == 0) {
        const RunningImport running;
        IgnoreFailure([&] { AskAndImport(file, dialog); });
        CloseImport();
    }
    return isTab ? 1 : 0;
}

bool ImportTabFile(const STR& path, STR& scorePath, const STR& settingsFolder) {
    std::optional<ScorePlace> place;
    for (int i = 0; i < kMostPlaces && (!place || place->IsTaken()); ++i) {
        place.emplace();
    }
    place->GetScore().SetTypeAndCreator("VELI", "VELE");
    scorePath = place->GetScore().GetPath();
    NodeAllocator::Reset();
    bool isConverted = false;
    IgnoreFailure([&] { isConverted = Convert(path, scorePath, settingsFolder); });
    NodeAllocator::Reset();
    return isConverted;
}

}  // namespace tabulorix
