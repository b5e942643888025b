// The blank score as a tree, read from UTF-16 and written as 8-bit text, beside the same tree as
// XML in the same encodings; and the same bytes copied, which nothing can be faster than.

#include <benchmark/benchmark.h>

#include <memory>
#include <sstream>
#include <string>

#include "ResId.h"
#include "ScoreTemplate.h"
#include "ScratchFile.h"
#include "XmlTree.h"

namespace tabulorix {

namespace {

struct Documents {
    std::unique_ptr<TreeNode> m_Tree = CreateBlankScore();
    pugi::xml_document m_Xml;
    std::string m_Utf16Xml;
    STR m_Text;

    Documents() {
        FillXml(m_Xml, *m_Tree);
        std::ostringstream utf16;
        m_Xml.save(utf16, "", pugi::format_raw | pugi::format_write_bom, pugi::encoding_utf16_le);
        m_Utf16Xml = utf16.str();
        m_Tree->WriteText(m_Text, 0);
    }
};

Documents& GetDocuments() {
    static Documents documents;
    return documents;
}

void ReadTree(benchmark::State& state) {
    for (auto _ : state) {
        std::unique_ptr<TreeNode> tree = CreateBlankScore();
        state.PauseTiming();
        tree.reset();
        state.ResumeTiming();
    }
}

void ReadXml(benchmark::State& state) {
    const std::string& bytes = GetDocuments().m_Utf16Xml;
    for (auto _ : state) {
        auto document = std::make_unique<pugi::xml_document>();
        benchmark::DoNotOptimize(document->load_buffer(bytes.data(), bytes.size()));
        state.PauseTiming();
        document.reset();
        state.ResumeTiming();
    }
}

void WriteTree(benchmark::State& state) {
    const ScratchFile file;
    for (auto _ : state) {
        if (!GetDocuments().m_Tree->WriteToFile(file.GetPath())) {
            state.SkipWithError("the file cannot be written");
        }
    }
}

void WriteXml(benchmark::State& state) {
    const ScratchFile file;
    for (auto _ : state) {
        if (!GetDocuments().m_Xml.save_file(file.GetPath().GetText())) {
            state.SkipWithError("the file cannot be written");
        }
    }
}

void FreeTree(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        std::unique_ptr<TreeNode> tree = CreateBlankScore();
        state.ResumeTiming();
        tree.reset();
    }
}

// What the memory and the file alone cost: every byte of the resource seen once and the text's
// bytes written.
void CopyBytes(benchmark::State& state) {
    const ScratchFile file;
    const Documents& documents = GetDocuments();
    for (auto _ : state) {
        const STR copy(ResId(100).GetResource("TREENODE"));
        benchmark::DoNotOptimize(copy.GetText());
        benchmark::DoNotOptimize(WriteWholeFile(file.GetPath(), documents.m_Text.View()));
    }
}

BENCHMARK(ReadTree)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadXml)->Unit(benchmark::kMicrosecond);
BENCHMARK(WriteTree)->Unit(benchmark::kMicrosecond);
BENCHMARK(WriteXml)->Unit(benchmark::kMicrosecond);
BENCHMARK(FreeTree)->Unit(benchmark::kMicrosecond);
BENCHMARK(CopyBytes)->Unit(benchmark::kMicrosecond);

}  // namespace

}  // namespace tabulorix
