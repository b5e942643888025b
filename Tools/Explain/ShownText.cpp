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

Utf8Character ReadWestern(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return {byte < kFirstBeyondAscii ? byte : GetWesternCode(byte), 1};
}

// `bytes` are those of the character, or the one byte of the western code page. Gives back how many
// columns wide it is.
std::size_t AppendShown(std::string& shown, const Utf8Character& character,
                        std::string_view bytes) {
    const std::uint32_t code = character.m_Code;
    if (code < ' ') {
        AppendUtf8(shown, kPictureOfNul + code);
        return 1;
    }
    if (code == kDelete) {
        AppendUtf8(shown, kPictureOfDelete);
        return 1;
    }
    if (IsIn(kNotShown, code)) {
        shown += kReplacement;
        return 1;
    }
    if (code >= kFirstBeyondAscii && bytes.size() == 1) {
        AppendUtf8(shown, code);
        return 1;
    }
    shown += bytes;
    return IsIn(kWide, code) ? 2 : 1;
}

Utf8Character ReadCharacter(std::string_view text, std::size_t at, bool isUtf8) {
    return isUtf8 ? ReadUtf8(text.substr(at)) : ReadWestern(text[at]);
}

}  // namespace

std::vector<ShownPiece> GetShownPieces(const ExplainedRow& row) {
    const std::string_view text = row.m_Text;
    const bool isUtf8 = IsUtf8(text);
    std::vector<ShownPiece> pieces;
    for (std::size_t column = 0; column < text.size();) {
        const Utf8Character character = ReadCharacter(text, column, isUtf8);
        const Mark mark = row.GetMark(column);
        if (pieces.empty() || pieces.back().m_Mark != mark) {
            pieces.push_back({mark, {}});
        }
        std::string& shown = pieces.back().m_Text;
        std::size_t width = AppendShown(shown, character, text.substr(column, character.m_Length));
        for (; width < character.m_Length; ++width) {
            shown += kFiller;
        }
        column += character.m_Length;
    }
    return pieces;
}

std::string GetShownText(std::string_view bytes) {
    const bool isUtf8 = IsUtf8(bytes);
    std::string shown;
    for (std::size_t at = 0; at < bytes.size();) {
        const Utf8Character character = ReadCharacter(bytes, at, isUtf8);
        AppendShown(shown, character, bytes.substr(at, character.m_Length));
        at += character.m_Length;
    }
    return shown;
}

}  // namespace tabulorix
