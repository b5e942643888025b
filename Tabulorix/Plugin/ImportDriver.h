// One import, from the path that the host opens to the score that it loads.

#pragma once

#include "RhythmDialog.h"
#include "STR.h"

namespace tabulorix {

// The work of VEL_OPENFILE: 1 when the file is a tab, whatever becomes of its import, else 0. Also
// 0 for a null path. During a conversion, from inside a function of the host, nothing is imported.
// Throws only when memory runs out before the import has begun.
int OpenTabFile(const char* path, RhythmDialog& dialog);

// Converts the file into a score in the system's temporary folder, with the options of the settings
// folder. True when the score is there to be loaded and deleted. Never throws for a conversion that
// fails or is cancelled; throws FileOpenWriteFailedException when there is no temporary folder.
//
// `scorePath` receives the path of the score in either case: a score without bars is written too,
// and stays.
bool ImportTabFile(const STR& path, STR& scorePath, const STR& settingsFolder);

}  // namespace tabulorix
