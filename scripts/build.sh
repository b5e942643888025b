#!/usr/bin/env bash
# Builds the program, and converts the tab files that are named:
#
#     scripts/build.sh [FILE...]
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)

# The tests are configured with the rest, though only the program is built.
"$root/scripts/setup.sh" build test
(
    cd "$root"
    cmake --preset release
    cmake --build --preset release --parallel "$(nproc)" --target tabulorix
)
program=$root/build/release/Tools/CommandLine/tabulorix
echo "The program is $program"
[[ $# -eq 0 ]] || "$program" "$@"
