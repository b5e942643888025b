#!/usr/bin/env bash
# Builds the plug-in and tests it in Windows processes, beside the native program; then runs the tests
# of the parts, and replays the inputs of the fuzz targets, in such processes too:
#
#     scripts/test_windows.sh [TEST...]      all, or tests of the plug-in by name
#                                            (PluginTest.test_cycles)
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh build windows
cmake --preset dev
cmake --build --preset dev --parallel "$(nproc)" --target tabulorix
cmake --preset win32
cmake --build --preset win32 --parallel "$(nproc)"

# Neither the folder nor the time of a build may show in its result.
elsewhere=$(mktemp -d)
trap 'rm -rf "$elsewhere"' EXIT
tar -c --exclude=./build --exclude=./.git . | tar -x -C "$elsewhere"
(cd "$elsewhere" && cmake --preset win32 -DBUILD_TESTING=OFF &&
    cmake --build --preset win32 --parallel "$(nproc)" --target TabulorixDll) >/dev/null

source scripts/windows.sh
prepare_wine
in_display python3 tests/Windows/PluginTest.py build/win32 "$elsewhere/build/win32" build/dev "$@"
if [[ $# -eq 0 ]]; then
    wine build/win32/tests/tabulorix_tests.exe
    for program in build/win32/fuzz/fuzz_*.exe; do
        target=$(basename "$program" .exe)
        wine "$program" fuzz/*/"${target#fuzz_}"
    done
fi
