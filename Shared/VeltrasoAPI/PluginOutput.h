// The one object through which a conversion talks to the user.
//
// It moves the progress display, notices when the user cancels, and sends lines to the results
// list. The plug-in answers to the host's display and list; a command line has its own.

#pragma once

#include "ResId.h"
#include "STR.h"

namespace tabulorix {

class PluginOutput {
public:
    // What the host is told about a message of the analysis; the host gives it its meaning.
    static constexpr int kResultKindWarning = 4;

    virtual ~PluginOutput() = default;

    // `percent` is 0 to 100; the caption may be empty. Raises ConverterCancelled when the user has
    // cancelled.
    virtual void SetProgress(int percent, const STR& caption) = 0;

    // Sends `text` to the results list, or the message's own string when the text is empty. Each
    // message id is sent once for a file, unless `repeat` is not 0.
    virtual void ReportResult(const ResId& message, int kind, const STR& text, int repeat) = 0;
};

}  // namespace tabulorix
