#include "TabRecognition.h"
#include "TestSupport.h"

namespace tabulorix {

TEST_CASE("A file is tablature when it is text and one line holds more than ten dashes") {
    const std::string line = "-----------\n";
    const auto pad = [&line](std::size_t textCount, std::string_view noise) {
        return Cat(line, std::string(textCount, '~'), noise);
    };
    // The most dashes on a line and the percentage of text bytes, "!" for a tab.
    const Cases cases = {{"", "0 0"},
                         {"words\n" + line + "words", "11 100!"},
                         {"\t- - - - - - - - - - -", "11 100!"},
                         {"----------\n----------\r----------", "10 100"},
                         {pad(83, "\xE9\x1F\x0B\x7F\x80"), "11 95!"},
                         {pad(82, "\x01\x08\x0E\x1B\xFE\xFF"), "11 94"},
                         // The share is rounded down.
                         {pad(938, std::string(51, '\0')), "11 94"}};
    CheckEach(cases, [](const std::string& bytes) {
        const TabRecognition found = RecognizeTab(bytes);
        return Cat(found.m_MostDashesOnLine, ' ', found.GetTextPercent(), found.IsTab() ? "!" : "");
    });
    const TabRecognition beyondTwoGigabytes{3'000'000'000, 2'850'000'000, 11};
    CHECK(beyondTwoGigabytes.IsTab());
}

}  // namespace tabulorix
