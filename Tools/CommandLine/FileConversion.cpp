#include "FileConversion.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <new>

#include "Converter.h"
#include "Exceptions.h"
#include "FileName.h"
#include "PrintableText.h"
#include "ScoreTemplate.h"
#include "TabRecognition.h"
#include "Terminal.h"
#include "Wording.h"

namespace tabulorix {

namespace {

constexpr const char* kNoMemory = "there is not enough memory for it";

// A file that was read and holds nothing to convert.
class NoTab : public Exception {
public:
    NoTab(Outcome outcome, const STR& reason) : Exception(reason), m_Outcome(outcome) {}
    Outcome GetOutcome() const noexcept { return m_Outcome; }

private:
    Outcome m_Outcome;
};

[[noreturn]] void RefuseAs(Outcome outcome, const STR& reason) {
    RecordThrowLocation("FileConversion", __LINE__);
    throw NoTab(outcome, reason);
}

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

void CheckIsTab(std::string_view bytes) {
    const TabRecognition found = RecognizeTab(bytes);
    if (found.IsTab()) {
        return;
    }
    if (bytes.empty()) {
        RefuseAs(Outcome::Empty, "not a tab: it is empty");
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
    RefuseAs(found.IsText() ? Outcome::TooFewDashes : Outcome::NotText, reason);
}

// Makes what is missing of a folder and of those below it.
void MakeFolders(const STR& folder, std::string_view subfolder) {
    STR path = folder;
    for (;;) {
        if (GetPathKind(path) == PathKind::Nothing) {
            Require(MakeFolder(path), STR("cannot make the folder ") + path);
        }
        if (subfolder.empty()) {
            return;
        }
        const auto end = std::find_if(subfolder.begin(), subfolder.end(), IsPathSeparator);
        const auto length = static_cast<std::size_t>(end - subfolder.begin());
        path = JoinPath(path, subfolder.substr(0, length));
        subfolder.remove_prefix(std::min(length + 1, subfolder.size()));
    }
}

STR Describe(const ConversionSummary& summary) {
    return STR(summary.m_IsBass ? "bass" : "guitar") + ", " + Count(summary.m_StaveCount, "stave") +
           ", " + Count(summary.m_BarCount, "bar") + ", " + Count(summary.m_NoteCount, "note") +
           ", " + DescribeRhythms(summary.m_HasIndicatedRhythms, summary.m_HasSpacedRhythms);
}

}  // namespace

FileConverter::FileConverter(const Arguments& arguments, const std::vector<InputFile>& files,
                             ConsoleOutput& output)
    : m_Arguments(arguments), m_Output(output), m_HasOneFile(files.size() == 1) {
    for (const InputFile& file : files) {
        m_Inputs.insert(GetFileIdentity(file.m_Path));
    }
}

Outcome FileConverter::Convert(const InputFile& file) {
    m_Output.StartFile(GetShownName(file.m_Path));
    try {
        ConvertFile(file);
        return Outcome::Converted;
    } catch (const NoTab& refusal) {
        if (file.m_Origin != InputFile::Origin::FoundText) {
            m_Output.PrintError(refusal.GetText());
        }
        return refusal.GetOutcome();
    } catch (const ConverterCancelled&) {
        throw;
    } catch (const std::bad_alloc&) {
        m_Output.PrintError(kNoMemory);
    } catch (const Exception& failure) {
        m_Output.PrintError(failure.GetText());
    } catch (const std::exception& failure) {
        m_Output.PrintError(failure.what());
    }
    return Outcome::Failed;
}

void FileConverter::ConvertFile(const InputFile& file) {
    const FileContents contents = ReadInput(file.m_Path);
    Require(contents.m_Result, "cannot be read");
    CheckIsTab(contents.m_Bytes);
    Converter converter(m_Output, m_Arguments.m_RhythmLevel);
    const std::unique_ptr<TreeNode> document = MakeDocument();
    converter.FillScore(contents.m_Bytes, *document);
    if (converter.GetSummary().m_StaveCount == 0) {
        RefuseAs(Outcome::WithoutStave, kNoStave);
    }
    const ScoreTarget target = ChooseTarget(file);
    CheckReplacesNothingNeeded(target);
    const STR summary =
        MakePrintable(STR(" -> ") + target.m_ShownName + ": " + Describe(converter.GetSummary()));
    WriteScore(target, *document);
    m_Output.PrintSummary(summary);
}

// One song as guitar tab, bass tab and chords has one name with three extensions.
ScoreTarget FileConverter::ChooseTarget(const InputFile& file) const {
    const ScoreTarget target = ChooseScoreTarget(m_Arguments, file, ScoreName::Stem);
    const bool isTaken = file.m_Origin != InputFile::Origin::Named &&
                         m_WrittenScores.contains(GetFileIdentity(target.m_Path));
    return isTaken ? ChooseScoreTarget(m_Arguments, file, ScoreName::WholeName) : target;
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

void FileConverter::WriteScore(const ScoreTarget& target, const TreeNode& document) {
    if (target.m_Kind == ScoreTarget::Kind::File) {
        WriteFile(target, document);
    } else {
        WriteStream(target, document);
    }
}

void FileConverter::WriteFile(const ScoreTarget& target, const TreeNode& document) {
    if (!target.m_Folder.IsEmpty()) {
        MakeFolders(target.m_Folder, target.m_Subfolder);
    }
    // A request to end the program is only noted while there may be a file to remove.
    const InterruptGuard guard;
    const STR folder = GetFolderPart(target.m_Path);
    NewFile score = NewFile::In(folder);
    Require(score.GetCreation(), STR("cannot make a file in ") +
                                     (folder.IsEmpty() ? STR("the current folder") : folder));
    const STR problem = STR("cannot write ") + target.m_ShownName;
    Require(WriteDocument(document, m_Arguments.m_Format, score), problem);
    m_Output.SetProgress(100, {});
    // Nothing can fail any more once the score has its place.
    std::set<FileIdentity> written = {GetFileIdentity(score.GetPath())};
    Require(score.MoveOver(target.m_Path), problem);
    m_WrittenScores.merge(written);
}

void FileConverter::WriteStream(const ScoreTarget& target, const TreeNode& document) {
    const STR score = ComposeDocument(document, m_Arguments.m_Format);
    m_Output.SetProgress(100, {});
    Require(target.m_Kind == ScoreTarget::Kind::Stream ? WriteWholeFile(target.m_Path, score)
                                                       : WriteStandardOutput(score),
            STR("cannot write ") + target.m_ShownName);
}

// Parsed once for all files; a single file takes the blank score itself.
std::unique_ptr<TreeNode> FileConverter::MakeDocument() {
    if (m_BlankScore == nullptr) {
        m_BlankScore = CreateBlankScore();
    }
    if (m_BlankScore == nullptr) {
        Refuse("the program's blank score is missing");
    }
    if (m_HasOneFile) {
        return std::move(m_BlankScore);
    }
    return std::make_unique<TreeNode>(*m_BlankScore);
}

}  // namespace tabulorix
