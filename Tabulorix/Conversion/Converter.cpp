#include "Converter.h"

#include "FileSystem.h"
#include "ScoreGeneration.h"
#include "ScoreTemplate.h"
#include "TabAnalysis.h"

namespace tabulorix {

namespace {

// The steps of the progress display, in percent.
constexpr int kTextRead = 0;
constexpr int kTextAnalysed = 10;
constexpr int kScorePrepared = 20;
constexpr int kScoreGenerated = 80;

// Nobody may be given half a score, nor is it written over anything.
void WriteScore(const TreeNode& document, const STR& scorePath) {
    const FileResult written = document.WriteToNewFile(scorePath);
    if (!written) {
        RecordThrowLocation("Converter", __LINE__);
        throw FileSaveFailedException(STR("Could not write the score file ") + scorePath + ": " +
                                      written.m_Error);
    }
}

}  // namespace

bool Converter::Convert(const STR& inputPath, TreeNode& document, const STR& scorePath) {
    return ConvertText(ReadWholeFile(inputPath).m_Bytes, document, scorePath);
}

bool Converter::ConvertText(std::string_view bytes, TreeNode& document, const STR& scorePath) {
    const bool result = FillScore(bytes, document);
    if (GetMusic(document) != nullptr) {
        WriteScore(document, scorePath);
    }
    return result;
}

bool Converter::FillScore(std::string_view bytes, TreeNode& document) {
    m_Summary = {};
    const TabText text(bytes, m_Output);
    m_Output.SetProgress(kTextRead, {});
    const TabAnalysis analysis(text);
    m_Output.SetProgress(kTextAnalysed, {});
    if (GetMusic(document) == nullptr) {
        return true;
    }
    m_Output.SetProgress(kScorePrepared, {});
    ScoreGeneration generation(analysis, m_Level, m_Output);
    const bool hasBars = generation.GenerateScore(document);
    m_Summary = {.m_IsBass = generation.IsBass(),
                 .m_StaveCount = static_cast<int>(analysis.GetStaves().size()),
                 .m_BarCount = generation.GetBarCount(),
                 .m_NoteCount = generation.GetNoteCount(),
                 .m_HasIndicatedRhythms = generation.HasIndicatedRhythms(),
                 .m_HasSpacedRhythms = generation.HasSpacedRhythms()};
    m_Output.SetProgress(kScoreGenerated, {});
    return hasBars;
}

}  // namespace tabulorix
