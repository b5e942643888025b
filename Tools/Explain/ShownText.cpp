#include "ShownText.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "Utf8.h"

namespace tabulorix {

namespace {

constexpr std::uint32_t kDelete = 0x7F;
constexpr std::uint32_t kPictureOfNul = 0x2400;
constexpr std::uint32_t kPictureOfDelete = 0x2421;
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
constexpr std::string_view kFiller = "\xC2\xB7";

struct CodeRange {
    std::uint32_t m_First;
    std::uint32_t m_Last;
};

// Controls, combining marks, marks of direction, joiners, and what is for private use.
constexpr std::array<CodeRange, 17> kNotShown = {{{0x80, 0x9F},
                                                  {0xAD, 0xAD},
                                                  {0x300, 0x36F},
                                                  {0x61C, 0x61C},
                                                  {0x180B, 0x180F},
                                                  {0x1AB0, 0x1AFF},
                                                  {0x1DC0, 0x1DFF},
                                                  {0x200B, 0x200F},
                                                  {0x2028, 0x202E},
                                                  {0x2060, 0x206F},
                                                  {0x20D0, 0x20FF},
                                                  {0xD800, 0xF8FF},
                                                  {0xFE00, 0xFE0F},
                                                  {0xFE20, 0xFE2F},
                                                  {0xFEFF, 0xFEFF},
                                                  {0xFFF0, 0xFFFF},
                                                  {0xE0000, 0x10FFFF}}};

// Two columns wide on the screen: the scripts of East Asia, and pictures.
constexpr std::array<CodeRange, 8> kWide = {{{0x1100, 0x115F},
                                             {0x2E80, 0xA4CF},
                                             {0xAC00, 0xD7A3},
                                             {0xF900, 0xFAFF},
                                             {0xFE30, 0xFE6F},
                                             {0xFF00, 0xFF60},
                                             {0x1F300, 0x1FAFF},
                                             {0x20000, 0x3FFFD}}};

template <std::size_t kCount>
bool IsIn(const std::array<CodeRange, kCount>& ranges, std::uint32_t code) {
    return std::any_of(ranges.begin(), ranges.end(), [code](const CodeRange& range) {
        return code >= range.m_First && code <= range.m_Last;
    });
}

// `bytes` are those of the character, or the one byte of Latin-1.
void AppendShown(std::string& shown, const Utf8Character& character, std::string_view bytes) {
    const std::uint32_t code = character.m_Code;
    if (code < ' ') {
        AppendUtf8(shown, kPictureOfNul + code);
        return;
    }
    if (code == kDelete) {
        AppendUtf8(shown, kPictureOfDelete);
        return;
    }
    std::size_t width = 1;
    if (IsIn(kNotShown, code)) {
        shown += kReplacement;
    } else if (code >= kFirstBeyondAscii && bytes.size() == 1) {
        AppendUtf8(shown, code);
    } else {
        shown += bytes;
        width = IsIn(kWide, code) ? 2 : 1;
    }
    for (; width < bytes.size(); ++width) {
        shown += kFiller;
    }
}

}  // namespace

std::vector<ShownPiece> GetShownPieces(const ExplainedRow& row) {
    const std::string_view text = row.m_Text;
    const bool isUtf8 = IsUtf8(text);
    std::vector<ShownPiece> pieces;
    for (std::size_t column = 0; column < text.size();) {
        const Utf8Character character =
            isUtf8 ? ReadUtf8(text.substr(column))
                   : Utf8Character{static_cast<unsigned char>(text[column]), 1};
        const Mark mark = row.GetMark(column);
        if (pieces.empty() || pieces.back().m_Mark != mark) {
            pieces.push_back({mark, {}});
        }
        AppendShown(pieces.back().m_Text, character, text.substr(column, character.m_Length));
        column += character.m_Length;
    }
    return pieces;
}

std::string GetShownText(std::string_view bytes) {
    ExplainedRow row;
    row.m_Text = bytes;
    std::string text;
    for (const ShownPiece& piece : GetShownPieces(row)) {
        text += piece.m_Text;
    }
    return text;
}

}  // namespace tabulorix
