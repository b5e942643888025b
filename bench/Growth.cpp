// Checks that cost grows in proportion to the input: for each of several kinds of extreme file, CPU
// time and peak memory at most 2.3-fold for twice the size, and 64 KB in 0.5 s and 64 MB. The
// process, with the blank score in it, is part of every figure.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <new>
#include <string>
#include <vector>

#include "Converter.h"
#include "Exceptions.h"
#include "MusicXml.h"
#include "ScoreTemplate.h"
#include "TreeNodeReader.h"

namespace tabulorix {

namespace {

constexpr double kMostGrowth = 2.3;
constexpr double kMostSeconds = 0.5;         // for the smallest size
constexpr double kMostMegabytes = 64.0;      // for the smallest size
constexpr unsigned kMostSecondsOfAll = 120;  // for any size, else it hangs
// In bytes. At the smallest one the fixed cost of a process is still a good part of all.
constexpr std::size_t kSizes[] = {64000, 256000, 512000, 1024000, 2048000};
constexpr std::size_t kFirstMeasured = 1;  // from here on for the growth
// On a busy machine; on one that is left alone, two are enough.
constexpr int kMostRounds = 20;
constexpr const char* kStave =
    "E|--0---2-|\nB|--1---3-|\nG|--2-----|\nD|--2-----|\nA|--0-----|\nE|--------|\n\n";

struct SilentOutput : PluginOutput {
    void SetProgress(int, const STR&) override {}
    void ReportResult(const ResId&, int, const STR&, int) override {}
};

std::string Repeat(std::size_t size, std::string_view part) {
    std::string text;
    while (text.size() < size) {
        text += part;
    }
    return text;
}

std::string RepeatNumbered(std::size_t size, std::string_view before, std::string_view after) {
    std::string text;
    for (int number = 1; text.size() < size; ++number) {
        text.append(before).append(std::to_string(number)).append(after);
    }
    return text;
}

// Texts of twenty pairs of words. Two pairs differ in bits that a product of a hash carries nowhere
// else, so that whoever mixes words by multiplication alone gives them all one number.
std::string MakeColliding(std::size_t size) {
    constexpr std::string_view kPairs[] = {"abcdefghijklmnop", "abcdefg\xE8ijk\xECmno\xF0"};
    std::string text = "A{";
    for (unsigned number = 0; text.size() < size; ++number) {
        text += "T\"";
        for (unsigned bit = 0; bit < 20; ++bit) {
            text += kPairs[number >> bit & 1U];
        }
        text += '"';
    }
    return text + "}";
}

// A stave of one bar as wide as it takes, below a line of `above` again and again.
std::string MakeWide(std::size_t size, std::string_view above, std::string_view music = "--3-") {
    const std::size_t width = size / (above.empty() ? 6 : 7);
    std::string text = above.empty() ? "" : Repeat(width, above) + "\n";
    for (const char* name : {"E|", "B|", "G|", "D|", "A|", "E|"}) {
        text += name + Repeat(width, music) + "|\n";
    }
    return text;
}

void Convert(const std::string& tab, RhythmLevel level) {
    SilentOutput output;
    const std::unique_ptr<TreeNode> score = CreateBlankScore();
    Converter(output, level).FillScore(tab, *score);
    STR text;
    score->WriteText(text, 0);
}

void ConvertAlways(const std::string& tab) {
    Convert(tab, RhythmLevel::Always);
}

void ConvertIndicated(const std::string& tab) {
    Convert(tab, RhythmLevel::WhenIndicated);
}

void ConvertToMusicXml(const std::string& tab) {
    SilentOutput output;
    const std::unique_ptr<TreeNode> score = CreateBlankScore();
    Converter(output, RhythmLevel::Always).FillScore(tab, *score);
    ComposeMusicXml(*score);
}

void ReadTreeText(const std::string& text) {
    STR written;
    TreeNodeReader(text).Read()->WriteText(written, 0);
}

struct Kind {
    const char* m_Name;
    std::function<std::string(std::size_t size)> m_Make;
    void (*m_Run)(const std::string& text);
    // How many times the usual sizes: what is fast needs more to be measurable, and enough to be
    // out of the processor's caches from the start.
    std::size_t m_Scale = 1;
};

const std::vector<Kind>& GetKinds() {
    static const std::vector<Kind> kKinds = {
        {"one long line", [](auto size) { return MakeWide(size, ""); }, ConvertAlways},
        {"rhythm marks", [](auto size) { return MakeWide(size, "  q "); }, ConvertIndicated},
        {"chords", [](auto size) { return MakeWide(size, "Am  "); }, ConvertAlways},
        {"staves", [](auto size) { return Repeat(size, kStave); }, ConvertAlways},
        {"labels", [](auto size) { return Repeat(size, "[Chorus]\n\n") + kStave; }, ConvertAlways},
        {"distinct texts",
         [](auto size) { return RepeatNumbered(size, "[Verse ", std::string("]\n") + kStave); },
         ConvertAlways},
        {"words like labels", [](auto size) { return Repeat(size, "rrif") + "\n" + kStave; },
         ConvertAlways},
        {"labels in a line", [](auto size) { return Repeat(size, "Riff    ") + "\n" + kStave; },
         ConvertAlways},
        {"long line, staves",
         [](auto size) { return std::string(size / 2, '-') + "\n\n" + Repeat(size / 2, kStave); },
         ConvertAlways},
        {"marks with dots", [](auto size) { return MakeWide(size, "E..."); }, ConvertIndicated},
        {"digits", [](auto size) { return MakeWide(size, "", "1200----"); }, ConvertAlways},
        {"bars", [](auto size) { return MakeWide(size, "3/4 ", "-2-|"); }, ConvertAlways},
        {"counts", [](auto size) { return MakeWide(size, "1+2+"); }, ConvertIndicated},
        {"dropped lines", [](auto size) { return kStave + Repeat(size, "\t--\n\n"); },
         ConvertAlways},
        {"prose", [](auto size) { return kStave + Repeat(size, "la la la la\n"); }, ConvertAlways},
        {"MusicXML: chords", [](auto size) { return MakeWide(size, "Am  "); }, ConvertToMusicXml},
        {"tree: distinct texts",
         [](auto size) { return "A{" + RepeatNumbered(size, "T\"", "\"") + "}"; }, ReadTreeText,
         16},
        {"tree: colliding texts", MakeColliding, ReadTreeText, 16},
        {"tree: siblings", [](auto size) { return "A{" + Repeat(size, "T\"1\"") + "}"; },
         ReadTreeText, 16},
        // As deep as half the size; written, each level would take as many tabs.
        {"tree: nesting", [](auto size) { return Repeat(size / 2, "A{") + Repeat(size / 4, "}"); },
         [](const std::string& text) { TreeNodeReader(text).Read(); }, 16},
    };
    return kKinds;
}

struct Cost {
    double m_Seconds = 0;
    double m_Megabytes = 0;
};

// What a process of its own takes for it.
Cost MeasureOnce(const Kind& kind, std::size_t size) {
    const pid_t child = fork();
    if (child == 0) {
        alarm(kMostSecondsOfAll);
        kind.m_Run(kind.m_Make(size));
        _exit(EXIT_SUCCESS);
    }
    int status = 0;
    rusage usage;
    if (child < 0 || wait4(child, &status, 0, &usage) < 0 || status != EXIT_SUCCESS) {
        std::printf("%s, %zu bytes: FAILED\n", kind.m_Name, size);
        std::exit(EXIT_FAILURE);
    }
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return {seconds(usage.ru_utime) + seconds(usage.ru_stime),
            static_cast<double>(usage.ru_maxrss) / 1024};
}

using Costs = std::array<Cost, std::size(kSizes)>;

// The mean growth with each doubling, of the CPU time and of the memory.
Cost GetGrowth(const Costs& costs) {
    constexpr double kDoublings = static_cast<double>(std::size(kSizes) - 1 - kFirstMeasured);
    const Cost& first = costs[kFirstMeasured];
    const Cost& last = costs.back();
    return {std::pow(last.m_Seconds / first.m_Seconds, 1 / kDoublings),
            std::pow(last.m_Megabytes / first.m_Megabytes, 1 / kDoublings)};
}

bool IsFine(const Costs& costs) {
    const Cost growth = GetGrowth(costs);
    return growth.m_Seconds <= kMostGrowth && growth.m_Megabytes <= kMostGrowth &&
           costs[0].m_Seconds <= kMostSeconds && costs[0].m_Megabytes <= kMostMegabytes;
}

// The least of as many measurements as are needed: what else the machine does can only add to it.
Costs Measure(const Kind& kind) {
    Costs least;
    for (int round = 0; round < kMostRounds && !(round > 0 && IsFine(least)); ++round) {
        for (std::size_t i = 0; i < least.size(); ++i) {
            const Cost cost = MeasureOnce(kind, kSizes[i] * kind.m_Scale);
            least[i] = {
                round == 0 ? cost.m_Seconds : std::min(least[i].m_Seconds, cost.m_Seconds),
                round == 0 ? cost.m_Megabytes : std::min(least[i].m_Megabytes, cost.m_Megabytes)};
        }
    }
    return least;
}

bool CheckKind(const Kind& kind) {
    const Costs costs = Measure(kind);
    std::printf("%-22s%3zu x", kind.m_Name, kind.m_Scale);
    for (const Cost& cost : costs) {
        std::printf("%8.3f s %5.0f MB", cost.m_Seconds, cost.m_Megabytes);
    }
    const Cost growth = GetGrowth(costs);
    const bool isFine = IsFine(costs);
    std::printf("  %5.2f %5.2f  %s\n", growth.m_Seconds, growth.m_Megabytes,
                isFine ? "fine" : "TOO MUCH");
    std::fflush(stdout);
    return isFine;
}

// The staves of a tall run of tab lines overlap, which makes it an exception: it may take more, but
// must end in a score or for want of memory.
bool CheckTallRun() {
    const pid_t child = fork();
    if (child == 0) {
        alarm(kMostSecondsOfAll);
        const rlimit limit = {512U << 20U, 512U << 20U};
        setrlimit(RLIMIT_AS, &limit);
        InstallAllocationFailureHandler();
        try {
            ConvertAlways(Repeat(50000, "-1--2-\n"));
        } catch (const std::bad_alloc&) {
            _exit(EXIT_SUCCESS);
        }
        _exit(EXIT_SUCCESS);
    }
    int status = 0;
    const bool isFine = child > 0 && waitpid(child, &status, 0) == child && status == EXIT_SUCCESS;
    std::printf("%-22s%s\n", "a tall run in 512 MB", isFine ? "ends cleanly" : "FAILED");
    return isFine;
}

int CheckAll() {
    std::printf("%-27s", "");
    for (const std::size_t size : kSizes) {
        std::printf("%15zu KB", size / 1000);
    }
    std::printf("  growth\n");
    bool isFine = true;
    for (const Kind& kind : GetKinds()) {
        isFine = CheckKind(kind) && isFine;
    }
    return CheckTallRun() && isFine ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

}  // namespace tabulorix

int main() {
    return tabulorix::CheckAll();
}
