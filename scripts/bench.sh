#!/usr/bin/env bash
# Measures the program, prints one table, and fails when an aim is missed by more than a quarter:
#
#     scripts/bench.sh
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh build bench
{
    cmake --preset bench
    cmake --build --preset bench --parallel "$(nproc)"
} >/dev/null

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cat examples/*.tab | sed -n 1,100p >"$folder/sample.tab"
python3 bench/report.py build/bench/bench/tabulorix_bench \
    build/bench/Tools/CommandLine/tabulorix "$folder/sample.tab"
