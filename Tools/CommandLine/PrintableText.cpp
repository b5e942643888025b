#include "PrintableText.h"

#include <string>

namespace tabulorix {

namespace {

constexpr char kReplacement = '?';
// In UTF-8 the control characters beyond ASCII are this byte and one from 80 to 9F.
constexpr char kLeadOfControls = '\xC2';

bool IsControl(char c) {
    const auto code = static_cast<unsigned char>(c);
    return code < 0x20 || code == 0x7F;
}

bool IsControl(char lead, char c) {
    const auto code = static_cast<unsigned char>(c);
    return lead == kLeadOfControls && code >= 0x80 && code < 0xA0;
}

}  // namespace

STR MakePrintable(const STR& text) {
    std::string printable(text.View());
    char* before = nullptr;
    for (char& c : printable) {
        if (IsControl(c)) {
            c = kReplacement;
        } else if (before != nullptr && IsControl(*before, c)) {
            *before = c = kReplacement;
        }
        before = &c;
    }
    // Nearly every text is as it was, and shared.
    return printable == text.View() ? text : STR(printable);
}

}  // namespace tabulorix
