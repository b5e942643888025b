// Tabs of any length to measure with: the example tabs over and over, so that all that real tabs
// hold is there in its usual share.

#pragma once

#include <string>

namespace tabulorix {

// The first `lineCount` lines of the repeated examples. Throws Exception when there are none.
std::string MakeSampleTab(int lineCount);

}  // namespace tabulorix
