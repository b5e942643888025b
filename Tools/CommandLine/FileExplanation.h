// Shows how the files of one command line were read, instead of converting them.

#pragma once

#include "Arguments.h"
#include "ConsoleOutput.h"

namespace tabulorix {

// Explains the files in turn, all into one output: the named one, or standard output. False when a
// file could not be read or the output not be written, with the reason printed. A file that is no
// tab is explained too.
bool ExplainFiles(const Arguments& arguments, ConsoleOutput& output);

}  // namespace tabulorix
