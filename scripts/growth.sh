#!/usr/bin/env bash
# Checks that time and memory grow in proportion to the input, for files of many extreme kinds:
#
#     scripts/growth.sh
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh build bench
{
    cmake --preset bench
    cmake --build --preset bench --parallel "$(nproc)"
} >/dev/null
build/bench/bench/tabulorix_growth
