// The 8-bit string of the whole program.
//
// An STR is a handle on a shared, reference-counted buffer: copies share the text until one of
// them is changed. The text may hold any byte, NUL included, and is followed by one NUL that is
// not part of it. Not safe to share between threads.

#pragma once

#include <string_view>

namespace tabulorix {

class ResId;

class STR {
public:
    // Shares the process-wide empty text.
    STR() noexcept;
    STR(std::string_view text);  // implicit on purpose: literals and views are texts
    STR(const char* text) : STR(std::string_view(text)) {}
    // The string of a resource with "%1" and "%2" replaced by the arguments; an empty text when the
    // resource has none. Placeholders inside the arguments are left alone.
    STR(const ResId& id, std::string_view argument1, std::string_view argument2 = {});
    STR(const STR& other) noexcept;
    STR(STR&& other) noexcept;
    STR& operator=(const STR& other) noexcept;
    STR& operator=(STR&& other) noexcept;
    ~STR();

    // Zero-terminated; valid until this STR is changed or destroyed.
    const char* GetText() const noexcept;
    int GetLength() const noexcept;
    bool IsEmpty() const noexcept { return GetLength() == 0; }
    std::string_view View() const noexcept;
    operator std::string_view() const noexcept { return View(); }

    // The first position of `c`, or -1.
    int Find(char c) const noexcept;
    // The text from `position` on; empty when the position lies at or beyond the end, the whole
    // text when it is not above 0.
    STR Tail(int position) const;
    // Compares in the user's default locale.
    bool EqualsIgnoringCase(std::string_view other) const;

    STR& operator+=(std::string_view tail);
    friend STR operator+(const STR& left, std::string_view right) { return STR(left) += right; }
    friend bool operator==(const STR& left, const STR& right) noexcept {
        return left.View() == right.View();
    }
    friend bool operator==(const STR& left, const char* right) noexcept {
        return left.View() == right;
    }

    // Decimal text, as "%d" gives it.
    static STR FromInt(int value);

private:
    struct Buffer;
    static Buffer* GetEmptyBuffer() noexcept;
    static Buffer* NewBuffer(std::size_t capacity);
    void Release() noexcept;

    Buffer* m_Buffer;
};

}  // namespace tabulorix
