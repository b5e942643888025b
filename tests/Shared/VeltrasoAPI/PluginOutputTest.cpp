#include <doctest/doctest.h>

#include <cfenv>
#include <string>

#include "Exceptions.h"
#include "HostCall.h"
#include "HostCallbacks.h"
#include "Messages.h"
#include "PluginOutput.h"

namespace tabulorix {

namespace {

std::string g_Texts;
int g_Going = 1;

int Report(const char*, const char*, int, int, int, const char* text) {
    g_Texts += std::string(text) + ".";
    return 1;
}

int Update(std::uintptr_t, int percent, const char* caption) {
    g_Texts += std::to_string(percent) + caption + ".";
    return g_Going;
}

int Ignore() {
    return 1;
}

class Module : public HostModule {
public:
    HostFunction FindFunction(const char* name) const noexcept override {
        const std::string_view sought = name;
        if (sought == "VEL_RESULTSDIALOGMESSAGE") {
            return reinterpret_cast<HostFunction>(Report);
        }
        return sought == "VEL_UPDATEPROGRESSDIALOG" ? reinterpret_cast<HostFunction>(Update)
                                                    : reinterpret_cast<HostFunction>(Ignore);
    }
};

}  // namespace

TEST_CASE("A message is reported once for a file and place") {
    GetHostCallbacks().Resolve(std::make_unique<Module>());
    g_Texts.clear();
    PluginOutput output;
    const ResId message(TABULORIX_MESSAGE_LINE_IGNORED);
    output.ReportResult(message, 4, "a", 0);
    output.ReportResult(message, 4, "b", 0);
    output.ReportResult(message, 4, "c", 1);
    output.SetLocation1(output.GetLocation1());
    output.ReportResult(message, 4, "d", 0);
    output.SetLocation1(5);
    output.ReportResult(message, 4, "e", 0);
    output.SetLocation2(5);
    output.ReportResult(message, 4, "f", 0);
    output.SetLocation3(5);
    output.ReportResult(message, 4, "g", 0);
    output.SetFileName("x");
    output.ReportResult(message, 4, "", 0);
    CHECK(g_Texts == std::string("a.c.e.f.") + TABULORIX_TEXT_LINE_IGNORED + ".");

    // A new object has its own messages, and the values of before.
    PluginOutput next("y");
    CHECK(next.GetLocation1() == 5);
    CHECK(output.GetFileName() == "y");
    next.SetLocation1(PluginOutput::kNoLocation);
    next.SetLocation2(PluginOutput::kNoLocation);
    GetHostCallbacks().Clear();
}

TEST_CASE("A cancel is raised where a crash report expects it") {
    GetHostCallbacks().Resolve(std::make_unique<Module>());
    g_Texts.clear();
    PluginOutput output;
    output.SetProgress(30, "x");
    output.SetProgressText("y");
    CHECK(g_Texts == "30x.30y.");
    g_Going = 0;
    CHECK_THROWS_AS(output.SetProgress(40, {}), ConverterCancelled);
    CHECK(GetLastThrowLocation().m_Source == std::string("PluginOutput"));
    CHECK(GetLastThrowLocation().m_Line == 152);
    g_Going = 1;
    GetHostCallbacks().Clear();
    CHECK_THROWS_AS(output.SetProgressText({}), ConverterCancelled);
    CHECK(GetLastThrowLocation().m_Line == 161);
}

TEST_CASE("The host finds its floating-point environment as it left it") {
    std::fenv_t before;
    std::fegetenv(&before);
    std::fesetround(FE_UPWARD);
    std::feraiseexcept(FE_INEXACT);
    {
        const PluginFloatingPoint plugin;
        CHECK(std::fetestexcept(FE_ALL_EXCEPT) == 0);
        std::fesetround(FE_DOWNWARD);
        CallHost([] {
            CHECK(std::fegetround() == FE_UPWARD);
            CHECK(std::fetestexcept(FE_INEXACT) != 0);
            return std::fesetround(FE_TOWARDZERO);
        });
        std::feraiseexcept(FE_OVERFLOW);
    }
    CHECK(std::fegetround() == FE_TOWARDZERO);
    CHECK(std::fetestexcept(FE_OVERFLOW) == 0);
    std::fesetenv(&before);
}

}  // namespace tabulorix
