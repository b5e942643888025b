#include <stdexcept>

#include "TestSupport.h"

namespace tabulorix {

TEST_CASE("Bytes become lines of columns") {
    const Cases cases = {{"", ";0"},
                         {"12345678\tx\n1234567\tx", "12345678        x;1234567 x;17"},
                         {"\r\n\ta\t\r\nb\n", ";        a       ;b;;16"},
                         {{"a\rb\r\r\nc\0\x1A\xE9\r", 11}, {"a\rb\r;c\0\x1A\xE9\r;5", 12}}};
    CheckEach(cases, [](const std::string& bytes) {
        RecordingOutput output;
        const TabText text(bytes, output);
        std::string lines;
        for (int line = 0; line < text.GetLineCount(); ++line) {
            lines += Cat(text.GetLine(line), ';');
        }
        return Cat(lines, text.GetMaxLineLength());
    });
}

TEST_CASE("Reading stays inside a line, and words are sought in a range that narrows") {
    RecordingOutput output;
    const TabText text("a RiFf\nrif riff\nrriff\nxxriffxx\nxxriffx\nxx", output);
    CHECK(Cat(text.GetChar(0, 5), text.GetChar(1, 0), text.FindChar(1, 4, 'r')) == "fr4");
    CHECK(text.GetChar(0, -1) + text.GetChar(0, 6) + text.GetChar(0, 7) + text.GetChar(0, 99) == 0);
    CHECK(text.FindChar(0, 0, 'x') + text.FindChar(0, 6, 'r') == -2);
    CHECK_THROWS_AS(text.GetChar(-1, 0), std::out_of_range);
    CHECK_THROWS_AS(text.GetLineLength(6), std::out_of_range);
    const auto find = [&text](int line) { return text.FindWord(line, line < 3 ? 0 : 2, "riff"); };
    CHECK(Join(std::vector<int>{0, 1, 2, 3, 4, 5}, find) == "2 4 -1 2 -1 -1");
}

}  // namespace tabulorix
