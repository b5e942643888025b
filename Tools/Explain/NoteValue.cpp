#include "NoteValue.h"

#include <bit>

#include "Ticks.h"

namespace tabulorix {

namespace {

constexpr std::string_view kLetters = "whqestx";

std::string GetPartName(unsigned part) {
    constexpr unsigned kWhole = kWholeNoteTicks;
    if (part > kWhole) {
        return std::to_string(part / kWhole) + kLetters.front();
    }
    const auto halvings = static_cast<std::size_t>(std::countr_zero(kWhole / part));
    return halvings < kLetters.size() ? std::string(1, kLetters[halvings])
                                      : std::to_string(kWhole / part);
}

}  // namespace

std::string GetNoteValue(int ticks) {
    std::string value;
    for (unsigned rest = ticks > 0 ? static_cast<unsigned>(ticks) : 0; rest > 0;) {
        unsigned part = std::bit_floor(rest);
        value += (value.empty() ? "" : "~") + GetPartName(part);
        rest -= part;
        for (part /= 2; part > 0 && rest >= part; part /= 2) {
            value += '.';
            rest -= part;
        }
    }
    return value;
}

}  // namespace tabulorix
