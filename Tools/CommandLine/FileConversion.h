// Turns the files of one command line into scores, each from its path to its place.

#pragma once

#include <memory>
#include <set>

#include "Arguments.h"
#include "ConsoleOutput.h"
#include "FileSystem.h"
#include "ScoreTarget.h"
#include "TreeNode.h"

namespace tabulorix {

class FileConverter {
public:
    // Both must outlive this object.
    FileConverter(const Arguments& arguments, ConsoleOutput& output);

    // Converts one of the arguments' files and prints what there is to say. False when there is no
    // score, with the reason printed; an earlier score is then as it was. Throws ConverterCancelled
    // when the user wants the program to end.
    bool Convert(const STR& file);

private:
    // These throw Exception with the reason when it cannot be done.
    void ConvertFile(const STR& file);
    void CheckReplacesNothingNeeded(const ScoreTarget& target) const;
    STR WriteScore(const ScoreTarget& target, const STR& bytes);
    void WriteFile(const ScoreTarget& target, const STR& score);
    void WriteStream(const ScoreTarget& target, const STR& score);
    std::unique_ptr<TreeNode> MakeDocument();

    const Arguments& m_Arguments;
    ConsoleOutput& m_Output;
    std::unique_ptr<TreeNode> m_BlankScore;  // null before the first use
    std::set<FileIdentity> m_Inputs;
    std::set<FileIdentity> m_WrittenScores;
};

}  // namespace tabulorix
