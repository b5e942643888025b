// The tab files in a folder and everywhere below it.
//
// Taken for tab files are those with one of the extensions that the plug-in offers to its host
// (tab, btab, crd) in any case of letters. Most old tabs are called .txt, but so is everything else
// that goes with them: a .txt is tried, and nobody minds when it is no tab.
//
// What is hidden by a dot at the start of its name is left out: beside each file that was copied
// from some systems lies such a one, of the same extension and with no text in it. Links to folders
// are not followed.

#pragma once

#include <vector>

#include "InputFile.h"
#include "STR.h"

namespace tabulorix {

struct TabFolder {
    struct Failure {
        STR m_Folder;
        STR m_Reason;
    };

    // The files of a folder come before its folders, those with the extension tab first, then by
    // the bytes of their names: the same folder gives the same order everywhere.
    std::vector<InputFile> m_Files;
    // The folders that could not be read to their end.
    std::vector<Failure> m_Failures;
};

// Ends early when an end of the program was asked for.
TabFolder FindTabFiles(const STR& folder);

}  // namespace tabulorix
