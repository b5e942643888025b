// A run over whole folders: many files, of which only those that were not converted are worth a
// line each, and a closing table:
//
//     converted             1204
//       with lines left out  312
//     not a tab               35
//       too few dashes        30
//       not text               5
//     without a stave         12
//     failed                   2

#pragma once

#include "Arguments.h"
#include "ConsoleOutput.h"

namespace tabulorix {

// Converts the named files and the tab files of the named folders, then prints the table, which
// comes too when an end of the program was asked for. True when everything was converted; a file
// that was only tried, and is no tab, does not count.
bool ConvertFolders(const Arguments& arguments, ConsoleOutput& output);

}  // namespace tabulorix
