#include "FileConversion.h"

#include "Converter.h"
#include "Exceptions.h"
#include "FileName.h"
#include "ScoreTemplate.h"
#include "TabRecognition.h"
#include "TemporaryFile.h"

namespace tabulorix {

namespace {

// Scores grow far beyond their texts.
constexpr int kMostScoreBytes = INT_MAX / 2;

[[noreturn]] void Refuse(const STR& reason) {
    RecordThrowLocation("FileConversion", __LINE__);
    throw Exception(reason);
}

void Require(const FileResult& result, const STR& what) {
    if (!result.Succeeded()) {
        Refuse(what + ": " + result.m_Error);
    }
}

// Byte counts of inputs fit into an int.
STR Number(std::int64_t value) {
    return STR::FromInt(static_cast<int>(value));
}

STR Count(int count, const char* noun) {
    return STR::FromInt(count) + " " + noun + (count == 1 ? "" : "s");
}

STR ReadInput(const STR& file) {
    FileContents contents = file == kStandardStream ? ReadStandardInput() : ReadWholeFile(file);
    Require(contents.m_Result, "cannot be read");
    return contents.m_Bytes;
}

void CheckIsTab(std::string_view bytes) {
    const TabRecognition found = RecognizeTab(bytes);
    if (found.IsTab()) {
        return;
    }
    if (bytes.empty()) {
        Refuse("not a tab: it is empty");
    }
    STR reason = "not a tab: ";
    if (!found.HasStringLine()) {
        reason = reason + "no line has more than " + Number(TabRecognition::kMostDashesInProse) +
                 " dashes (the most is " + Number(found.m_MostDashesOnLine) + ")";
    }
    if (!found.IsText()) {
        reason = reason + (found.HasStringLine() ? "" : ", and ") + "only " +
                 Number(found.GetTextPercent()) + " % of its bytes are text (" +
                 Number(found.m_TextByteCount) + " of " + Number(found.m_ByteCount) +
                 "; at least " + Number(TabRecognition::kLeastTextPercent) + " % must be)";
    }
    Refuse(reason);
}

const char* Describe(RhythmSource source) {
    switch (source) {
        case RhythmSource::RhythmLine:
            return "rhythms from a rhythm line";
        case RhythmSource::Spacing:
            return "rhythms from spacing";
        case RhythmSource::RhythmLineAndSpacing:
            return "rhythms from a rhythm line and from spacing";
        case RhythmSource::NotShown:
            break;
    }
    return "rhythms not shown";
}

STR Describe(const ConversionSummary& summary) {
    return STR(summary.m_IsBass ? "bass" : "guitar") + ", " + Count(summary.m_StaveCount, "stave") +
           ", " + Count(summary.m_BarCount, "bar") + ", " + Count(summary.m_NoteCount, "note") +
           ", " + Describe(summary.m_RhythmSource);
}

}  // namespace

FileConverter::FileConverter(const Arguments& arguments, ConsoleOutput& output)
    : m_Arguments(arguments), m_Output(output) {
    for (const STR& file : arguments.m_Files) {
        m_Inputs.insert(GetFileIdentity(file));
    }
}

bool FileConverter::Convert(const STR& file) {
    m_Output.StartFile(file == kStandardStream ? STR("standard input") : file);
    try {
        ConvertFile(file);
        return true;
    } catch (const ConverterCancelled&) {
        throw;
    } catch (const OutOfMemoryException&) {
        m_Output.PrintError("there is not enough memory for it");
    } catch (const Exception& failure) {
        m_Output.PrintError(failure.GetText());
    }
    return false;
}

void FileConverter::ConvertFile(const STR& file) {
    const ScoreTarget target = ChooseScoreTarget(m_Arguments, file);
    CheckReplacesNothingNeeded(target);
    const STR bytes = ReadInput(file);
    CheckIsTab(bytes);
    const STR description = WriteScore(target, bytes);
    m_Output.PrintSummary(STR(" -> ") + target.m_ShownName + ": " + description);
}

void FileConverter::CheckReplacesNothingNeeded(const ScoreTarget& target) const {
    const FileIdentity replaced = GetFileIdentity(target.m_Path);
    if (target.m_Kind != ScoreTarget::Kind::File || replaced == FileIdentity()) {
        return;
    }
    if (m_Inputs.contains(replaced)) {
        Refuse(STR("its score would replace the input file ") + target.m_ShownName);
    }
    if (m_WrittenScores.contains(replaced)) {
        Refuse(STR("its score would replace the one just written to ") + target.m_ShownName);
    }
}

// Gives back the description of what was found.
STR FileConverter::WriteScore(const ScoreTarget& target, const STR& bytes) {
    const bool isFile = target.m_Kind == ScoreTarget::Kind::File;
    Converter converter(m_Output, m_Arguments.m_RhythmLevel);
    FileContents score;
    if (!target.m_Folder.IsEmpty() && GetPathKind(target.m_Folder) == PathKind::Nothing) {
        Require(MakeFolder(target.m_Folder), STR("cannot make the folder ") + target.m_Folder);
    }
    {
        TemporaryFile temporary(isFile ? STR(GetFolderPart(target.m_Path)) : GetTemporaryFolder());
        const std::unique_ptr<TreeNode> document = MakeDocument();
        converter.ConvertText(bytes, *document, temporary.GetPath());
        if (converter.GetSummary().m_StaveCount == 0) {
            Refuse("there is no tab stave in it, so it has no score");
        }
        m_Output.SetProgress(100, {});
        if (isFile) {
            Require(temporary.MoveTo(target.m_Path), STR("cannot write ") + target.m_ShownName);
            m_WrittenScores.insert(GetFileIdentity(target.m_Path));
        } else {
            score = ReadWholeFile(temporary.GetPath(), kMostScoreBytes);
        }
    }
    // A reader may take its time: without a file to remove, an interrupt ends the program at once.
    Require(score.m_Result, "cannot read the score again");
    if (!isFile) {
        const bool isStream = target.m_Kind == ScoreTarget::Kind::Stream;
        Require(isStream ? WriteWholeFile(target.m_Path, score.m_Bytes)
                         : WriteStandardOutput(score.m_Bytes),
                STR("cannot write ") + target.m_ShownName);
    }
    return Describe(converter.GetSummary());
}

// Parsed once for all files; a single file takes the blank score itself.
std::unique_ptr<TreeNode> FileConverter::MakeDocument() {
    if (m_BlankScore == nullptr) {
        m_BlankScore = CreateBlankScore();
    }
    if (m_BlankScore == nullptr) {
        Refuse("the program's blank score is missing");
    }
    if (m_Arguments.m_Files.size() == 1) {
        return std::move(m_BlankScore);
    }
    return std::make_unique<TreeNode>(*m_BlankScore);
}

}  // namespace tabulorix
