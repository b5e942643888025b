// The unit of time: the tick, of which a whole note has 1024.
//
// It is the score's. Notes without dots are a power of two ticks long, so that a score needs only
// the exponent, and the shortest one that notation has, the 1024th, is one tick.

#pragma once

#include <bit>

namespace tabulorix {

constexpr int kWholeNoteExponent = 10;
constexpr int kWholeNoteTicks = 1 << kWholeNoteExponent;
constexpr int kQuarterNoteTicks = kWholeNoteTicks / 4;
constexpr int kEighthNoteTicks = kWholeNoteTicks / 8;

// The exponent of the length of 1/denominator of a whole note: 8 for quarters, 7 for eighths. What
// is no power of two counts as the next one below, and 0 or less as 1. `denominator` is 1024 at
// most.
constexpr int GetUnitExponent(int denominator) noexcept {
    const auto positive = static_cast<unsigned>(denominator > 0 ? denominator : 1);
    return kWholeNoteExponent + 1 - static_cast<int>(std::bit_width(positive));
}

}  // namespace tabulorix
