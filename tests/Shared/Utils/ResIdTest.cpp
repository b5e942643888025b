#include <doctest/doctest.h>

#include <string>

#include "Log.h"
#include "Messages.h"
#include "ResId.h"

namespace tabulorix {

namespace {

std::string g_Logged;

void Keep(LogKind kind, std::string_view text) {
    g_Logged += kind == LogKind::Debug ? "debug: " : "error: ";
    g_Logged += text;
}

}  // namespace

TEST_CASE("Strings and the blank score are found by id, and a missing string is logged") {
    g_Logged.clear();
    const LogSink before = SetLogSink(Keep);
    CHECK(ResId(TABULORIX_MESSAGE_LINE_IGNORED).GetString() == TABULORIX_TEXT_LINE_IGNORED);
    CHECK(
        STR(ResId(TABULORIX_MESSAGE_LINES_IGNORED), "3", "12") ==
        "Lines 3 to 12 inclusive don't seem to be part of a real stave so they have been ignored");
    CHECK(ResId(100).GetResource("TREENODE").starts_with("\xFF\xFE"));
    CHECK(g_Logged.empty());

    CHECK(ResId(100).GetResource("DIALOGUE").empty());
    CHECK(ResId(99).GetString().IsEmpty());
    CHECK(g_Logged == "debug: ResId::GetString failed to load string with ID 99\n");
    SetLogSink(before);
}

}  // namespace tabulorix
