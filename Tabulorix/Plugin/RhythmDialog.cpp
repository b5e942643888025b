#include "RhythmDialog.h"

#include "PluginState.h"

namespace tabulorix {

bool AskForRhythms(RhythmDialog& dialog, void* parentWindow, const STR& settingsFolder) {
    const FileName file = GetOptionFile(settingsFolder);
    ImportOptions options(file);
    if (!GetPluginState().m_ShowsRhythmDialog) {
        return true;
    }
    const RhythmDialog::Answer answer = dialog.Show(parentWindow, options);
    if (answer.m_IsConfirmed) {
        GetPluginState().m_ShowsRhythmDialog = !answer.m_DontShowAgain;
        // Where it cannot be saved, the import goes on with what the file says.
        options.Save();
    }
    return answer.m_IsConfirmed;
}

}  // namespace tabulorix
