#include "Messages.h"
#include "ResId.h"
#include "TestSupport.h"

namespace tabulorix {

TEST_CASE("Strings and the blank score are found by id, and a missing string is logged") {
    LogRecorder log;
    CHECK(ResId(TABULORIX_MESSAGE_LINE_IGNORED).GetString() == TABULORIX_TEXT_LINE_IGNORED);
    CHECK(
        STR(ResId(TABULORIX_MESSAGE_LINES_IGNORED), "3", "12") ==
        "Lines 3 to 12 inclusive don't seem to be part of a real stave so they have been ignored");
    CHECK(ResId(100).GetResource("TREENODE").starts_with("\xFF\xFE"));
    CHECK(log.Take().empty());

    CHECK(ResId(100).GetResource("DIALOGUE").empty());
    CHECK(ResId(99).GetString().IsEmpty());
    CHECK(log.Take() == "debug: ResId::GetString failed to load string with ID 99\n");
}

TEST_CASE("A text that grows leaves its copies as they are") {
    STR text("ab");
    text += "c";  // now there is room for more
    const STR copy(text);
    text += "d";
    text += text.View().substr(2);
    CHECK(copy == "abc");
    CHECK(text == "abcdcd");
}

}  // namespace tabulorix
