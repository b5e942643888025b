#include "ScoreTarget.h"

#include "FileName.h"
#include "FileSystem.h"

namespace tabulorix {

namespace {

constexpr const char* kNameOfStandardInput = "stdin";

// The folder that the scores go into; empty when none was named.
STR ChooseFolder(const Arguments& arguments, const InputFile& input) {
    const STR& output = arguments.m_Output;
    const bool isOneOfSeveral =
        arguments.m_Files.size() > 1 || input.m_Origin != InputFile::Origin::Named;
    const bool isFolder =
        !output.IsEmpty() && (isOneOfSeveral || IsPathSeparator(output.View().back()) ||
                              GetPathKind(output) == PathKind::Folder);
    return isFolder ? output : STR();
}

STR NameScore(const STR& file, ScoreFormat format, ScoreName name) {
    const char* extension = GetExtension(format);
    return name == ScoreName::Stem ? ReplaceExtension(file, extension) : file + "." + extension;
}

STR ChoosePath(const STR& folder, const Arguments& arguments, const InputFile& input,
               ScoreName name) {
    const STR& file = input.m_Path;
    if (!folder.IsEmpty()) {
        const STR part =
            file == kStandardStream ? STR(kNameOfStandardInput) : STR(GetLastPart(file));
        return JoinPath(JoinPath(folder, input.m_Subfolder),
                        NameScore(part, arguments.m_Format, name));
    }
    return arguments.m_Output.IsEmpty() ? NameScore(file, arguments.m_Format, name)
                                        : arguments.m_Output;
}

}  // namespace

ScoreTarget ChooseScoreTarget(const Arguments& arguments, const InputFile& input, ScoreName name) {
    const STR& output = arguments.m_Output;
    if (output == kStandardStream || (output.IsEmpty() && input.m_Path == kStandardStream)) {
        return {ScoreTarget::Kind::StandardOutput, "standard output", {}, {}, {}};
    }
    const STR folder = ChooseFolder(arguments, input);
    const STR path = ChoosePath(folder, arguments, input, name);
    if (GetPathKind(path) == PathKind::Device) {
        return {ScoreTarget::Kind::Stream, path, path, {}, {}};
    }
    return {ScoreTarget::Kind::File, path, ResolveLinks(path), folder, input.m_Subfolder};
}

}  // namespace tabulorix
