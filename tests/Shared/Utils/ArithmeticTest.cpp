#include <doctest/doctest.h>

#include "Arithmetic.h"

namespace tabulorix {

TEST_CASE("Figures stop at the ends of an int") {
    CHECK(AppendDigit(214748364, 7) == INT_MAX);
    CHECK(AppendDigit(214748364, 8) == INT_MAX);
    CHECK(AppendDigit(INT_MAX, 9) == INT_MAX);
    CHECK(SaturatingAdd(INT_MAX, 1) == INT_MAX);
    CHECK(SaturatingAdd(INT_MIN, -1) == INT_MIN);
}

}  // namespace tabulorix
