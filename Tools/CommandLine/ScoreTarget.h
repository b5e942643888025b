// Where the score of one input goes.

#pragma once

#include "Arguments.h"
#include "InputFile.h"
#include "STR.h"

namespace tabulorix {

struct ScoreTarget {
    // File: the score replaces what is there, or is new. Stream: a device or pipe, which nothing
    // can replace, so the score is written into it.
    enum class Kind { File, Stream, StandardOutput };

    Kind m_Kind;
    STR m_ShownName;
    // The file itself behind links; the stream's path. Empty for standard output.
    STR m_Path;
    // The folder that the scores go into, to be made when it is missing; empty when none was named.
    STR m_Folder;
    // Below that folder, to be made too.
    STR m_Subfolder;
};

// How the score of song.tab is called: song.vif or song.tab.vif.
enum class ScoreName { Stem, WholeName };

// A folder is never given back: writing to it fails. `name` does not matter when the user gave one.
ScoreTarget ChooseScoreTarget(const Arguments& arguments, const InputFile& input, ScoreName name);

}  // namespace tabulorix
