#include "FretRuns.h"

#include <algorithm>

#include "Ascii.h"
#include "FretCharacters.h"

namespace tabulorix {

namespace {

constexpr int kTooManyDigits = 3;
constexpr int kPlaceValues[] = {1, 10, 100, 1000};

}  // namespace

FretRuns::FretRuns(std::string_view columns) : m_Runs(columns.size() + 1) {
    for (std::size_t column = columns.size(); column-- > 0;) {
        m_Runs[column] = Prepend(columns[column], m_Runs[column + 1]);
    }
}

FretRuns::Run FretRuns::Prepend(char c, const Run& rest) {
    if (!IsFretCharacter(c)) {
        return {};
    }
    Run run = rest;
    ++run.m_Length;
    if (IsDigit(c)) {
        const int value = rest.m_Value + (c - '0') * kPlaceValues[rest.m_DigitCount];
        run.m_Value = std::min(value, kHighestFret + 1);
        run.m_DigitCount = std::min(rest.m_DigitCount + 1, kTooManyDigits);
    }
    return run;
}

}  // namespace tabulorix
