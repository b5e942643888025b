#include <doctest/doctest.h>

#include <cfenv>

#include "Exceptions.h"
#include "HostCall.h"
#include "HostCallbacks.h"
#include "Messages.h"
#include "Plugin/ScriptedHost.h"
#include "PluginOutput.h"

namespace tabulorix {

TEST_CASE("A message is reported once for a file and place") {
    ScriptedHost host;
    host.Init();
    PluginOutput output("x", "T");
    const auto report = [&output](const char* text, int repeat = 0) {
        output.ReportResult(ResId(TABULORIX_MESSAGE_LINE_IGNORED), 4, text, repeat);
    };
    report("a");
    report("b");
    report("c", 1);
    output.SetLocation1(output.GetLocation1());
    report("d");
    output.SetLocation1(5);
    report("e");
    output.SetLocation2(6);
    report("f");
    output.SetLocation3(7);
    report("g");
    output.SetFileName("y");
    report("");
    CHECK(host.m_Log ==
          "result T x 4 -2 -2 a\nresult T x 4 -2 -2 c\nresult T x 4 5 -2 e\nresult T x 4 5 6 f\n"
          "result T y 4 5 6 " TABULORIX_TEXT_LINE_IGNORED "\n");

    // A new object has its own messages, and the values of before.
    PluginOutput next("z");
    CHECK(next.GetLocation1() == 5);
    CHECK(output.GetFileName() == "z");
}

TEST_CASE("A cancel is raised where a crash report expects it") {
    ScriptedHost host;
    host.Init();
    host.m_Script = [](std::string_view line) { return line.starts_with("update 3") ? 1 : 0; };
    PluginOutput output;
    output.SetProgress(30, "x");
    output.SetProgressText("y");
    CHECK(host.m_Log == "update 30x\nupdate 30y\n");
    CHECK_THROWS_AS(output.SetProgress(40, {}), ConverterCancelled);
    CHECK(GetLastThrowLocation().m_Source == std::string("PluginOutput"));
    CHECK_THROWS_AS(output.SetProgressText({}), ConverterCancelled);
}

TEST_CASE("The host finds its floating-point environment as it left it") {
    std::fenv_t before;
    std::fegetenv(&before);
    std::fesetround(FE_UPWARD);
    std::feraiseexcept(FE_INEXACT);
    {
        const PluginFloatingPoint plugin;
        std::feraiseexcept(FE_OVERFLOW);
        CallHost([] {
            CHECK(std::fegetround() == FE_UPWARD);
            CHECK(std::fetestexcept(FE_ALL_EXCEPT) == FE_INEXACT);
            return std::fesetround(FE_TOWARDZERO);
        });
        CHECK(std::fetestexcept(FE_ALL_EXCEPT) == 0);
    }
    CHECK(std::fegetround() == FE_TOWARDZERO);
    std::fesetenv(&before);
}

}  // namespace tabulorix
