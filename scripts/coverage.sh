#!/usr/bin/env bash
# Counts the lines and branches of the program that the native tests run; fails when they miss too many.
# These are marked in build/coverage/report/index.html.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh build test coverage
cmake --preset coverage
cmake --build --preset coverage --parallel "$(nproc)"

# The program adds its counts to files as it ends. A test runs it as another user, so until the tests
# are through, the files stand where everybody may write.
build=$PWD/build/coverage
counts=$(mktemp -d)
trap 'rm -rf "$counts"' EXIT
find "$build" -name '*.gcda' -delete
(cd "$build" && find . -name '*.gcno' -printf '%h\0') | sort -zu | (cd "$counts" && xargs -0 mkdir -p)
chmod -R a+rwX "$counts"
slashes=${build//[^\/]/}
(
    umask 0
    GCOV_PREFIX=$counts GCOV_PREFIX_STRIP=${#slashes} ctest --preset coverage --no-tests=error
)
cp -r "$counts/." "$build"

mkdir -p "$build/report"
gcovr "$build/Shared" "$build/Tabulorix" "$build/Tools" "$build/tests" \
    --filter Shared/ --filter Tabulorix/ --filter Tools/ --exclude '.*_win32\.' \
    --exclude-throw-branches --exclude-unreachable-branches \
    --txt "$build/report/lines.txt" --html-details "$build/report/index.html" \
    --print-summary --fail-under-line 95 --fail-under-branch 90
