// Cuts the text form of a tree into its tokens. TreeNodeReader.h describes the form.

#pragma once

#include <cctype>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "LittleEndian.h"

namespace tabulorix {

struct TreeToken {
    enum class Kind { Word, Text, LeftBrace, RightBrace, End, UnfinishedText, Stranger };

    Kind m_Kind = Kind::End;
    // A word, a text with its doubled quotes made single, or the one character that the token is.
    std::string_view m_Text;
    bool m_IsLikelyWord = false;
};

class TreeScanner {
public:
    // Letters, digits and white space are those of the locale of this moment. `text` must outlive
    // the scanner.
    explicit TreeScanner(std::string_view text)
        : m_Begin(text.data()), m_At(text.data()), m_End(text.data() + text.size()) {
        for (int c = 0; c <= UCHAR_MAX; ++c) {
            m_Classes[c] = std::isalnum(c) != 0   ? Class::Word
                           : std::isspace(c) != 0 ? Class::Space
                                                  : Class::Other;
        }
        for (const char c : std::string_view("-./\\_~")) {
            m_Classes[static_cast<unsigned char>(c)] = Class::Word;
        }
    }

    // The token last read; its text is valid until the next one is.
    const TreeToken& GetToken() const noexcept { return m_Token; }

    // Reads the next token. `likelyWord`, a word or empty, is tried first, which spares looking for
    // the end of a word that was guessed right.
    void Advance(std::string_view likelyWord) {
        SkipAll(Class::Space);
        if (m_At == m_End) {
            SetToken(TreeToken::Kind::End, m_At);
            return;
        }
        const char* start = m_At;
        if (GetClass(*start) == Class::Word) {
            const bool isLikelyWord = SkipWord(likelyWord);
            if (!isLikelyWord) {
                SkipAll(Class::Word);
            }
            SetToken(TreeToken::Kind::Word, start);
            m_Token.m_IsLikelyWord = isLikelyWord;
            return;
        }
        ++m_At;
        if (*start == '"') {
            ReadText();
        } else {
            SetToken(*start == '{'   ? TreeToken::Kind::LeftBrace
                     : *start == '}' ? TreeToken::Kind::RightBrace
                                     : TreeToken::Kind::Stranger,
                     start);
        }
    }

    // How many bytes the tokens so far took.
    std::size_t GetReadCount() const noexcept { return static_cast<std::size_t>(m_At - m_Begin); }

    // The number of line ends up to here, modulo 65536: each LF, and each CR that something else
    // than an LF follows. Only messages want it, so it is not kept up to date all the time.
    std::uint16_t CountLineEnds() const noexcept {
        std::uint16_t count = 0;
        char previous = '\0';
        for (const char c : std::string_view(m_Begin, GetReadCount())) {
            count = static_cast<std::uint16_t>(count + (c == '\n' || previous == '\r' ? 1 : 0));
            previous = c;
        }
        return count;
    }

private:
    enum class Class : unsigned char { Other, Space, Word };

    Class GetClass(char c) const noexcept { return m_Classes[static_cast<unsigned char>(c)]; }

    void SetToken(TreeToken::Kind kind, const char* start) noexcept {
        m_Token = {kind, {start, static_cast<std::size_t>(m_At - start)}, false};
    }

    bool IsAt(char c) const noexcept { return m_At != m_End && *m_At == c; }

    // The loops work on a local pointer, which stays in a register.
    void SkipAll(Class characterClass) noexcept {
        const char* at = m_At;
        while (at != m_End && GetClass(*at) == characterClass) {
            ++at;
        }
        m_At = at;
    }

    bool SkipWord(std::string_view word) noexcept {
        if (static_cast<std::size_t>(m_End - m_At) < word.size() ||
            !EqualShortBytes(m_At, word.data(), word.size())) {
            return false;
        }
        const char* end = m_At + word.size();
        if (end != m_End && GetClass(*end) == Class::Word) {
            return false;
        }
        m_At = end;
        return true;
    }

    void SkipToQuote() noexcept {
        const char* at = m_At;
        while (at != m_End && *at != '"') {
            ++at;
        }
        m_At = at;
    }

    void ReadText() {
        const char* start = m_At;
        SkipToQuote();
        SetToken(TreeToken::Kind::Text, start);
        if (m_At == m_End) {
            m_Token.m_Kind = TreeToken::Kind::UnfinishedText;
        } else if (++m_At; IsAt('"')) {
            ReadQuotedText();
        }
    }

    // The rest of a text, from the second quote of its first pair on.
    void ReadQuotedText() {
        m_Unquoted = m_Token.m_Text;
        while (IsAt('"')) {
            const char* start = m_At++;
            SkipToQuote();
            m_Unquoted.append(start, m_At);
            if (m_At == m_End) {
                m_Token.m_Kind = TreeToken::Kind::UnfinishedText;
            } else {
                ++m_At;
            }
        }
        m_Token.m_Text = m_Unquoted;
    }

    Class m_Classes[UCHAR_MAX + 1];
    const char* m_Begin;
    const char* m_At;
    const char* m_End;
    TreeToken m_Token;
    std::string m_Unquoted;  // a text whose doubled quotes were made single
};

}  // namespace tabulorix
