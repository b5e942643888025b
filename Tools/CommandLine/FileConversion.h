// Turns the files of one run into scores, each from its path to its place.

#pragma once

#include <memory>
#include <set>
#include <vector>

#include "Arguments.h"
#include "ConsoleOutput.h"
#include "FileSystem.h"
#include "InputFile.h"
#include "ScoreTarget.h"
#include "TreeNode.h"

namespace tabulorix {

// What became of a file. All but the first mean that it has no score.
enum class Outcome { Converted, Empty, NotText, TooFewDashes, WithoutStave, Failed };

class FileConverter {
public:
    // `files` are all that will be converted: none of them is replaced by a score. Arguments and
    // output must outlive this object.
    FileConverter(const Arguments& arguments, const std::vector<InputFile>& files,
                  ConsoleOutput& output);

    // Converts one of the files and prints what there is to say: without a score the reason, unless
    // the file was only tried, and is no tab. An earlier score is then as it was. Throws
    // ConverterCancelled when the user wants the program to end.
    Outcome Convert(const InputFile& file);

private:
    // These throw Exception with the reason when it cannot be done.
    void ConvertFile(const InputFile& file);
    ScoreTarget ChooseTarget(const InputFile& file) const;
    void CheckReplacesNothingNeeded(const ScoreTarget& target) const;
    void WriteScore(const ScoreTarget& target, const TreeNode& document);
    void WriteFile(const ScoreTarget& target, const TreeNode& document);
    void WriteStream(const ScoreTarget& target, const TreeNode& document);
    std::unique_ptr<TreeNode> MakeDocument();

    const Arguments& m_Arguments;
    ConsoleOutput& m_Output;
    bool m_HasOneFile;
    std::unique_ptr<TreeNode> m_BlankScore;  // null before the first use
    std::set<FileIdentity> m_Inputs;
    std::set<FileIdentity> m_WrittenScores;
};

}  // namespace tabulorix
