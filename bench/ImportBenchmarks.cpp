// The stages of an import, and the whole of it, for tabs of three lengths.

#include <benchmark/benchmark.h>

#include <memory>

#include "Converter.h"
#include "SampleTab.h"
#include "ScoreGeneration.h"
#include "ScoreTemplate.h"
#include "ScratchFile.h"

namespace tabulorix {

namespace {

struct SilentOutput : PluginOutput {
    void SetProgress(int, const STR&) override {}
    void ReportResult(const ResId&, int, const STR&, int) override {}
};

int GetLineCount(const benchmark::State& state) {
    return static_cast<int>(state.range(0));
}

void Parse(benchmark::State& state) {
    const std::string bytes = MakeSampleTab(GetLineCount(state));
    SilentOutput output;
    for (auto _ : state) {
        const TabText text(bytes, output);
        const TabAnalysis analysis(text);
        benchmark::DoNotOptimize(analysis.GetStaves().data());
    }
}

void Generate(benchmark::State& state) {
    const std::string bytes = MakeSampleTab(GetLineCount(state));
    SilentOutput output;
    const TabText text(bytes, output);
    const TabAnalysis analysis(text);
    for (auto _ : state) {
        state.PauseTiming();
        std::unique_ptr<TreeNode> score = CreateBlankScore();
        ScoreGeneration generation(analysis, RhythmLevel::WhenIndicated, output);
        state.ResumeTiming();
        generation.GenerateScore(*score);
        state.PauseTiming();
        state.counters["notes"] = generation.GetNoteCount();
        score.reset();
        state.ResumeTiming();
    }
}

void Import(benchmark::State& state) {
    const std::string bytes = MakeSampleTab(GetLineCount(state));
    SilentOutput output;
    const ScratchFile file;
    for (auto _ : state) {
        state.PauseTiming();
        RemoveFile(file.GetPath());
        state.ResumeTiming();
        const std::unique_ptr<TreeNode> score = CreateBlankScore();
        Converter(output, RhythmLevel::WhenIndicated).ConvertText(bytes, *score, file.GetPath());
    }
}

void AllLengths(benchmark::internal::Benchmark* benchmark) {
    benchmark->Unit(benchmark::kMicrosecond)->Arg(100)->Arg(5000)->Arg(100000);
}

BENCHMARK(Parse)->Apply(AllLengths);
BENCHMARK(Generate)->Apply(AllLengths);
BENCHMARK(Import)->Apply(AllLengths);

}  // namespace

}  // namespace tabulorix
