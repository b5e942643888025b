#include <doctest/doctest.h>

#include <string>

#include "TabRecognition.h"

namespace tabulorix {

namespace {

std::string Repeat(const std::string& text, int count) {
    std::string repeated;
    for (int i = 0; i < count; ++i) {
        repeated += text;
    }
    return repeated;
}

struct Case {
    const char* m_Name;
    std::string m_Bytes;
    int m_Dashes;
    int m_Percent;
    bool m_IsTab;
};

}  // namespace

TEST_CASE("A file is tablature when it is text and one line holds more than ten dashes") {
    const std::string line = "-----------\n";
    const Case cases[] = {
        {"nothing", "", 0, 0, false},
        {"a line of eleven among prose", "words\n" + line + "words", 11, 100, true},
        {"dashes with others between", Repeat("- ", 11), 11, 100, true},
        {"ten on each line", "----------\n----------\r----------", 10, 100, false},
        {"CR ends a line", "------\r------", 6, 100, false},
        {"five bytes of a hundred are not text", line + Repeat("a", 83) + Repeat("\xE9", 5), 11, 95,
         true},
        {"six bytes of a hundred are not text", line + Repeat("a", 82) + Repeat("\x01", 6), 11, 94,
         false},
        {"the share is rounded down", line + Repeat("a", 938) + Repeat("\x7F", 51), 11, 94, false},
        {"NUL is not text", line + std::string(4, '\0'), 11, 75, false},
        {"TAB is text", "\t\t" + line, 11, 100, true},
    };
    for (const Case& c : cases) {
        CAPTURE(c.m_Name);
        const TabRecognition found = RecognizeTab(c.m_Bytes);
        CHECK(found.m_MostDashesOnLine == c.m_Dashes);
        CHECK(found.GetTextPercent() == c.m_Percent);
        CHECK(found.IsTab() == c.m_IsTab);
    }
}

TEST_CASE("The share of text bytes is right for files beyond 2 GB") {
    const TabRecognition large{3'000'000'000, 2'850'000'000, 11};
    CHECK(large.GetTextPercent() == 95);
    CHECK(large.IsTab());
}

}  // namespace tabulorix
