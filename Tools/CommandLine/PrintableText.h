// Text from elsewhere, as it may be printed.

#pragma once

#include "STR.h"

namespace tabulorix {

// With a "?" for each control character: names of files may hold what a terminal obeys, and line
// ends, which would make one message look like two. Letters of all alphabets stay.
STR MakePrintable(const STR& text);

}  // namespace tabulorix
