// The whole way from a tablature file to a score file.

#pragma once

#include <string_view>

#include "PluginOutput.h"
#include "RhythmLevel.h"
#include "STR.h"
#include "TreeNode.h"

namespace tabulorix {

// What a conversion found, for a line to the user.
struct ConversionSummary {
    bool m_IsBass = false;
    int m_StaveCount = 0;  // of the tab; the score has one stave
    int m_BarCount = 0;    // of the score
    int m_NoteCount = 0;   // tied notes count once
    // Where the rhythms come from, which may be both; neither when they are not shown.
    bool m_HasIndicatedRhythms = false;
    bool m_HasSpacedRhythms = false;
};

class Converter {
public:
    // The output must outlive the converter. It receives the progress (0, 10, 20 to 80 percent,
    // with empty captions) and the messages about dropped lines.
    Converter(PluginOutput& output, RhythmLevel level) : m_Output(output), m_Level(level) {}

    // Converts the file at `inputPath` into the blank score `document` and writes that to a new
    // file at `scorePath`, also when the tab has no bars. True when it has some, and also, with
    // nothing written, when the document has no place for music.
    //
    // A file that cannot be opened reads as an empty text. Throws ConverterCancelled when the user
    // cancels, and FileSaveFailedException when the score cannot be written completely, also when
    // something is at its path already; an incomplete file is removed before.
    bool Convert(const STR& inputPath, TreeNode& document, const STR& scorePath);

    // The same for text that is in memory already, byte for byte as in a file.
    bool ConvertText(std::string_view bytes, TreeNode& document, const STR& scorePath);
    // The same without writing the score: the document is filled only.
    bool FillScore(std::string_view bytes, TreeNode& document);

    // Of the last conversion; all zero when the document had no place for music.
    const ConversionSummary& GetSummary() const noexcept { return m_Summary; }

private:
    PluginOutput& m_Output;
    RhythmLevel m_Level;
    ConversionSummary m_Summary;
};

}  // namespace tabulorix
