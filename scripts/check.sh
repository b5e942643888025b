#!/usr/bin/env bash
# Checks the sources without running them: their format, then clang-tidy's findings.
set -euo pipefail
cd "$(dirname "$0")/.."

folders=(Shared Tabulorix Tools tests fuzz)

# clang-tidy counts what it has suppressed for each file.
tidy() {
    clang-tidy -p build/dev --quiet --extra-arg=-Wno-unknown-warning-option "$1" \
        2> >(grep -Ev '^[0-9]+ warnings? generated\.$' >&2)
}
export -f tidy

scripts/setup.sh build test check
find "${folders[@]}" bench resources -name '*.h' -o -name '*.cpp' | sort |
    xargs clang-format --dry-run -Werror
echo "The format is right."

# The compile database holds this system's sources; the cross compiler looks at the others.
cmake --preset dev >/dev/null
find "${folders[@]}" -name '*.cpp' ! -name '*_win32.cpp' \
    ! -path 'Tools/StandInHost/*' -print0 | sort -z |
    xargs -0 -n 1 -P "$(nproc)" bash -c 'tidy "$0"'
echo "clang-tidy found nothing (it left out bench, the stand-in host and the Windows sources)."
