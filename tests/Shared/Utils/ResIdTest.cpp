#include "ResId.h"
#include "TestSupport.h"

namespace tabulorix {

TEST_CASE("A missing string is empty and logged") {
    LogRecorder log;
    CHECK(ResId(99).GetString().IsEmpty());
    CHECK(log.Take() == "debug: ResId::GetString failed to load string with ID 99\n");
    CHECK(ResId(100).GetResource("DIALOGUE").empty());
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
