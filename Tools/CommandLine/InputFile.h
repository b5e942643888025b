// The inputs of a run: what their paths stand for, and how each came to be one.

#pragma once

#include "FileSystem.h"
#include "STR.h"

namespace tabulorix {

// Stands for standard input among the inputs, and for standard output as the output.
constexpr const char* kStandardStream = "-";

// These take the path of an input, which may be "-".

bool IsFolder(const STR& path);
// As messages name it.
STR GetShownName(const STR& path);
FileContents ReadInput(const STR& path);

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
