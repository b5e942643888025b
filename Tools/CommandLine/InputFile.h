// One of the files that a run converts, and how it came to be one.

#pragma once

#include "STR.h"

namespace tabulorix {

struct InputFile {
    enum class Origin {
        Named,      // by the user
        FoundTab,   // in a folder, with the extension of a tab
        FoundText,  // in a folder, with the extension of any text: it may well be something else
    };

    STR m_Path;  // or "-" for standard input
    Origin m_Origin = Origin::Named;
    // Where the file lies below the folder that the user named; its score lies there below the
    // output. Empty for a file in that very folder, or named itself.
    STR m_Subfolder = {};
};

}  // namespace tabulorix
