// The question, before an import, how rhythms are to be imported.

#pragma once

#include "ImportOptions.h"

namespace tabulorix {

class RhythmDialog {
public:
    struct Answer {
        bool m_IsConfirmed;    // false when the user cancelled, and when nothing could be shown
        bool m_DontShowAgain;  // of a confirmed answer
    };

    RhythmDialog() = default;
    RhythmDialog(const RhythmDialog&) = delete;
    RhythmDialog& operator=(const RhythmDialog&) = delete;
    virtual ~RhythmDialog() = default;

    // Comes back when the user has answered. Opens with the options' level, or with none chosen
    // when they hold no level, and saves the options on opening; a confirmed answer sets the level.
    // The parent is the host's window handle. The host's code may run meanwhile, and it may start
    // another import.
    virtual Answer Show(void* parentWindow, ImportOptions& options) = 0;
};

// Asks unless the user has asked not to be asked, and saves a confirmed answer in the settings
// folder. False when the user cancelled. Throws what ImportOptions throws.
bool AskForRhythms(RhythmDialog& dialog, void* parentWindow, const STR& settingsFolder);

}  // namespace tabulorix
