// The real rhythm dialog, from the plug-in's resources.

#pragma once

#include "RhythmDialog.h"

namespace tabulorix {

class RhythmOptionsDialog : public RhythmDialog {
public:
    Answer Show(void* parentWindow, ImportOptions& options) override;
};

}  // namespace tabulorix
