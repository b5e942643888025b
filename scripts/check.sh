#!/usr/bin/env bash
# Checks the sources without running them: their format, then clang-tidy's findings.
set -euo pipefail
cd "$(dirname "$0")/.."

folders=(Shared Tabulorix Tools tests fuzz)

scripts/setup.sh build test check
find "${folders[@]}" bench resources -name '*.h' -o -name '*.cpp' | sort |
    xargs clang-format --dry-run -Werror
echo "The format is right."

# The compile database holds this system's sources; the cross compiler looks at the others.
cmake --preset dev >/dev/null
find "${folders[@]}" -name '*.cpp' ! -name '*_win32.cpp' \
    ! -path 'Tools/StandInHost/*' -print0 | sort -z |
    xargs -0 -n 1 -P "$(nproc)" clang-tidy -p build/dev --quiet --extra-arg=-Wno-unknown-warning-option 2>/dev/null
echo "clang-tidy found nothing (in all but the Windows sources)."
