#!/usr/bin/env bash
# Builds the program, and converts the tab files that are named:
#
#     scripts/build.sh [FILE...]
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)

"$root/scripts/setup.sh" build
(
    cd "$root"
    cmake --preset release
    cmake --build --preset release --parallel "$(nproc)" --target tabulorix
)
program=$root/build/release/Tools/CommandLine/tabulorix
echo "The program is $program"
[[ $# -eq 0 ]] || "$program" "$@"
