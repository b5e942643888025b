// What the summary of a score and the explanation of a tab say in the same words.

#pragma once

#include <string>
#include <string_view>

namespace tabulorix {

constexpr const char* kNoStave = "there is no tab stave in it, so it has no score";

// "1 bar", "2 bars"; with the ending "es", "2 dashes".
std::string Count(int count, std::string_view noun, std::string_view pluralEnding = "s");

// Where the rhythms of a score come from: "rhythms from spacing"; "rhythms not shown" for neither.
const char* DescribeRhythms(bool hasIndicated, bool hasSpaced) noexcept;

}  // namespace tabulorix
